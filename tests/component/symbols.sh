#!/usr/bin/env bash
# symbols.sh DLL: the file of symbols beside the DLL belongs to it, and leads from an address to a source line.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
dll=$1 symbols=$1.debug

fail() {
    printf 'failed: %s\n' "$*" >&2
    exit 1
}

headers=$(x86_64-w64-mingw32-objdump -p "$dll")
build_id() { sed -n 's/.*RSDS signature \([0-9a-f]*\).*/\1/p'; }
id=$(build_id <<<"$headers")
[[ $id =~ ^[0-9a-f]{32}$ && ! $id =~ ^0*$ ]] || fail "the DLL has the build id '$id'"
[ "$(x86_64-w64-mingw32-objdump -p "$symbols" | build_id)" = "$id" ] || fail "the build ids differ"

# Debuggers take the file that has this name and this checksum.
link=$(x86_64-w64-mingw32-objdump --dwarf=links "$dll")
checksum=$(python3 -c 'import sys, zlib; print(hex(zlib.crc32(open(sys.argv[1], "rb").read())))' "$symbols")
grep -q "Separate debug info file: ${symbols##*/}\$" <<<"$link" || fail "the DLL's link is: $link"
grep -q "CRC value: $checksum\$" <<<"$link" || fail "the DLL's link is: $link (the file's checksum is $checksum)"

# A place that is known without any symbols: where an exported function begins.
function=DllGetClassObject source=component/dll_main.cpp
index=$(sed -n "s/^\s*\[ *\([0-9]*\)\].* $function\$/\1/p" <<<"$headers")
offset=$(sed -n "s/^\s*\[ *$index\] +base\[ *[0-9]*\] *\([0-9a-f]*\) Export RVA\$/\1/p" <<<"$headers")
answer=$(script/where --symbols "$symbols" "$offset")
line=$(sed -n "s|^\(.* \)\?$function.* at .*$source:\([0-9]*\)\$|\2|p" <<<"$answer")
[ -n "$line" ] || fail "script/where says of $function, which begins at $offset: $answer"
# The first line of the function's code may be that of its head or of its first statement.
head=$(grep -n "$function(" "$source" | cut -d: -f1)
((line >= head && line <= head + 1)) || fail "$function is at $source:$head, not $line"

# The runtime's handler of what nobody catches would bring it along.
if x86_64-w64-mingw32-nm "$symbols" | grep -q __cxa_demangle; then fail "the DLL holds a demangler"; fi
