# shellcheck shell=bash
# The program on the demonstration host under Wine, and pictures of it.

# The session's prefix stays: what the user sets is there again at the next start.
session="$PWD/build/run"

# The samples lie on the prefix's drive C:, so that the program shows short paths.
samples='C:\Beispiele'
sample_drawings=(
    'Zeichnungen\Erdgeschoß Süd.dwg' 'Zeichnungen\Schnitt A-A.dwg' 'Zeichnungen\Nur Modell.dwg'
    'Zeichnungen\Werkplan Obergeschoß.dxf' 'Haus 1\Plan.dwg' 'Haus 2\Plan.dwg'
)

cadhost=build/win64/demo/cadhost/cadhost.exe

in_session() { WINE_RUN_SECONDS=0 tools/wine-run.sh --in "$session" "$@"; }

build_demonstration() { build_preset win64 Blattwart DatenbankAnlegen cadhost adostandin; }

make_samples() {
    local stamp=build/samples.stamp
    if [ -n "$(find demo/samples -name '*.py' -newer "$stamp" 2>&1)" ]; then
        say "Writing the sample drawings"
        { /usr/bin/python3 demo/samples/make_samples.py build/samples && touch "$stamp"; } || return
    fi
}

# Makes the database in the session, as an office makes its own, and gives it the rows of the demonstration.
make_database() {
    local file=build/samples/Tarvix.mdb rows=demo/samples/Tarvix.sql
    [ "$file" -nt "$rows" ] && return
    rm -f "$file"
    in_session 'build/win64/src/win32/Datenbank anlegen.exe' /still "$samples\\Tarvix.mdb" && sqlite3 "$file" <"$rows"
}

start_session() {
    local library="$PWD/build/win64/demo/adodb/adostandin.dll"
    KEEP_DISPLAY=${DISPLAY:+1} tools/wine-run.sh --resume "$session" || return
    ln -sfn "$PWD/build/samples" "$session/prefix/drive_c/Beispiele"
    in_session "$cadhost" /register /templates "$samples\\Vorlagen" &&
        { [ -z "${beside:-}" ] || in_session "$cadhost" /release "$beside" /register /templates "$samples\\Vorlagen"; } &&
        in_session regsvr32 /s "Z:${library//\//\\}" && make_database &&
        in_session reg add 'HKLM\SOFTWARE\Ormeda\Tarvix 2.1' /v DefDB /d "$samples\\Tarvix.mdb" /f >/dev/null
}

end_session() {
    trap '' INT TERM
    tools/wine-run.sh --pause "$session"
    wait
}

# until_true SECONDS COMMAND...: repeats the command until it succeeds.
until_true() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.2
    done
}

# The window stands there and its tree shows the pictures of drawings, layouts and templates, by their colours.
tree_is_filled() {
    local window colour tree="$session/tree.txt"
    window=$(xdotool search --onlyvisible --name '^Blattwart$' 2>/dev/null | head -n 1)
    [ -n "$window" ] && import -window "$window" build/blattwart.png 2>/dev/null || return
    convert build/blattwart.png -gravity west -crop 30%x70%+0+0 txt:- >"$tree"
    for colour in '#2B78B8' '#26937F' '#D99A1F'; do
        [ "$(grep -c "$colour" "$tree")" -ge 20 ] || return
    done
}

# settle WINDOW: waits until its picture stays the same for a second, as a list needs a moment to be read.
settle() {
    local last='' now
    for _ in $(seq 20); do
        now=$(import -window "$1" rgb:- | md5sum)
        [ "$now" = "$last" ] && return
        last=$now
        sleep 1
    done
    return 1
}

# A picture of the window for each kind of list: NAME KEYS... goes to the node by the keyboard.
take_list_picture() {
    local window=$1 picture="build/blattwart-$2.png"
    shift 2
    xdotool key --window "$window" --delay 150 "$@"
    settle "$window" && import -window "$window" "$picture" && echo "$PWD/$picture"
}

# Waits for the filled tree and gives the window its size for pictures; its number is in $window.
prepare_pictures() {
    DISPLAY=$(cat "$session/display")
    export DISPLAY
    if ! until_true 60 tree_is_filled; then
        import -window root build/blattwart.png
        say "The tree was not filled within a minute; the screen is in build/blattwart.png"
        return 1
    fi
    window=$(xdotool search --onlyvisible --name '^Blattwart$' | head -n 1)
    xdotool windowmove "$window" 40 40 windowsize --sync "$window" 900 520
    xdotool windowactivate --sync "$window"
    xdotool key --delay 150 alt+a d
}

take_pictures() {
    local window
    prepare_pictures || return
    echo "$PWD/build/blattwart.png"
    take_list_picture "$window" zeichnungen Home &&
        take_list_picture "$window" layouts Down &&
        take_list_picture "$window" layout-details Down &&
        take_list_picture "$window" vorlage-details End Up Up Up &&
        take_list_picture "$window" vorlagen Left
}

# Starts the demonstration; without a display of the user's `then` is run.
demonstrate() {
    local then=$1
    ready "${build_packages[@]}"
    local drawing drawings=()
    mkdir -p "$session"
    exec 9>"$session/lock"
    flock -n 9 || fail "the demonstration is running already"
    if ! { build_demonstration && make_samples; }; then fail "the demonstration cannot be built"; fi
    for drawing in "${sample_drawings[@]}"; do drawings+=("$samples\\$drawing"); done

    trap end_session EXIT
    trap 'exit 130' INT TERM
    say "Starting the demonstration host"
    start_session 9>&- || fail "Wine or the demonstration host cannot be set up"
    in_session "$cadhost" /templates "$samples\\Vorlagen" /do 'activate Erdgeschoß Süd.dwg' "${drawings[@]}" 9>&- &
    # Another release beside it, as users have it.
    [ -z "${beside:-}" ] || in_session "$cadhost" /release "$beside" /novba /templates "$samples\\Vorlagen" \
        "$samples\\Haus 1\\Plan.dwg" "$samples\\Zeichnungen\\Erdgeschoß Süd.dwg" 9>&- &
    in_session "$cadhost" /wait 9>&- || fail "the demonstration host does not come up"

    say "Starting Blattwart"
    in_session build/win64/src/win32/Blattwart.exe 9>&- &
    if [ -n "${DISPLAY:-}" ]; then wait $!; else "$then"; fi
}

# do_run [RELEASE]
do_run() {
    local beside=${1:-}
    demonstrate take_pictures
}
