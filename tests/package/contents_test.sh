#!/usr/bin/env bash
# contents_test.sh WORK BUILD PACKAGE: the package is what it says, comes out the same however often it is made, and what is
# wrong with one is found.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/../script/support.sh" "$1"
build=$2 package=$3

check() { "$root/tests/package/check.py" "$1"; }
pack() { /usr/bin/python3 -B "$root/script/lib/packaging" --build "$build" "$@"; }
# finds TEXT...: each of them is among what the last check has refused.
finds() {
    for text in "$@"; do
        grep -qF -- "$text" output || fail "'$text' is not found: $(cat output)"
    done
}
passes check "$package"

# In another folder, time zone and language, and with other rights.
again() { (
    umask 077
    TZ=Asia/Tokyo LC_ALL=C pack --output "$work/again"
); }
passes again
diff -r "$package" again || fail "the same build gives other packages"

# An archive with faults in its files.
cp -r "$package" bad-files
python3 -m zipfile -e bad-files/*-x64.zip unpacked
(
    cd unpacked/*
    rm languages/german.vlf docs/gallery.md licences/cli11.txt
    rm -r examples/presets
    touch notes.txt
    printf x | dd of=vmkctrl.dll bs=1 seek=5000 conv=notrunc status=none
    cp vmkctrl.tlb vmkprefs.exe
    sed -i 's/^## Install$/## Installing/' docs/translating.md
    sed -i 's/^## [0-9.]* /## 2.0.0 /' CHANGELOG.md
)
rm bad-files/*-x64.zip
python3 -m zipfile -c bad-files/vmkctrl-x64.zip unpacked/*
refuses 'SHA256SUMS and the folder disagree on vmkctrl-x64.zip' check bad-files
finds 'the bill and the archive disagree on languages/german.vlf' \
    'the installer has another languages/german.vlf than the archive' \
    'the bill and the archive disagree on notes.txt' \
    'vmkctrl.dll has other sums than the bill says' \
    "the bill's verification code is another one" \
    'README.md links to docs/gallery.md, which is not there' \
    'docs/deploying.md links to ../examples/presets, which is not there' \
    'docs/hosts.md links to translating.md#install, where no heading is called so' \
    'libcli11-dev is inside and there is no licences/cli11.txt' \
    'CHANGELOG.md does not begin with version' \
    'vmkprefs.exe is not of version'

# A bill that refers to nothing, or to two things at once, or says that the programs hold nobody's code.
cp -r "$package" bad-bill
sed -i 's/"SPDXID": "SPDXRef-Package-cmake"/"SPDXID": "SPDXRef-Package-wixl"/
    s/"STATIC_LINK"/"DEPENDS_ON"/' bad-bill/*.json
refuses 'the bill has no SPDXRef-Package-cmake' check bad-bill
finds 'two entries of the bill are SPDXRef-Package-wixl' 'nothing is linked into vmkctrl.dll' \
    'spdx.json has another sum than SHA256SUMS says'

# A package of another version and another time, which is the one that is asked for.
mkdir other
passes env SOURCE_DATE_EPOCH=946771200 /usr/bin/python3 -B "$root/script/lib/packaging" --build "$build" --version 2.9.0 \
    --output other
grep -q '"created": "2000-01-02T00:00:00Z"' other/*.json || fail "the bill has another time than SOURCE_DATE_EPOCH"
refuses 'the installer is not of version' check other
finds 'the bill is of version 2.9.0' "the archive's folder is vmkctrl-2.9.0"

# What an older build has left is not packed, and what need not be there is where it is.
mkdir -p older/policy/de-DE staged
cp -r "$build"/vmkctrl.{dll,h,tlb} "$build/vmkprefs.exe" "$build/languages" "$build/presets" older/
cp older/languages/german.vlf older/languages/former.vlf
cp older/presets/screen.json older/presets/former.json
touch older/policy/de-DE/policy.adml
/usr/bin/python3 -B - "$root" older staged <<'PYTHON'
import sys
from pathlib import Path
root, build, folder = (Path(argument) for argument in sys.argv[1:])
sys.path.insert(0, str(root / "script/lib/packaging"))
import contents
contents.stage(root, build, folder)
PYTHON
former=$(find staged -name 'former.*')
[ -z "$former" ] || fail "what an older build has left is packed: $former"
for place in policy/de-DE/policy.adml vmkctrl.idl examples/hosts/cpp/edit.cpp docs/images/report.png README.md languages/german.vlf; do
    [ -f "staged/$place" ] || fail "there is no $place in the package: $(find staged)"
done

# What has not been built is not packed, and what was there stays.
mkdir empty kept
touch kept/file
refuses 'run script/build' /usr/bin/python3 -B "$root/script/lib/packaging" --build empty --output kept
[ -f kept/file ] || fail "a package that could not be made has taken the one before with it"
