#!/bin/bash
# Runs Windows programs under Wine, with a display and a window manager, in a prefix of their own.
#
#   wine-run.sh PROGRAM ARGS...            fresh prefix and display for this one program
#   wine-run.sh --up SESSION               fresh prefix and display that stay, kept in the folder SESSION
#   wine-run.sh --in SESSION PROGRAM...    runs the program in the session; on its own when there is none
#   wine-run.sh --down SESSION             ends the session and all that runs in it
#   wine-run.sh --resume SESSION           as --up, but with the prefix that --pause left there
#   wine-run.sh --pause SESSION            as --down, but keeps the prefix
#
# Prints what the program prints and exits with its exit code; 124 when it took longer than WINE_RUN_SECONDS (100).
# A template of the prefix is made once and kept in WINE_TEMPLATE (build/wine-template). KEEP_DISPLAY=1 uses the
# display that is there, so that one can look at the program.
set -u
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$(cd "$here/.." && pwd)/build
template=${WINE_TEMPLATE:-$build/wine-template}
wine=/usr/lib/wine/wine64

# Wine's own output is noise; helpers for .NET and HTML would ask for downloads.
export WINEDEBUG=${WINEDEBUG:--all} WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe=d" LANG=de_DE.UTF-8
unset LC_ALL

quiet() { timeout --kill-after=5 60 "$@" </dev/null >/dev/null 2>&1; }

make_template() {
    local new=$template.new
    rm -rf "$new"
    mkdir -p "$(dirname "$new")"
    (
        export WINEPREFIX=$new
        unset DISPLAY
        quiet $wine wineboot -i || exit 1
        # A crash must end the program at once with an exit code: no dialog, no debugger.
        quiet $wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f
        quiet $wine reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\AeDebug' /v Debugger /d false /f
        quiet wineserver -k
        quiet wineserver -w
    ) || return 1
    mv "$new" "$template"
}

ensure_template() {
    mkdir -p "$(dirname "$template")"
    (
        flock 9
        [ -f "$template/system.reg" ] || make_template
    ) 9>"$template.lock"
}

start_display() {
    local session=$1
    if [ -n "${KEEP_DISPLAY:-}" ]; then echo "$DISPLAY" >"$session/display"; return; fi
    Xvfb -displayfd 5 -screen 0 1280x1024x24 -nolisten tcp 5>"$session/number" </dev/null >/dev/null 2>&1 &
    echo $! >>"$session/pids"
    local i
    for i in $(seq 200); do
        [ -s "$session/number" ] && break
        sleep 0.05
    done
    [ -s "$session/number" ] || return 1
    echo ":$(cat "$session/number")" >"$session/display"
    # Without a window manager every dialog costs two seconds.
    DISPLAY=$(cat "$session/display") openbox --sm-disable </dev/null >/dev/null 2>&1 &
    echo $! >>"$session/pids"
}

enter() {
    WINEPREFIX=$1/prefix
    DISPLAY=$(cat "$1/display")
    export WINEPREFIX DISPLAY
}

make_prefix() {
    local prefix=$1
    ensure_template || return 1
    rm -rf "$prefix.new"
    cp -al "$template" "$prefix.new"
    # Wine writes its registry files in place, so these must not be links.
    cp --remove-destination "$template"/*.reg "$prefix.new/"
    mv "$prefix.new" "$prefix"
}

up() {
    down "$1"
    resume "$1"
}

resume() {
    local session=$1
    pause "$session"
    mkdir -p "$session"
    [ -d "$session/prefix" ] || make_prefix "$session/prefix" ||
        { echo "wine-run: the prefix cannot be made" >&2; return 1; }
    start_display "$session" || { echo "wine-run: no display" >&2; return 1; }
    enter "$session"
    # What Wine starts first keeps the output open that it was given.
    quiet wineserver -p
    quiet $wine wineboot
    touch "$session/ready"
}

run_in() {
    local session=$1
    shift
    (
        enter "$session"
        # The first window starts Wine's desktop, which outlives the program by a second and would keep a pipe open.
        output=$(mktemp "$session/output-XXXXXX")
        timeout --kill-after=5 "${WINE_RUN_SECONDS:-100}" $wine "$@" </dev/null >"$output" 2>&1
        result=$?
        cat "$output"
        rm -f "$output"
        exit $result
    )
}

pause() {
    local session=$1 pid
    [ -d "$session/prefix" ] || return 0
    (
        export WINEPREFIX=$session/prefix
        quiet wineserver -k
        quiet wineserver -w
    )
    # The numbers may be old: only what is still ours is ended.
    for pid in $(cat "$session/pids" 2>/dev/null); do
        case $(cat "/proc/$pid/comm" 2>/dev/null) in Xvfb | openbox) kill "$pid" 2>/dev/null ;; esac
    done
    rm -f "$session/pids" "$session/number" "$session/display" "$session/ready"
}

down() {
    pause "$1"
    rm -rf "$1"
}

run_alone() {
    mkdir -p "$build"
    session=$(mktemp -d "$build/wine-XXXXXX")
    trap 'down "$session"' EXIT
    trap 'exit 130' INT TERM
    up "$session" || return
    # In the background, so that the trap does not wait for the program.
    run_in "$session" "$@" &
    wait $!
}

case "${1:-}" in
    --up) up "$2" ;;
    --down) down "$2" ;;
    --resume) resume "$2" ;;
    --pause) pause "$2" ;;
    --in)
        session=$2
        shift 2
        if [ -f "$session/ready" ]; then run_in "$session" "$@"; else run_alone "$@"; fi
        ;;
    "" | -*) sed -n '2,14s/^# \{0,1\}//p' "${BASH_SOURCE[0]}" >&2; exit 2 ;;
    *) run_alone "$@" ;;
esac
