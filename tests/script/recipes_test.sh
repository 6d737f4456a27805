#!/usr/bin/env bash
# The examples of the recipes in CONTRIBUTING.md still do what they say, on a copy of the sources: they apply, each
# source that they touch compiles, the dialogs too, the settings reference is as they leave it, and the policies follow.
#
# recipes_test.sh FOLDER --whole also builds the DLL and runs the tests that the examples add, in some minutes.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh"

mkdir copy
(cd "$root" && git ls-files -co --exclude-standard | tar -c -T -) | tar -x -C copy
cd copy
recipes=("$root"/examples/recipes/*.patch)
# A folder inside of a repository is none of its own.
for recipe in "${recipes[@]}"; do
    passes env GIT_CEILING_DIRECTORIES="$work" git apply "$recipe"
done

passes cmake --preset native -DBUILD_TESTING=OFF
passes cmake --build --preset native --target settings_reference
build/native/tools/settings_reference >reference
passes cmp reference docs/settings.md

options=(-DBUILD_TESTING=OFF)
[ "${2:-}" != --whole ] || options=(-DBUILD_TESTING=ON)
passes cmake --preset release "${options[@]}"
mapfile -t sources < <(sed -nE 's#^[+]{3} b/((pages|dialog)/.*\.cpp)$#\1#p' "${recipes[@]}" | sort -u)
objects=()
for source in "${sources[@]}"; do
    objects+=("${source%%/*}/CMakeFiles/vmk_${source%%/*}.dir/${source#*/}.obj")
done
[ "${#objects[@]}" -gt 2 ] || fail "the recipes touch no pages: ${objects[*]}"
passes ninja -C build/release "${objects[@]}" resources/all policy
for name in Watermarks_Opacity Stamps_Print; do
    passes grep "\"$name\"" build/release/policy/{vmkctrl.admx,en-US/vmkctrl.adml,de-DE/vmkctrl.adml}
done

[ "${2:-}" = --whole ] || exit 0
passes cmake --build --preset release --target vmkctrl pages_test settings_test
for tests in pages_test:WatermarksPage.*:StampsPage.* settings_test:Fields*:*Defaults*:*Store*; do
    passes script/lib/run-in-wine "build/release/tests/${tests%%:*}.exe" --gtest_filter="${tests#*:}"
    grep -q '\[  PASSED  \] [1-9]' output || fail "no test ran: $(cat output)"
done
