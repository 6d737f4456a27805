#!/usr/bin/env bash
# reproducible_build.sh BUILD WORK_FOLDER: builds the DLL, its symbols and the type library from a copy of the sources, in
# a folder of another name and at another time than the build folder's own, and compares what comes out byte by byte.
set -euo pipefail

source_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
build=$1 work=$2
artefacts=(vmkctrl.dll vmkctrl.dll.debug vmkctrl.tlb vmkctrl.h)

# As the scripts build (script/lib/common.sh), also where somebody runs this test without them.
fixed=()
! setarch -R true 2>/dev/null || fixed=(setarch -R)

# build_copy COPY: copies what the product is made from, and builds it there.
build_copy() {
    rm -rf "$1"
    mkdir -p "$1"
    (cd "$source_folder" && tar -c --exclude=./build --exclude=./.git --exclude=./tests .) | tar -x -C "$1"
    cmake --preset release -S "$1" -DBUILD_TESTING=OFF >"$work/configure.log"
    "${fixed[@]}" cmake --build "$1/build/release" --target vmkctrl >"$work/build.log" || {
        tail -50 "$work/build.log"
        exit 1
    }
}

trap 'rm -rf "$work"' EXIT
copy="$work/a folder of another length/copy"
build_copy "$copy"
other=$build
# A program between CMake and the compiler may hand on other paths, which symbols hold.
if grep -q '^CMAKE_CXX_COMPILER_LAUNCHER:[A-Z]*=.' "$build/CMakeCache.txt"; then
    other="$work/second/build/release"
    build_copy "$work/second"
fi

result=0
for name in "${artefacts[@]}"; do
    cmp "$other/$name" "$copy/build/release/$name" || result=1
done
exit "$result"
