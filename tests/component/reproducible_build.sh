#!/usr/bin/env bash
# reproducible_build.sh WORK_FOLDER: builds the DLL and the type library from two copies of the sources, in folders
# of different names and at different times, and compares what comes out byte by byte.
set -euo pipefail

source_folder=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$1
artefacts=(vmkctrl.dll vmkctrl.tlb vmkctrl.h)

# build COPY: copies what the product is made from, and builds it there.
build() {
    rm -rf "$1"
    mkdir -p "$1"
    (cd "$source_folder" && tar -c --exclude=./build --exclude=./.git --exclude=./tests .) | tar -x -C "$1"
    cmake -S "$1" -B "$1/build/release" -G Ninja -DCMAKE_BUILD_TYPE=Release -DBUILD_TESTING=OFF \
        -DCMAKE_TOOLCHAIN_FILE="$1/cmake/mingw-w64.cmake" >"$1/configure.log"
    cmake --build "$1/build/release" --target vmkctrl >"$1/build.log" || {
        tail -50 "$1/build.log"
        exit 1
    }
}

trap 'rm -rf "$work"' EXIT
build "$work/first"
# The compiler of type libraries stamps whole seconds.
sleep 1.1
build "$work/a folder of another length/second"

result=0
for name in "${artefacts[@]}"; do
    cmp "$work/first/build/release/$name" "$work/a folder of another length/second/build/release/$name" || result=1
done
exit "$result"
