# shellcheck shell=bash
# The pictures of the documents, taken by the keyboard from the demonstration.

# take_picture_of WINDOW NAME: what stands on the screen within the window's frame, menus and message boxes included.
take_picture_of() {
    local frame area
    settle "$1"
    frame=$(xwininfo -tree -id "$1" | sed -nE 's/.*Parent window id: (0x[0-9a-f]+).*/\1/p')
    area=$(xwininfo -id "$frame" | awk '/Absolute upper-left X/ {x = $NF} /Absolute upper-left Y/ {y = $NF}
        /Width:/ {w = $NF} /Height:/ {h = $NF} END {print w "x" h "+" x "+" y}')
    import -window root png:- | convert - -crop "$area" +repage -strip +dither -colors 200 "PNG8:docs/pictures/$2.png"
    echo "docs/pictures/$2.png"
}

take_window_picture() { take_picture_of "$window" "$1"; }

# The dialog or message box that comes to the front.
take_dialog_picture() {
    until_true 20 dialog_is_open
    take_picture_of "$(xdotool getactivewindow)" "$1"
}

is_open() { [ "$(xdotool getactivewindow)" = "$1" ]; }
another_is_open() { ! is_open "$1"; }
dialog_is_open() { another_is_open "$window"; }

keys() { xdotool key --delay 200 "$@"; }

# A wider tree, in which the names of the samples are seen whole.
widen_tree() {
    xdotool windowmove --sync "$window" 140 230 windowsize --sync "$window" 1000 540
    xdotool mousemove --window "$window" 174 300 mousedown 1
    xdotool mousemove --window "$window" 190 300 mousemove --window "$window" 222 300 mouseup 1
}

take_list_pictures() {
    keys Home Down
    take_window_picture blattwart
    keys alt+a g
    take_window_picture grosse-symbole
    keys alt+a d Home
    take_window_picture liste-zeichnungen
    keys Down Down
    take_window_picture layout-details
    keys End Up Up Up
    take_window_picture vorlage-details
    keys Left
    take_window_picture liste-vorlagen
}

take_menu_pictures() {
    local menu
    keys Home Down Down
    for menu in d:datei b:bearbeiten a:ansicht l:layout u:autocad f:fenster h:hilfe; do
        settle "$window"
        keys "alt+${menu%%:*}"
        # Its first command is disabled and would hide behind the mark.
        [ "$menu" = u:autocad ] && keys Down
        take_window_picture "menue-${menu#*:}"
        keys Escape Escape
    done
}

# take_context_menu NAME KEYS...: of the node that the keys go to.
take_context_menu() {
    local name=$1
    shift
    keys "$@"
    settle "$window"
    keys shift+F10
    take_window_picture "kontextmenue-$name"
    keys Escape
}

take_dialog_pictures() {
    keys Home Down Down F2
    take_window_picture umbenennen
    xdotool type --delay 100 Leer
    keys Return
    take_window_picture umbenennen-abgelehnt
    keys Return
    settle "$window"
    keys ctrl+c
    take_dialog_picture kopieren
    keys Escape Home Down
    settle "$window"
    keys Tab ctrl+a F2
    until_true 20 dialog_is_open
    xdotool type --delay 100 Blatt
    take_dialog_picture umbenennen-mehrere
    keys Escape Tab Home Down Down
    settle "$window"
    keys alt+l v
    take_window_picture vorlage-benennen
    keys Escape
    settle "$window"
    keys alt+h o
    take_dialog_picture info
    keys Escape
}

# The plan list, and layouts in it about to be renamed by a pattern.
take_plan_pictures() {
    local list
    keys Home Down Down
    settle "$window"
    keys ctrl+l
    until_true 20 dialog_is_open
    list=$(xdotool getactivewindow)
    xdotool windowsize --sync "$list" 1000 400
    take_picture_of "$list" planliste
    keys ctrl+a F2
    until_true 20 another_is_open "$list"
    keys alt+m
    xdotool type --delay 100 'A-<Nr> <Name>'
    take_dialog_picture planliste-umbenennen
    keys Escape
    until_true 20 is_open "$list"
    take_plan_dialogs "$list"
    keys Escape
    settle "$window"
}

# The dialogs of the plan list, whose window this is: tabs moved, a page setup about to be carried over, PDF
# files about to be made.
take_plan_dialogs() {
    local list=$1
    keys Home Down shift+Down alt+Up
    until_true 20 another_is_open "$list"
    take_dialog_picture planliste-reihenfolge
    keys Escape
    until_true 20 is_open "$list"
    keys Home shift+Down shift+Down alt+s
    until_true 20 another_is_open "$list"
    xdotool windowsize --sync "$(xdotool getactivewindow)" 1000 420
    take_dialog_picture planliste-seiteneinrichtung
    keys Escape
    until_true 20 is_open "$list"
    keys alt+l ctrl+a ctrl+p
    until_true 20 another_is_open "$list"
    take_dialog_picture planliste-pdf
    keys Escape
    until_true 20 is_open "$list"
}

# The host ends, and the program asks for it; "Nein" ends the program too.
take_start_picture() {
    settle "$window"
    xdotool search --onlyvisible --name '^AutoCAD' windowactivate --sync
    sleep 1  # the program looks twice a second whether it is in front
    keys alt+F4
    xdotool windowactivate --sync "$window"
    until_true 20 xdotool search --onlyvisible --name 'AutoCAD ist nicht aktiv' >/dev/null
    take_dialog_picture autocad-starten
    keys n
}

take_document_pictures() {
    local window
    prepare_pictures || return
    widen_tree
    take_list_pictures
    take_menu_pictures
    take_context_menu zeichnungen Home
    take_context_menu layouts Home Down Down
    take_context_menu vorlagen End
    take_dialog_pictures
    take_plan_pictures
    take_start_picture
}

do_pictures() {
    unset DISPLAY
    mkdir -p docs/pictures
    demonstrate take_document_pictures
}
