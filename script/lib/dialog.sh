# Opens the preferences dialog and works on it with the real mouse; source it after common.sh. The
# functions need a started slot (wine_start), build/release/vmkprefs.exe and
# build/release/tests/dialog_probe.exe.
# shellcheck shell=bash
# shellcheck source=script/lib/wine.sh
. "$(dirname "${BASH_SOURCE[0]}")/wine.sh"

vmkprefs() { "$wine" build/release/vmkprefs.exe "$@" 9>&-; }

# probe COMMAND [NUMBER]: where things are in the open dialog; see tests/support/dialog_probe.cpp.
probe() { timeout 60 "$wine" build/release/tests/dialog_probe.exe "$@" 9>&- | tr -d '\r'; }

# dialog_open ARGUMENT...: runs vmkprefs edit with the arguments in the background and waits for the dialog.
dialog_open() {
    dialog_arguments=$*
    timeout -k 5 600 "$wine" build/release/vmkprefs.exe edit "$@" 9>&- &
    dialog_pid=$!
    probe dialog >/dev/null || die "the preferences dialog did not open"
}

# dialog_end STATUS: waits for the end of vmkprefs, which has to answer that status.
dialog_end() {
    local status=0
    wait "$dialog_pid" || status=$?
    dialog_pid=
    [ "$status" -eq "$1" ] || die "vmkprefs edit $dialog_arguments ended with status $status instead of $1"
}

# dialog_kill: ends a vmkprefs that is still there; for traps.
dialog_kill() { [ -z "${dialog_pid:-}" ] || kill "$dialog_pid" 2>/dev/null || true; }

# dialog_click PROBE_COMMAND NUMBER: a real click on a page of the list or on a control, near its left end, where
# its text or its box is.
dialog_click() {
    local rectangle left top height
    rectangle=$(probe "$@") || die "there is no $* in the dialog"
    read -r left top _ height _ <<<"$rectangle"
    xdotool mousemove $((left + 7)) $((top + height / 2)) click 1
}

# dialog_control_state ID: checked or unchecked.
dialog_control_state() { probe control "$1" | cut -d' ' -f5; }

signature() { identify -format '%#' "$1"; }

# dialog_picture FILE: a picture of the dialog, once two in a row are equal: then it has painted itself.
dialog_picture() {
    local rectangle left top width height before=none now
    rectangle=$(probe dialog)
    read -r left top width height <<<"$rectangle"
    for _ in $(seq 50); do
        import -silent -window root -crop "${width}x$height+$left+$top" +repage "$1"
        now=$(signature "$1")
        [ "$now" != "$before" ] || return 0
        before=$now
        sleep 0.1
    done
    die "the dialog does not come to rest"
}

# dialog_page INDEX: shows a page by clicking its name in the list.
dialog_page() {
    dialog_click page "$1"
    probe wait-page "$1" || die "page $1 did not come up"
}

# dialog_visit_pages FOLDER [NAME...]: shows every listed page and leaves a picture of each in the folder, named by order
# and page; the names are those in the list, or the given ones where the dialog speaks another language. Sets
# dialog_pictures to their number.
dialog_visit_pages() {
    local folder=$1 index name file list previous=none now
    local names=("${@:2}")
    dialog_pictures=0
    list=$(probe pages) || die "the list of pages cannot be read"
    while read -r index name; do
        dialog_page "$index"
        name=${names[index]:-$name}
        file=$folder/$(printf '%02d-%s.png' $((index + 1)) "$(tr '[:upper:] /' '[:lower:]--' <<<"$name")")
        dialog_picture "$file"
        now=$(signature "$file")
        [ "$now" != "$previous" ] || die "page $name looks like the page before it"
        previous=$now
        dialog_pictures=$((dialog_pictures + 1))
    done <<<"$list"
}
