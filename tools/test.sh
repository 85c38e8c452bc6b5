# shellcheck shell=bash
# Running the tests.

# run_tests PRESET [PROGRAM...]: all programs, or these; a program may run in parts. Under Wine three run on two cores, since
# they wait more than they work.
run_tests() {
    local preset=$1 jobs
    jobs=$(nproc)
    [ "$preset" = native ] || jobs=$((jobs * 3 / 2))
    shift
    say "Testing $preset${*:+: $*}"
    rm -f "build/$preset/Testing/Temporary/LastTest.log"
    ctest --preset "$preset" --no-tests=error -j "$jobs" --test-output-size-passed 10000000 \
        ${1:+-R "^($(IFS='|'; echo "$*"))(_part[0-9]+)?$"} | grep -vE '^\[ +(RUN|OK) '
    return "${PIPESTATUS[0]}"
}

# count_tests PRESET RESULT: adds the cases of a run, whose exit code RESULT is, to those that passed and failed.
count_tests() {
    local log="build/$1/Testing/Temporary/LastTest.log" failures=$failed counts
    [ -f "$log" ] || return 1
    counts=$(awk -f tools/count-cases.awk "$log")
    sed '$d' <<<"$counts"
    counts=${counts##*$'\n'}
    passed=$((passed + ${counts% *}))
    failed=$((failed + ${counts#* }))
    [ "$2" = 0 ] || [ "$failed" -gt "$failures" ]
}

test_preset() {
    run_tests "$@"
    count_tests "$1" $?
}

summarize() {
    printf '%d passed, %d failed\n' "$passed" "$failed"
    [ "$failed" = 0 ]
}

build_and_test() { build_preset "$1" && test_preset "$1"; }

wait_for_wine() {
    wait "$1"
    local result=$?
    cat build/wine-tests.log
    count_tests win64 "$result"
}

# The tests under Wine wait more than they work: all that has no part in them is done meanwhile, and gives way to them.
test_everything() {
    local wine=''
    ready "${build_packages[@]}" "${check_packages[@]}"
    rm -f build/times.log
    if step build_preset win64; then
        run_tests win64 >build/wine-tests.log 2>&1 &
        wine=$!
        renice -n 19 $$ >/dev/null
    fi
    step build_and_test native
    step build_preset win32
    step check_program
    step check_format
    step check_layers
    step check_clang_tidy
    step check_cppcheck
    [ -z "$wine" ] || step wait_for_wine "$wine"
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
        # In a filter all behind a "-" is left out.
        cases=$(awk -v preset="$preset" '$1 == preset && $3 != "-" {print $3}' <<<"$found" | paste -sd:)
        step build_preset "$preset" "${programs[@]}"
        GTEST_FILTER=$cases step test_preset "$preset" "${programs[@]}"
    done
    summarize
}
