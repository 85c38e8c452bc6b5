# shellcheck shell=bash
# The program that is shipped: its checks, its installer and its zip.

program=build/win32/src/win32/Blattwart.exe
help=build/win32/src/win32/Help/Tarvix.chm

version() { sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' build/win32/CMakeCache.txt; }

check_program() {
    say "Checking the program that is shipped"
    installer/check-program.sh "$program" "$(version)"
}

# The user's part without its pictures, as Windows' editor shows it right.
plain_readme() { sed '/^ *!\[/d' LIESMICH.md | cat -s | sed -e '1s/^/\xEF\xBB\xBF/' -e 's/$/\r/'; }

# make_release FOLDER NAME: the installer, and the zip, in which the program finds all it needs beside itself.
make_release() {
    local folder=$1 name=$2 portable="$1/$2"
    mkdir -p "$portable/Help" "$portable/Bibliothek/Vorlagen" || return
    build/native/demo/mdb/mkmdb --start "$portable/Tarvix.mdb" && cp "$program" "$portable" &&
        cp "$help" "$portable/Help" && plain_readme >"$portable/LIESMICH.txt" &&
        (cd "$folder" && zip -qrX "$name.zip" "$name") || return
    installer/make-msi.sh x86 "$(version)" "$program" "$help" "$portable/Tarvix.mdb" \
        build/win32/src/win32/icons/Blattwart.ico "$folder/$name.msi" && rm -r "$portable"
}

do_package() {
    ready "${build_packages[@]}"
    build_preset native mkmdb && build_preset win32 Blattwart && check_program || exit
    rm -rf build/package
    make_release build/package "Blattwart-$(version)" || fail "the release cannot be made"
    ls -l build/package
}
