#!/usr/bin/env bash
# artifacts.sh BUILD: what script/build builds, the target "artifacts", is all that is shipped, and it is there.
set -euo pipefail
build=$1
sources=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)

commands=$(ninja -C "$build" -t commands artifacts)
names=(vmkctrl.dll vmkprefs.exe vmkctrl.h vmkctrl.tlb vmkctrl.idl)
for language in "$sources"/languages/*.txt; do
    names+=("languages/$(basename "$language" .txt).vlf")
done
for name in "${names[@]}"; do
    [[ $commands == *"$(basename "$name" .vlf)"* ]] || { echo "the target artifacts does not make $name"; exit 1; }
    [ -s "$build/$name" ] || { echo "$name is not there"; exit 1; }
done

[[ $commands == *"policy_files "*"$build/policy"* ]] || { echo "the target artifacts does not make policy/"; exit 1; }
for name in {vmkctrl.admx,{en-US,de-DE}/vmkctrl.adml,Registry.xml,preferences.reg,new-user.{reg,cmd}}; do
    [ -s "$build/policy/$name" ] || { echo "policy/$name is not there"; exit 1; }
done
