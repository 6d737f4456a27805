#!/usr/bin/env bash
# What script/release refuses, and what it leaves when it refuses nothing. It works on a repository whose own .ci/run and
# script/package only say whether they were called.
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/support.sh" "$1"

export GIT_AUTHOR_NAME=Somebody GIT_AUTHOR_EMAIL=somebody@example.com
export GIT_COMMITTER_NAME=$GIT_AUTHOR_NAME GIT_COMMITTER_EMAIL=$GIT_AUTHOR_EMAIL
mkdir project
cd project
git init --quiet
# What a test leaves of a command's output here is not the project's.
echo output >>.git/info/exclude
mkdir -p .ci script/lib
cp "$root/script/release" script/
cp "$root/script/lib/"{common.sh,version} script/lib/
cp "$root/"{CMakeLists.txt,CHANGELOG.md,.gitignore} .
# stub FILE [COMMAND]: a script that notes that it was called, and runs the command.
stub() {
    # shellcheck disable=SC2016
    printf '#!/usr/bin/env bash\necho "called: $0 $*" >>build/called\n%s\n' "${2:-}" >"$1"
    chmod +x "$1"
}
stub .ci/run
stub script/package
commit() {
    git add --all
    git commit --quiet --allow-empty --message "A change"
}
commit
version=$(script/lib/version)
release() {
    mkdir -p build
    rm -f build/called
    script/release "$@"
}
# refused TEXT: script/release says so, and sets no tag.
refused() {
    refuses "$1" release
    [ -z "$(git tag)" ] || fail "what is refused ($1) has a tag"
    calls=$(cat build/called 2>/dev/null || true)
}

# What is not committed: a change, a file, and one that is only staged.
echo >>CMakeLists.txt
refused 'what is not committed cannot be released'
git checkout --quiet .
echo >stranger
refused 'stranger'
git add stranger
refused 'stranger'
git rm --quiet --force stranger
[ -z "$calls" ] || fail "it is tried or packed although something is not committed: $calls"

# No entry of the version, none with a date, an empty one, and one that is not the latest.
changes=$(cat CHANGELOG.md)
while IFS= read -r edit; do
    sed -i "$edit" CHANGELOG.md
    commit
    refused 'CHANGELOG.md'
    [ -z "$calls" ] || fail "it is tried or packed although CHANGELOG.md lacks something: $calls"
    printf '%s\n' "$changes" >CHANGELOG.md
    commit
done <<END_OF_EDITS
s/^## $version /## 0.0.1 /
s/^## $version - .*/## $version/
s/^## $version - .*/## $version - soon/
/^- /d
s/^## $version - .*/## 99.0.0 - 2030-01-01\n\n- More.\n\n&/
END_OF_EDITS

# A failing test, one that changes what is committed, and a package that cannot be made.
stub .ci/run 'exit 1'
commit
refused 'what .ci/run finds has to be put right first'
[[ $calls == *.ci/run* && $calls != *package* ]] || fail "it is packed although a test fails: $calls"
stub .ci/run 'echo >left-by-a-test'
commit
refused 'left-by-a-test'
rm left-by-a-test
[[ $calls != *package* ]] || fail "it is packed although a test has changed the project: $calls"
stub .ci/run
stub script/package 'echo "no package"; exit 1'
commit
refused 'no package'

# Nothing to refuse: tested first, packed with the arguments, and the tag is that of the commit.
stub script/package
commit
passes release --sign container.pfx
printf 'called: %s\n' '.ci/run ' 'script/package --sign container.pfx' | diff - build/called
[ "$(git rev-parse "v$version^{commit}")" = "$(git rev-parse HEAD)" ] || fail "v$version is not the tag of the commit"
[ -z "$(git status --porcelain)" ] || fail "a release changes what is committed"
refuses "version $version has been released already" release
