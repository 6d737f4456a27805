#!/usr/bin/env bash
# The document of reliability lists the changes that no test can see as they are explained.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

(cd "$root" && cp -r --parents script/lib/explained-mutants tests/explained_mutants.toml docs/reliability.md "$work")
passes script/lib/explained-mutants --check

# One explanation more, and it is out of date until it is written anew, without anything else changed.
cat >>tests/explained_mutants.toml <<'END'

[[survivor]]
file = "a.cpp"
function = "Next"
line = "return `++number`;"
changes = ["`++` becomes `--`", "`++number` becomes `number`"]
reason = "For the test."
END
refuses 'out of date' script/lib/explained-mutants --check
cp docs/reliability.md before.md
passes script/lib/explained-mutants
passes script/lib/explained-mutants --check
{ diff before.md docs/reliability.md || true; } | sed 's/ *$//' | grep '^[<>]' >changed
# shellcheck disable=SC2016
diff - changed <<'END' || fail "something else is written"
> ### a.cpp
>
> - `` return `++number`; `` in `Next`: `++` becomes `--`; `++number` becomes `number`.
>   For the test.
>
END
