# Private Wine prefixes with a virtual display each; source it, do not run it.
# shellcheck shell=bash
#
# A slot is build/wine/N: a prefix and an Xvfb that one process uses at a time, so that tests running side by side
# never fight for the focus, the mouse or the registry. The user's own prefix is never touched.

wine_slots=${VMK_WINE_SLOTS:-$(nproc)}
wine_dir=${VMK_WINE_DIR:-$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)/build/wine}
# To be counted up with every change of what a new prefix holds.
wine_prefix_version=3

# The Debian package has no wine64 on the path; /usr/bin/wine grumbles about the missing 32-bit half.
wine_binary() {
    command -v wine64 || command -v /usr/lib/wine/wine64 || command -v wine || {
        echo "error: no wine found; run script/bootstrap" >&2
        return 1
    }
}

# wine_environment SLOT: exports what Wine needs to run in the slot.
wine_environment() {
    VMK_WINE_LOADER=$(wine_binary)
    export VMK_WINE_LOADER
    wine=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/wine
    export WINEPREFIX="$wine_dir/$1/prefix"
    export WINEARCH=win64
    export WINEDLLOVERRIDES="mscoree,mshtml,winemenubuilder.exe${VMK_KEEP_SESSION:+,winedbg.exe}="
    export WINEDEBUG="${WINEDEBUG--all}"
    if [ -f "$wine_dir/$1/display" ]; then
        DISPLAY=":$(cat "$wine_dir/$1/display")"
        export DISPLAY
    fi
}

# wine_start SLOT: makes the prefix and starts the display unless they are there. The caller holds the slot's lock.
wine_start() {
    wine_start_display "$1"
    wine_make_prefix "$1"
    # Without a window manager Wine would wait two seconds for one at each modal dialog.
    wine_managed "$1" N
    wine_resolution "$1" "${VMK_DPI:-96}"
}

# wine_start_display SLOT: starts the slot's virtual display unless it runs.
wine_start_display() {
    local slot_dir="$wine_dir/$1"
    mkdir -p "$slot_dir"
    if [ -f "$slot_dir/xvfb.pid" ] && kill -0 "$(cat "$slot_dir/xvfb.pid")" 2>/dev/null; then
        return
    fi
    rm -f "$slot_dir/display"
    : >"$slot_dir/display.new"
    setsid Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp \
        3>"$slot_dir/display.new" >"$slot_dir/xvfb.log" 2>&1 </dev/null 9>&- &
    echo $! >"$slot_dir/xvfb.pid"
    for _ in $(seq 200); do
        [ -s "$slot_dir/display.new" ] && break
        sleep 0.05
    done
    [ -s "$slot_dir/display.new" ] || {
        echo "error: Xvfb did not start; see $slot_dir/xvfb.log" >&2
        return 1
    }
    mv "$slot_dir/display.new" "$slot_dir/display"
}

# wine_make_prefix SLOT: makes the prefix unless it is there, and exports what Wine needs to run in it. A prefix that was
# made in another way than this one is made anew.
wine_make_prefix() {
    local slot_dir="$wine_dir/$1"
    mkdir -p "$slot_dir"
    wine_environment "$1"
    [ "$(cat "$slot_dir/ready" 2>/dev/null)" != "$wine_prefix_version" ] || return 0
    [ ! -d "$slot_dir/prefix" ] || wine_end_session "$1"
    rm -rf "$slot_dir/prefix" "$slot_dir/managed" "$slot_dir/dpi"
    timeout 120 "$wine" wineboot -i >"$slot_dir/wineboot.log" 2>&1 9>&- || true
    # The font of the dialog on Windows, or what has its widths, and one for the characters that it lacks.
    cp /usr/share/wine/fonts/tahoma.ttf /usr/share/wine/fonts/tahomabd.ttf "$slot_dir/prefix/drive_c/windows/Fonts/"
    wine_registry "$1" <<END
[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]
"ShowCrashDialog"=dword:00000000
[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontSubstitutes]
"MS Shell Dlg"="Tahoma"
"MS Shell Dlg 2"="Tahoma"
[HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink]
"Tahoma"=hex(7):$(wine_strings 'DroidSansFallbackFull.ttf,Droid Sans Fallback')
"Tahoma Bold"=hex(7):$(wine_strings 'DroidSansFallbackFull.ttf,Droid Sans Fallback')
END
    echo "$wine_prefix_version" >"$slot_dir/ready"
}

