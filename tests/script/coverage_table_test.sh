#!/usr/bin/env bash
# What coverage-table lets pass and what it refuses.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

# summary FILE COVERED: as llvm-cov writes one, with so many of the 100 branches of the file covered and all of others.
summary() {
    local separator='' name covered
    printf '{"data": [{"files": ['
    for name in language/language_file.cpp language/language_table.cpp pages/fonts/font_list.cpp settings/reset.cpp; do
        covered=100
        [ "$name" != "$1" ] || covered=$2
        printf '%s{"filename": "%s/%s", "summary": {"branches": {"count": 100, "covered": %s}}}' \
            "$separator" "$work" "$name" "$covered"
        separator=,
    done
    printf ']}]}'
}
check() {
    summary "$1" "$2" >tests.json
    summary language/language_file.cpp 3 >inputs.json
    "$root/script/lib/coverage-table" tests.json inputs.json
}

passes check language/language_file.cpp 100
passes check language/language_file.cpp 95
grep -Eq '^language/language_file.cpp +95/100  95.0 % +3/100   3.0 %$' output || fail "no figures: $(cat output)"
passes check settings/reset.cpp 10
refuses 'less than 95 % of language/language_file.cpp' check language/language_file.cpp 94
refuses 'less than 95 % of language/language_table.cpp' check language/language_table.cpp 0
