# shellcheck shell=bash
# The programs that are shipped: their checks, their installer and their zip.

program=build/win32/src/win32/Blattwart.exe
maker='build/win32/src/win32/Datenbank anlegen.exe'
help=build/win32/src/win32/Help/Tarvix.chm

version() { sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/win32/CMakeCache.txt; }

check_program() {
    say "Checking the programs that are shipped"
    installer/check-program.sh "$program" "$(version)" && installer/check-program.sh "$maker" "$(version)"
}

# The user's part without its pictures, as Windows' editor shows it right.
plain_readme() { sed '/^ *!\[/d' LIESMICH.md | cat -s | sed -e '1s/^/\xEF\xBB\xBF/' -e 's/$/\r/'; }

# make_release FOLDER NAME: the installer, and the zip, in which the program finds all it needs beside itself or
# makes it there.
make_release() {
    local folder=$1 name=$2 portable="$1/$2"
    mkdir -p "$portable/Help" "$portable/Bibliothek/Vorlagen" || return
    cp "$program" "$maker" "$portable" && cp "$help" "$portable/Help" && plain_readme >"$portable/LIESMICH.txt" &&
        (cd "$folder" && zip -qrX "$name.zip" "$name") || return
    installer/make-msi.sh x86 "$(version)" "$program" "$maker" "$help" \
        build/win32/src/win32/icons/Blattwart.ico "$folder/$name.msi" && rm -r "$portable"
}

do_package() {
    ready "${build_packages[@]}"
    build_preset win32 Blattwart DatenbankAnlegen && check_program || exit
    rm -rf build/package
    make_release build/package "Blattwart-$(version)" || fail "the release cannot be made"
    ls -l build/package
}
