# Shared by the scripts beside this folder; source it, do not run it.
# shellcheck shell=bash

set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
cd "$root"
export jobs
jobs=$(nproc)

say() { printf '%s\n' "==> $*" >&2; }
die() {
    printf '%s\n' "error: $*" >&2
    exit 1
}

# configure PRESET: runs CMake for the preset unless its build files are there already (Ninja keeps them fresh).
configure() {
    [ -f "build/$1/build.ninja" ] || cmake --preset "$1" >"build/$1.configure.log" 2>&1 || {
        cat "build/$1.configure.log" >&2
        die "cmake --preset $1 failed"
    }
}
mkdir -p build
