#!/usr/bin/env bash
# administrator_test.sh WORK PACKAGE: somebody who has nothing but the installer gets as far as docs/deploying.md says: the
# component is there for every host, a preset is what a user begins with, and what differs from it is told.
# shellcheck source=tests/package/windows.sh
. "$(dirname "${BASH_SOURCE[0]}")/windows.sh" administrator "$1"
package=$2
folder='C:\Programs of the firm\Vellumark'
program=$folder\\vmkprefs.exe
preset=$folder\\presets\\print-shop.json

clean_windows
# The line of a script, where quotes are as Windows has them.
printf '@msiexec /qn /i %%1 INSTALLDIR="%s"\r\n' "$folder" >install.cmd
passes windows cmd /c "$(in_windows "$PWD/install.cmd")" "$(in_windows "$package"/*.msi)"

# What is delivered is sound.
passes windows "$program" presets
if grep -q damaged output; then fail "a preset is damaged: $(cat output)"; fi
passes windows "$program" validate "$preset"
passes windows "$program" languages
grep -q '0407 .*100 %' output || fail "German is not among the languages: $(cat output)"

# What a logon script does.
passes windows "$program" import "$preset"
passes windows "$program" diff . "$preset"
passes windows "$program" validate

# What a user sees, in a program that knows nothing but the name of the component, and changes.
cat >host.vbs <<'END_OF_HOST'
Dim preferences, exitCode
Set preferences = CreateObject("vmkctrl.PdfPrinterPreferences")
preferences.InitFromRegistry -1, ""
preferences.EnablePage -1
preferences.OpenDialog &H407, exitCode
If exitCode = 1 Then preferences.StoreInRegistry -1, ""
END_OF_HOST
opened cscript //nologo "$(in_windows "$PWD/host.vbs")"
probe pages >listed
grep -q 'Wasserzeichen' listed || fail "the dialog is not in German: $(cat listed)"
use_dialog

# What the administrator is told of that, and how it is put right.
refuses 'Watermarks.Print' windows "$program" diff . "$preset"
passes windows "$program" import "$preset"
passes windows "$program" diff . "$preset"

# A registry that somebody has damaged is found out.
passes windows reg add 'HKCU\SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences' /v Paper.Nup /d many /f
refuses 'Paper.Nup' windows "$program" validate
