# Shared by the tests that try a package on a Windows that nobody has used; source it with the test's name and work folder.
# Has what tests/script/support.sh has, and the dialog's functions of script/lib/dialog.sh.
# shellcheck shell=bash
# shellcheck source=tests/script/support.sh
. "$(dirname "${BASH_SOURCE[0]}")/../script/support.sh" "$2"
die() { fail "$@"; }
# shellcheck source=script/lib/dialog.sh
. "$root/script/lib/dialog.sh"
export LC_ALL=C.UTF-8

slot=package-$1
mkdir -p "$wine_dir"
exec 9>"$wine_dir/$slot.lock"
flock 9
trap 'dialog_kill; wine_stop "$slot"; rm -rf "$work" "${wine_dir:?}/$slot/prefix" "$wine_dir/$slot/ready"' EXIT

# clean_windows: a prefix as it is made, in the test's slot. Making one takes long, so it is a copy.
clean_windows() {
    local pristine=$wine_dir/package-pristine
    (
        exec 8>"$pristine.lock"
        flock 8
        [ "$(cat "$pristine/ready" 2>/dev/null)" = "$wine_prefix_version" ] || {
            wine_start package-pristine
            wine_stop package-pristine
        } 8>&-
    )
    rm -rf "${wine_dir:?}/$slot/prefix"
    mkdir -p "$wine_dir/$slot"
    cp -a --reflink=auto "$pristine/prefix" "$pristine/ready" "$pristine/managed" "$wine_dir/$slot/"
    rm -f "$wine_dir/$slot/dpi"
    wine_start "$slot"
    wine_environment "$slot"
}

# in_windows PATH: how Windows calls it.
in_windows() { printf 'Z:%s' "${1//\//\\}"; }

# windows PROGRAM [ARGUMENT...]: runs it there.
windows() {
    local status=0
    timeout -k 5 60 "$wine" "$@" 9>&- | tr -d '\r' || status=$?
    [ "$status" -eq 0 ] || echo "exit status $status"
    return "$status"
}

probe() { timeout 60 "$wine" "$root/build/release/tests/dialog_probe.exe" "$@" 9>&- | tr -d '\r'; }

# opened PROGRAM [ARGUMENT...]: runs a host in the background, with its output in the file host, and waits for its dialog.
opened() {
    dialog_arguments=$*
    timeout -k 5 60 "$wine" "$@" >host 2>&1 9>&- &
    dialog_pid=$!
    probe dialog >output || fail "no dialog comes from $*: $(cat host)"
}

# ended: waits for the end of the host, which has to be a good one.
ended() {
    wait "$dialog_pid" || fail "$dialog_arguments has failed: $(cat host)"
    dialog_pid=
}

# use_dialog: what a user does: opens the page of watermarks, has them printed, and presses OK.
use_dialog() {
    local page=6 box=309 ok=1
    dialog_page "$page"
    dialog_click control "$box"
    for _ in $(seq 100); do
        [ "$(dialog_control_state "$box")" != checked ] || break
        sleep 0.05
    done
    dialog_click control "$ok"
    ended
}

# snapshot NAME: what is on the disk and in the registry, for everybody and for the user: NAME.files, NAME.registry; but for
# what the system notes about where the installers of what is installed have been, the names of its copies of them, and
# what is Wine's own.
snapshot() {
    local hive
    local copy='s#(Installer[\\/]+)[0-9a-f]+\.msi#\1copy.msi#'
    (cd "$WINEPREFIX/drive_c" && find . ! -path './windows/temp/*' | sed -E "$copy" | sort) >"$1.files"
    for hive in 'HKEY_LOCAL_MACHINE\Software' 'HKEY_CURRENT_USER\Software'; do
        windows regedit /E "$(in_windows "$PWD/exported.reg")" "$hive" >/dev/null
        # One line for each key and each value with its key.
        iconv -f UTF-16 -t UTF-8 exported.reg | tr -d '\r' | sed -e ':a' -e '/,\\$/{N;s/\\\n *//;ta' -e '}' |
            awk '/^\[/ { key = $0 } NF && key !~ /\\SourceList|\\Wine\\/ { print key ($0 == key ? "" : " " $0) }'
    done | sed -E "$copy" | sort >"$1.registry"
}

# the_same ONE OTHER: two snapshots do not differ.
the_same() {
    diff "$1.files" "$2.files" >output || fail "$2 has other files than $1: $(cat output)"
    diff "$1.registry" "$2.registry" >output || fail "$2 has another registry than $1: $(cat output)"
}
