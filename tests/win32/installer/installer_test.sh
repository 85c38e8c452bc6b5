#!/bin/bash
# Installs, starts, upgrades and removes the program under Wine, in a prefix of its own:
#
#   installer_test.sh WINE-RUN FOLDER VERSION BLATTWART DATENBANK-ANLEGEN CADHOST ADOSTANDIN
set -u
wine_run=$1 folder=$2 version=$3 program=$4 maker=$5 cadhost=$6 adostandin=$7
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
make_msi=$here/../../../installer/make-msi.sh
icon=$(dirname "$program")/icons/Blattwart.ico
help=$(dirname "$program")/Help/Tarvix.chm
session=$folder/session
drive=$session/prefix/drive_c
data="$drive/ProgramData/Ormeda/Tarvix 2.1"
key='HKLM\SOFTWARE\Ormeda\Tarvix 2.1'
uninstall='HKLM\SOFTWARE\Microsoft\Windows\CurrentVersion\Uninstall'
faults=0

fault() { printf 'FAULT: %s\n' "$*"; faults=$((faults + 1)); }
check() { local what=$1; shift; "$@" >"$folder/check.log" 2>&1 || { fault "$what"; cat "$folder/check.log"; }; }
refuse() { local what=$1; shift; if "$@" >/dev/null 2>&1; then fault "$what"; fi; }
wine() { "$wine_run" --in "$session" "$@"; }
windows_path() { printf 'Z:%s' "${1//\//\\}"; }
msi() { local mode=$1 file; file=$(windows_path "$folder/$2.msi"); shift 2; wine msiexec "$mode" "$file" /qn "$@"; }
value() { wine reg query "$1" /v "$2" | tr -d '\r' | sed -nE "s/^ +$2 +REG_[A-Z]+ +//p"; }
is_value() { [ "$(value "$1" "$2")" = "$3" ]; }
products() { wine reg query "$uninstall" /s | tr -d '\r' | sed -nE 's/^ +DisplayVersion +REG_SZ +//p' | xargs; }
are_products() { [ "$(products)" = "$*" ]; }
files() { (cd "$drive" && find . \( -path './windows/temp' -o -path './users/*/Temp' \) -prune -o -print | sort); }
start_menu_entry() { find "$drive" -name Blattwart.lnk | grep -q 'Start Menu/Programs/Blattwart.lnk'; }
until_true() { local try; for try in $(seq 150); do "$@" && return; sleep 0.2; done; return 1; }
window() { xdotool search --onlyvisible --name '^Blattwart$' 2>/dev/null | head -n 1; }
has_window() { [ -n "$(window)" ]; }

finish() { "$wine_run" --down "$session"; rm -rf "$folder"; }

