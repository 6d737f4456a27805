# Shared by the scripts beside this folder; source it, do not run it.
# shellcheck shell=bash

set -euo pipefail
# Where programs lie is not to be up to chance: GCC's symbols may come out otherwise at other addresses. A machine that does
# not allow that builds all the same.
if [ -z "${VMK_FIXED_ADDRESSES:-}" ] && setarch -R true 2>/dev/null; then
    export VMK_FIXED_ADDRESSES=1
    exec setarch -R "$0" "$@"
fi
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root"
export jobs
jobs=$(nproc)

say() { printf '%s\n' "==> $*" >&2; }
die() {
    printf '%s\n' "error: $*" >&2
    exit 1
}

# configure PRESET: runs CMake for the preset unless its build files are there already (Ninja keeps them fresh). Of two
# commands that want the same at the same time, one waits.
configure() (
    flock 9
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >"build/$1.configure.log" 2>&1 9>&- || {
        cat "build/$1.configure.log" >&2
        die "cmake --preset $1 failed"
    }
) 9>"build/$1.configure.lock"
mkdir -p build
