# shellcheck shell=bash
# Running the tests.

# test_preset PRESET [PROGRAM...]: all programs, or these; a program may run in parts.
test_preset() {
    local preset=$1 log="build/$1/Testing/Temporary/LastTest.log" failures=$failed result counts
    shift
    say "Testing $preset${*:+: $*}"
    rm -f "$log"
    ctest --preset "$preset" --no-tests=error -j "$(nproc)" --test-output-size-passed 10000000 \
        ${1:+-R "^($(IFS='|'; echo "$*"))(_part[0-9]+)?$"} | grep -vE '^\[ +(RUN|OK) '
    result=${PIPESTATUS[0]}
    [ -f "$log" ] || return 1
    counts=$(awk -f tools/count-cases.awk "$log")
    sed '$d' <<<"$counts"
    counts=${counts##*$'\n'}
    passed=$((passed + ${counts% *}))
    failed=$((failed + ${counts#* }))
    [ "$result" = 0 ] || [ "$failed" -gt "$failures" ]
}

summarize() {
    printf '%d passed, %d failed\n' "$passed" "$failed"
    [ "$failed" = 0 ]
}

# The tests under Wine wait more than they work; clang-tidy gets ahead in the meantime.
test_under_wine() {
    cmake --preset lint >build/lint.log
    nice -n 19 ninja -C build/lint -j 1 -k 0 >build/lint.log 2>&1 &
    step test_preset win64
    kill $! 2>/dev/null
    wait $!
}

build_and_test() { build_preset "$1" && test_preset "$1"; }

test_everything() {
    ready "${build_packages[@]}" "${check_packages[@]}"
    rm -f build/times.log
    step build_and_test native
    step build_preset win32
    step build_preset win64 && test_under_wine
    step check_program
    step check_format
    step check_layers
    step check_clang_tidy
    step check_cppcheck
    cat build/times.log
    summarize
}

# test_matching FILTER
test_matching() {
    local found preset cases programs
    ready "${build_packages[@]}"
    found=$(tools/find-tests.py "$1") && [ -n "$found" ] || fail "no test program and no case matches '$1'"
    for preset in native win64; do
        mapfile -t programs < <(awk -v preset="$preset" '$1 == preset {print $2}' <<<"$found" | sort -u)
        [ ${#programs[@]} -gt 0 ] || continue
        cases=$(awk -v preset="$preset" '$1 == preset {print $3}' <<<"$found" | paste -sd:)
        step build_preset "$preset" "${programs[@]}"
        GTEST_FILTER=$cases step test_preset "$preset" "${programs[@]}"
    done
    summarize
}
