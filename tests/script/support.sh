# Shared by the tests of scripts; source it with the test's arguments. Works in an empty folder, $work, which goes
# with the test; $root is the project.
# shellcheck shell=bash
set -euo pipefail

export root work=$1
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
rm -rf "$work"
mkdir -p "$work"
trap 'rm -rf "$work"' EXIT
cd "$work"

fail() {
    printf 'failed: %s\n' "$*" >&2
    exit 1
}

# passes COMMAND...: the command has to succeed.
passes() { "$@" >output 2>&1 || fail "refused: $* ($(cat output))"; }

# refuses TEXT COMMAND...: the command has to fail and to say the text.
refuses() {
    local text=$1
    shift
    if "$@" >output 2>&1; then fail "passed: $* ($(cat output))"; fi
    grep -qF -- "$text" output || fail "'$text' is not said by $*: $(cat output)"
}
