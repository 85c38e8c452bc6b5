# shellcheck shell=bash
# Format, the order of the layers, clang-tidy and cppcheck.

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

# Reads what has changed since it was found clean.
tidy() {
    say "clang-tidy: $1"
    cmake --preset "$1" >"build/$1.log" && cmake --build --preset "$1" -- -k 0 >"build/$1.log" 2>&1 && return
    grep -vE '^\[|^FAILED|^ninja|tools/tidy\.sh ' "build/$1.log"
    return 1
}

check_clang_tidy() {
    tidy lint
    local native=$?
    tidy lint64 && [ "$native" = 0 ]
}

# An include against the order of the layers.
check_layers() {
    say "Checking the layers"
    tools/check-layers.py
}

do_format() {
    ready "${build_packages[@]}"
    sources | xargs -0 clang-format -i
}

do_lint() {
    ready "${build_packages[@]}" "${check_packages[@]}"
    step check_layers
    step check_clang_tidy
    step check_cppcheck
    [ "$failed" = 0 ] && say "No findings."
}