prepare() {
    rm -rf "$folder"
    mkdir -p "$folder"
    trap finish EXIT
    "$wine_run" --up "$session" || exit 1
    DISPLAY=$(cat "$session/display")
    export DISPLAY
    next=${version%.*}.$((${version##*.} + 1))
    "$make_msi" x64 "$version" "$program" "$maker" "$help" "$icon" "$folder/this.msi" || exit 1
    "$make_msi" x64 "$next" "$program" "$maker" "$help" "$icon" "$folder/next.msi" || exit 1
    mkdir -p "$drive/Vorlagen" "$drive/windows/Installer"
    touch "$drive/Vorlagen/Grundriß.dwt"
    wine "$cadhost" /register /templates 'C:\Vorlagen'
}

check_installed() {
    local to=$1
    check "the program is not there" cmp "$to/Blattwart.exe" "$program"
    check "the program beside it is not there" cmp "$to/Datenbank anlegen.exe" "$maker"
    check "the help is not there" cmp "$to/Help/Tarvix.chm" "$help"
    check "the library is not there" test -d "$to/Bibliothek/Vorlagen"
    check "the database is not there" test -s "$data/Tarvix.mdb"
    check "there is no start-menu entry" start_menu_entry
}

# Who presses Alt+F4 while the program is still reading presses it again.
closes() {
    timeout 5 xdotool windowactivate --sync "$(window)" key alt+F4
    sleep 0.5
    ! has_window
}

# The window comes up, says nothing instead, and ends by Alt+F4 as one ends it.
start_installed() {
    local running
    wine "$cadhost" /templates 'C:\Vorlagen' &
    check "the host does not come up" wine "$cadhost" /wait
    wine 'C:\Program Files\Blattwart\Blattwart.exe' &
    running=$!
    if ! until_true has_window; then
        fault "the program shows no window"
    elif ! until_true closes; then
        fault "the program cannot be closed"
    fi
    ! has_window || wine taskkill /f /im Blattwart.exe >/dev/null
    wait $running || fault "the program ends with $?"
    check "the program keeps no settings" wine reg query 'HKCU\Software\Blattwart\Settings'
    wine taskkill /f /im cadhost.exe >/dev/null
}

# Without a provider the installation is the same, but for the database; it leaves nothing.
life_without_provider() {
    local before
    before=$(files)
    check "cannot be installed without a provider" msi /i this
    check "the program is not there without a provider" test -f "$drive/Program Files/Blattwart/Blattwart.exe"
    refuse "a database is there without a provider" test -e "$data/Tarvix.mdb"
    check "cannot be removed without a provider" msi /x this
    check "something stays without a provider" diff <(files) <(echo "$before")
}

# From the first installation to the last removal, in the folder for programs.
usual_life() {
    local before
    wine regsvr32 /s "$(windows_path "$adostandin")"
    before=$(files)
    check "cannot be installed" msi /i this
    check_installed "$drive/Program Files/Blattwart"
    check "DefDB is not the database" is_value "$key" DefDB 'C:\ProgramData\Ormeda\Tarvix 2.1\Tarvix.mdb'
    check "the version is not listed" are_products "$version"
    check "the publisher is not listed" grep -q 'Publisher .*Ormeda' <(wine reg query "$uninstall" /s)
    start_installed

    check "cannot be upgraded" msi /i next
    check_installed "$drive/Program Files/Blattwart"
    check "the older version is still listed" are_products "$next"
    refuse "an older version can be installed over it" msi /i this

    check "cannot be removed" msi /x next
    refuse "the key stays" wine reg query 'HKLM\SOFTWARE\Ormeda'
    check "is still listed" are_products ""
    check "the settings are gone" wine reg query 'HKCU\Software\Blattwart\Settings'
    printf '%s\n' ./ProgramData/Ormeda{,/Tarvix\ 2.1{,/Tarvix.mdb}} >"$folder/stays"
    check "other files stay than the database" diff <(files) <(sort - "$folder/stays" <<<"$before")
}

# An office with folders and data of its own.
office_life() {
    local to="$drive/Büro/Blattwart"
    echo geändert >"$data/Tarvix.mdb"
    check "cannot be installed into another folder" msi /i this 'INSTALLDIR=C:\Büro\Blattwart'
    check_installed "$to"
    echo Vorlage >"$to/Bibliothek/Vorlagen/Büro.dwt"
    wine reg add "$key" /v DefDB /d 'S:\Zeichnen\Tarvix.mdb' /f >/dev/null
    wine reg add "$key" /v LM_Beenden /d 0 /f >/dev/null

    check "cannot be upgraded in another folder" msi /i next
    check_installed "$to"
    check "the upgrade changes DefDB" is_value "$key" DefDB 'S:\Zeichnen\Tarvix.mdb'
    refuse "the upgrade goes elsewhere" test -e "$drive/Program Files/Blattwart"
    check "cannot be removed from another folder" msi /x next
    check "the removal changes DefDB" is_value "$key" DefDB 'S:\Zeichnen\Tarvix.mdb'
    check "the removal changes settings" is_value "$key" LM_Beenden 0
    check "the database is changed" grep -qx geändert "$data/Tarvix.mdb"
    check "the library is changed" grep -qx Vorlage "$to/Bibliothek/Vorlagen/Büro.dwt"
    check "more stays than the library" diff <(find "$to" -type f) <(echo "$to/Bibliothek/Vorlagen/Büro.dwt")
    refuse "the start-menu entry stays" start_menu_entry
}

prepare
life_without_provider
usual_life
office_life
[ "$faults" = 0 ] && echo "Installed, started, upgraded and removed."
exit "$faults"
