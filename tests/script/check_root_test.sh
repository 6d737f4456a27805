#!/usr/bin/env bash
# What check-root refuses and what it lets pass.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

cat >list <<'END'
# what for
README.md  readers
bench      the benchmarks
END
check() { printf '%s\n' "$@" | "$root/script/lib/check-root" list; }

passes check README.md bench/a.png bench/deep/b.png
refuses a.png check README.md a.png
refuses leftovers check README.md leftovers/notes.txt
refuses README.md.orig check README.md.orig
refuses 'b e' check 'b e/c'
refuses what check what
