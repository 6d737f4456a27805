#!/usr/bin/env bash
# script/policy makes the files for a key and for values of one's own, and nothing when anything is wrong with them.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

policy=$root/script/policy
values() { iconv -f UTF-16 -t UTF-8 "$1" | tr -d '\r' | grep '^["[]'; }

# Folders and files are named from where it is called.
printf '{"schema": 1, "product": "vmkctrl.PdfPrinterPreferences", "settings": {"Paper.Nup": 2, "Info.Title": "a \\"b\\""}}' \
    >some.json
passes "$policy" --key Office --from some.json kit Save.ShowSaveDialog=0
for name in vmkctrl_Office.admx en-US/vmkctrl_Office.adml de-DE/vmkctrl_Office.adml Registry.xml new-user.cmd; do
    [ -s "kit/$name" ] || fail "there is no $name"
done
cat >expected <<'END'
[HKEY_CURRENT_USER\SOFTWARE\Orrin Systems\vmkctrl.PdfPrinterPreferences\Office]
"Paper.Nup"=dword:00000002
"Info.Title"="a \"b\""
"Save.ShowSaveDialog"=dword:00000000
END
values kit/preferences.reg | cmp - expected || fail "other values: $(values kit/preferences.reg)"

printf '{"schema": 2, "product": "vmkctrl.PdfPrinterPreferences", "settings": {}}' >later.json
printf '{"schema": 1, "product": "vmkctrl.PdfPrinterPreferences", "settings": {"Paper.Nup": true}}' >flag.json
printf '{' >broken.json
refuses "usage:" "$policy"
refuses "usage:" "$policy" none --from
refuses "missing.json" "$policy" none --from missing.json
refuses "broken.json" "$policy" none --from broken.json
refuses "another schema" "$policy" none --from later.json
refuses "neither a number nor a text" "$policy" none --from flag.json
refuses "Paper.Nup cannot be 3" "$policy" none Paper.Nup=3
refuses "is a password" "$policy" none Security.UserPwd=secret
[ ! -e none ] || fail "files were written all the same"
