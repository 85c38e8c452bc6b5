# shellcheck shell=bash
# Format, clang-tidy and cppcheck.

sources() { find src demo tests bench fuzz \( -name '*.cpp' -o -name '*.h' \) -print0; }

check_format() {
    say "Checking the format"
    sources | xargs -0 clang-format --dry-run --Werror
}

check_cppcheck() {
    say "cppcheck"
    mkdir -p build/cppcheck
    cppcheck --platform=win32W --library=googletest --std=c++20 --language=c++ \
        --enable=warning,performance,portability --error-exitcode=1 --inline-suppr --quiet \
        -j "$(nproc)" --cppcheck-build-dir=build/cppcheck \
        -I src -I . -I tests src demo tests bench fuzz
}

# tidy PRESET FOLDERS ARGS...: checks what lies in the folders (a regular expression). The sources of a library are
# checked as one: the headers that they share, which take most of the time, are read once.
tidy() {
    local preset=$1 folders=$2
    shift 2
    say "clang-tidy: $preset"
    cmake --preset "$preset" >"build/$preset.log" || { cat "build/$preset.log"; return 1; }
    run-clang-tidy -p "build/$preset" -quiet "$@" "build/$preset/($folders)/.*\.c(xx|pp)$" >"build/$preset.log" 2>&1 && return
    grep -vE '^clang-tidy|warnings (generated|treated)|^Suppressed|^Use -header-filter' "build/$preset.log"
    return 1
}

# What clang must be told to find the headers of the compiler for Windows.
mingw_arguments() {
    local headers
    headers=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
    printf -- '-extra-arg=%s\n' --target=x86_64-w64-mingw32 "-isystem$headers" "-isystem$headers/x86_64-w64-mingw32"
}

check_clang_tidy() {
    local mingw
    mapfile -t mingw < <(mingw_arguments)
    tidy lint 'src|demo|tests|fuzz'
    local native=$?
    tidy lint64 'src/win32|demo/(adodb|cadhost|com)|tests/win32|bench' "${mingw[@]}" && [ "$native" = 0 ]
}

do_format() {
    ready "${build_packages[@]}"
    sources | xargs -0 clang-format -i
}

do_lint() {
    ready "${build_packages[@]}" "${check_packages[@]}"
    step check_clang_tidy
    step check_cppcheck
    [ "$failed" = 0 ] && say "No findings."
}
