#!/usr/bin/env bash
# newcomer_test.sh WORK PACKAGE: somebody who has nothing but the archive gets as far as docs/first-steps.md says: to the
# dialog, with the component registered and without, to the stored setting, and to another language.
# shellcheck source=tests/package/windows.sh
. "$(dirname "${BASH_SOURCE[0]}")/windows.sh" newcomer "$1"
package=$2

clean_windows
home="$WINEPREFIX/drive_c/Загрузки и 下载"
mkdir "$home"
python3 -m zipfile -e "$package"/*-x64.zip "$home"
unpacked=$(echo "$home"/*)
cd "$unpacked"
here="C:\\Загрузки и 下载\\$(basename "$unpacked")"

# stored KEY: whether watermarks are printed, as hosts read it.
stored() { windows "$here\\vmkprefs.exe" get --value --key "$1" Watermarks.Print; }

# Registered, from VBScript.
passes windows "$here\\vmkprefs.exe" register
opened cscript //nologo 'examples\hosts\vbscript\edit.vbs' First
use_dialog
[ "$(tr -d '\r' <host)" = 'exit code 1' ] || fail "the host in VBScript says: $(cat host)"
[ "$(stored First)" = 1 ] || fail "the registered component has not stored"

# In another language. The path of their folder is one of the ANSI code page.
cp -r languages "$WINEPREFIX/drive_c/Languages of the dialog"
passes windows reg add 'HKLM\SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences' /v VLF_PATH \
    /d 'C:\Languages of the dialog' /f
opened 'vmkprefs.exe' edit --key Second --language 0407 --pages Watermarks
probe pages >listed
grep -q 'Wasserzeichen' listed || fail "the dialog is not in German: $(cat listed)"
dialog_click control 1
ended

# Without registration; the host is compiled with what is in the archive.
passes windows "$here\\vmkprefs.exe" unregister
refuses 'not registered' windows "$here\\vmkprefs.exe" --registered --version
mkdir host-folder
x86_64-w64-mingw32-g++ -std=c++20 -municode -static -I . examples/hosts/cpp/edit.cpp -o host-folder/edit.exe -lole32 -loleaut32
cp vmkctrl.dll examples/hosts/registration_free/*.manifest host-folder/
opened "$here\\host-folder\\edit.exe" Third
use_dialog
[ "$(tr -d '\r' <host)" = 'exit code 1' ] || fail "the host without registration says: $(cat host)"
[ "$(stored Third)" = 1 ] || fail "the component that is not registered has not stored"
