#!/usr/bin/env bash
# signing_test.sh WORK BUILD PACKAGE: programs and installer are signed with a certificate that somebody has, and the
# signatures hold as long as the bytes do.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/../script/support.sh" "$1"
build=$2 package=$3

pack() { /usr/bin/python3 -B "$root/script/lib/packaging" --build "$build" "$@"; }
verify() { osslsigncode verify -CAfile certificate.pem -in "$1"; }

# A certificate for signing programs, as a company would have one made: here it vouches for itself.
cat >request <<'END_OF_REQUEST'
[req]
distinguished_name = name
x509_extensions = use
prompt = no
[name]
CN = Somebody
[use]
extendedKeyUsage = codeSigning
END_OF_REQUEST
passes openssl req -x509 -newkey rsa:2048 -nodes -keyout key.pem -out certificate.pem -days 20000 -config request
echo 'a password' >password
passes openssl pkcs12 -export -inkey key.pem -in certificate.pem -out container.pfx -passout file:password

passes pack --sign container.pfx --password-file password --output signed
passes "$root/tests/package/check.py" signed
python3 -m zipfile -e signed/*-x64.zip unpacked
mv unpacked/*/vmkctrl.dll unpacked/*/vmkprefs.exe signed/*.msi .
mv ./*.msi installer.msi
for name in vmkctrl.dll vmkprefs.exe installer.msi; do
    passes verify "$name"
    # The bytes of somebody else are found out.
    cp "$name" "changed-$name"
    printf x | dd of="changed-$name" bs=1 seek=$(($(stat -c %s "$name") / 3)) conv=notrunc status=none
    if verify "changed-$name" >output 2>&1; then fail "a changed $name passes for signed"; fi
done
# So is a package that nobody has signed.
cp "$package"/*.msi unsigned.msi
if verify unsigned.msi >output 2>&1; then fail "an installer without a signature passes for signed"; fi
# Signed files are others; the debugger still finds the symbols by the build id.
build_id() { x86_64-w64-mingw32-objdump -p "$1" | sed -n 's/.*RSDS signature \([0-9a-f]*\).*/\1/p'; }
[ "$(build_id vmkctrl.dll)" = "$(build_id "$build/vmkctrl.dll.debug")" ] || fail "a signature changes the build id"

# A key of its own does the same, and signing adds nothing that a second run would not.
passes pack --sign certificate.pem --key key.pem --output signed-again
mv signed-again/*.msi again.msi
cmp installer.msi again.msi || fail "the same certificate gives another installer"

echo wrong >wrong
refuses 'vmkctrl.dll cannot be signed with container.pfx' pack --sign container.pfx --password-file wrong --output none
refuses 'cannot be signed with nothing.pfx' pack --sign nothing.pfx --output none
[ ! -e none ] || fail "what cannot be signed is packed"
refuses 'belong to --sign' pack --password-file password --output none
