#!/usr/bin/env bash
# How programs are started under Wine, with a stand-in for it that tells whether its addresses are random.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"
# shellcheck source=script/lib/wine.sh
. "$root/script/lib/wine.sh"

mkdir bin
printf '#!/bin/sh\necho "started with $*"\ncat /proc/self/personality\n' >bin/wine64
chmod +x bin/wine64
PATH=$work/bin:$PATH

# has SAID: what the started program is to say of itself, whether or not this test has random addresses.
setarch=$(command -v setarch)
has() {
    wine_environment 1
    "$setarch" "$(uname -m)" "$wine" program.exe 'an argument' >said
    diff <(printf 'started with program.exe an argument\n%s\n' "$1") said || fail "Wine is not started as it should be"
}

readonly random=00000000 fixed=00040000
if setarch -R true 2>/dev/null; then has "$fixed"; else has "$random"; fi

# A container may forbid it.
printf '#!/bin/sh\nexit 1\n' >bin/setarch
chmod +x bin/setarch
has "$random"