# wine_strings STRING...: strings as a value of the registry that holds several.
wine_strings() {
    printf '%s\0' "$@" '' | od -An -v -tx1 | tr -d '\n' | sed 's/^ //; s/ /,/g'
}

# wine_registry SLOT: writes the keys and values of the standard input, which has the form of a file of the registry editor.
wine_registry() {
    local slot_dir="$wine_dir/$1"
    { printf 'REGEDIT4\n\n' && cat; } >"$slot_dir/values.reg"
    timeout 60 "$wine" regedit /S "Z:${slot_dir//\//\\}\\values.reg" >>"$slot_dir/wineboot.log" 2>&1 9>&-
}

# wine_managed SLOT Y|N: whether windows of the prefix are left to a window manager.
wine_managed() {
    local slot_dir="$wine_dir/$1"
    [ "$(cat "$slot_dir/managed" 2>/dev/null)" != "$2" ] || return 0
    timeout 60 "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /d "$2" /f \
        >>"$slot_dir/wineboot.log" 2>&1 9>&-
    echo "$2" >"$slot_dir/managed"
}

# wine_resolution SLOT DPI: the resolution of the slot's screen. A session learns it when it begins.
wine_resolution() {
    local slot_dir="$wine_dir/$1"
    [ "$(cat "$slot_dir/dpi" 2>/dev/null || echo 96)" != "$2" ] || return 0
    wine_registry "$1" <<END
[HKEY_CURRENT_USER\\Control Panel\\Desktop]
"LogPixels"=dword:$(printf '%08x' "$2")
[HKEY_CURRENT_USER\\Software\\Wine\\Fonts]
"LogPixels"=dword:$(printf '%08x' "$2")
END
    wine_end_session "$1"
    echo "$2" >"$slot_dir/dpi"
}

# wine_acquire: locks a free slot (file descriptor 9, until this process ends), waiting for the first when all are
# taken; sets wine_slot.
wine_acquire() {
    mkdir -p "$wine_dir"
    local n
    for ((n = 1; n <= wine_slots; n++)); do
        exec 9>"$wine_dir/$n.lock"
        if flock -n 9; then
            export wine_slot=$n
            return
        fi
    done
    exec 9>"$wine_dir/1.lock"
    flock 9
    export wine_slot=1
}

# wine_keep_session SLOT: has a program wait in the slot for a while, unless one does. The session ends with its last
# program, and to begin a new one takes longer than many a test.
wine_keep_session() {
    local slot_dir="$wine_dir/$1"
    ! kill -0 "$(cat "$slot_dir/keeper.pid" 2>/dev/null)" 2>/dev/null || return 0
    setsid timeout 1800 "$wine" ping -n 1800 127.0.0.1 >/dev/null 2>&1 </dev/null 9>&- &
    echo $! >"$slot_dir/keeper.pid"
}

# wine_end_session SLOT: ends the slot's server, and every program with it.
wine_end_session() {
    local prefix="$wine_dir/$1/prefix" server
    server=$(command -v wineserver || echo /usr/lib/wine/wineserver)
    [ ! -d "$prefix" ] || WINEPREFIX="$prefix" "$server" -k >/dev/null 2>&1 || true
}

# wine_stop SLOT: ends the slot's server and display; the prefix stays for the next run.
wine_stop() {
    local slot_dir="$wine_dir/$1"
    wine_end_session "$1"
    [ ! -f "$slot_dir/xvfb.pid" ] || kill "$(cat "$slot_dir/xvfb.pid")" 2>/dev/null || true
    rm -f "$slot_dir/xvfb.pid" "$slot_dir/display"
}

# wine_stop_all: ends the servers and displays of all slots.
wine_stop_all() {
    local slot_dir
    for slot_dir in "$wine_dir"/*/; do
        wine_stop "$(basename "$slot_dir")"
    done
}
