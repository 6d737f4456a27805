#!/usr/bin/env bash
# installer_test.sh WORK PACKAGE: what the installer does to a machine: it installs, repairs, replaces an older version, is not
# replaced by one, and takes away what it has brought, but for the users' settings.
# shellcheck source=tests/package/windows.sh
. "$(dirname "${BASH_SOURCE[0]}")/windows.sh" installer "$1"
package=$2
program='C:\Program Files\Vellumark\vmkprefs.exe'
installed=drive_c/'Program Files/Vellumark'

folder="$work/пакет фирмы 配布"
mkdir "$folder"
cp "$package"/*.msi "$folder/Vellumark (новый).msi"
newer=$(in_windows "$folder/Vellumark (новый).msi")
python3 -m zipfile -e "$package"/*-x64.zip unpacked
unpacked=$(echo "$PWD"/unpacked/*)

# An older version has a file less and one more, and another DLL.
older=$(in_windows "$folder/старый.msi")
cp -r "$unpacked" older
rm older/presets/screen.json
cp older/languages/german.vlf older/languages/former.vlf
cp older/vmkprefs.exe older/vmkctrl.dll
/usr/bin/python3 -B - "$root" older "$folder/старый.msi" <<'PYTHON'
import sys
from pathlib import Path
root, stage, made = (Path(argument) for argument in sys.argv[1:])
sys.path.insert(0, str(root / "script/lib/packaging"))
import installer
places = [path.relative_to(stage) for pattern in ("vmk*.dll", "vmk*.exe", "languages/*.vlf", "presets/*", "licences/*")
          for path in stage.glob(pattern)]
installer.make(stage, places, "2.9.0", made, root / "component", 946771200)
PYTHON

# The product of somebody else, which has been there and gone again: the system keeps empty keys and folders of its own from
# the first installer on.
mkdir other
cat >other/other.wxs <<'END_OF_SOURCE'
<Wix xmlns="http://schemas.microsoft.com/wix/2006/wi">
  <Product Id="6ea42aa9-2e2d-4a5c-a3f3-09a3ba0be1ce" Name="Other" Language="1033" Version="1.0.0" Manufacturer="Other"
           UpgradeCode="ab2c9c3c-9cd5-4cd6-9d80-5e32e0d15ed5">
    <Package InstallerVersion="300" Compressed="yes" InstallScope="perMachine"/>
    <Media Id="1" Cabinet="files.cab" EmbedCab="yes"/>
    <Directory Id="TARGETDIR" Name="SourceDir">
      <Directory Id="ProgramFiles64Folder">
        <Directory Id="INSTALLDIR" Name="Other">
          <Component Id="Component" Guid="b2d3c2c2-7d3a-4f7b-8a3b-4e1b2a9b0d55" Win64="yes">
            <File Id="file" Name="other.wxs" Source="other.wxs" KeyPath="yes"/>
          </Component>
        </Directory>
      </Directory>
    </Directory>
    <Feature Id="Feature" Level="1"><ComponentRef Id="Component"/></Feature>
  </Product>
</Wix>
END_OF_SOURCE
(cd other && passes wixl --arch x64 --output other.msi other.wxs)
other=$(in_windows "$PWD/other/other.msi")

clean_windows
passes windows msiexec /qn /i "$other"
passes windows msiexec /qn /x "$other"
# Something of the user's own beside the settings' key.
windows reg add 'HKCU\Software\Orrin Systems\Another' /v Kept /d yes /f >/dev/null
snapshot before

passes windows msiexec /qn /i "$newer"
snapshot installed
for file in "$WINEPREFIX/$installed"/{*,*/*,*/*/*}; do
    [ -d "$file" ] || cmp "$file" "$unpacked/${file#"$WINEPREFIX/$installed/"}"
done
[ "$(windows "$program" --registered --version | sed -n 's/.*, //p')" = 'C:\Program Files\Vellumark\vmkctrl.dll' ] ||
    fail "another component is registered"

# Repair brings back files, and a registration that somebody has taken away. "msiexec /fa" means the same, but Wine's does nothing.
rm "$WINEPREFIX/$installed/vmkctrl.dll" "$WINEPREFIX/$installed/languages/german.vlf"
windows reg delete 'HKLM\Software\Classes\CLSID\{2EE01CFA-139F-431E-BB1D-5E56B4DCEC18}' /f >/dev/null
passes windows msiexec /qn /i "$newer" REINSTALL=ALL REINSTALLMODE=amus
snapshot repaired
the_same installed repaired

# What a user has stored stays, and nothing else does.
passes windows "$program" set --key Office Paper.Nup=2
passes windows msiexec /qn /x "$newer"
[ "$(windows reg query 'HKCU\Software\Orrin Systems\vmkctrl.PdfPrinterPreferences\Office' /v Paper.Nup | grep -c 0x2)" = 1 ] ||
    fail "the user's settings are gone"
windows reg delete 'HKCU\Software\Orrin Systems\vmkctrl.PdfPrinterPreferences' /f >/dev/null
snapshot after
the_same before after
# What would stay is seen.
leaves_something() { (the_same before "$1"); }
touch "$WINEPREFIX/drive_c/Program Files/left.txt"
windows reg add 'HKLM\Software\Classes\AppID\vmkctrl.DLL' /f >/dev/null
snapshot with-rest
refuses 'Program Files/left.txt' leaves_something with-rest
rm "$WINEPREFIX/drive_c/Program Files/left.txt"
cp after.files with-rest.files
refuses 'AppID\vmkctrl.DLL' leaves_something with-rest
windows reg delete 'HKLM\Software\Classes\AppID\vmkctrl.DLL' /f >/dev/null

# An older version gives way to the newer one, and nothing is left of it; the other way round nothing happens.
passes windows msiexec /qn /i "$older"
[ -e "$WINEPREFIX/$installed/languages/former.vlf" ] || fail "the older version is not installed"
passes windows msiexec /qn /i "$newer"
if windows msiexec /qn /i "$older" >output; then fail "an older version replaces a newer one"; fi
snapshot upgraded
the_same installed upgraded
passes windows msiexec /qn /x "$newer"
snapshot finally
the_same before finally

# Registered by itself, in the same folder, the component writes what the installer has written for it. Here that means
# interfaces for programs of 32 bits as well, which Windows shows all interfaces.
mkdir -p "$WINEPREFIX/$installed"
cp "$unpacked"/vmk*.{dll,exe} "$WINEPREFIX/$installed/"
passes windows "$program" register
snapshot registered
classes() {
    comm -13 before.registry "$1.registry" | grep '[\]Classes[\]' |
        grep -Ev '[\]Classes[\]Installer[\]|[\]Wow6432Node[\](.*[\])?Interface[\]' | sed 's/\\\\"$/"/'
}
classes installed >by-installer
classes registered >by-itself
[ "$(wc -l <by-itself)" -gt 20 ] || fail "the component has registered next to nothing: $(cat by-itself)"
diff by-itself by-installer || fail "the installer registers something else than the component"
