# shellcheck shell=bash
# Measuring: what the program sends, how its work grows, and what it holds after a long time.

# instructions ACTION OPERATION SIZE: the program's own, without host and database, for the operation of the session on
# so many drawings or layouts.
instructions() {
    local left toggles=("--toggle-collect=blattwart::bench::BenchProgram::$2()" '--toggle-collect=demo::CallRecorder::create(*')
    for left in get put call enumerate; do
        toggles+=("--toggle-collect=demo::(anonymous namespace)::RecordedObject::$left(*")
    done
    valgrind --tool=callgrind --callgrind-out-file=/dev/null --collect-atstart=no "${toggles[@]}" \
        build/release/bench/session/program_bench "$1" "$3" 2>&1 | sed -n 's/.*Collected : //p'
}

# check_growth ACTION OPERATION SIZE: ten times the work takes no more than 10.5 times the instructions.
check_growth() {
    local small large
    small=$(instructions "$1" "$2" "$3")
    large=$(instructions "$1" "$2" "${3}0")
    awk -v what="$1" -v size="$3" -v small="${small:-0}" -v large="${large:-0}" 'BEGIN {
        if (small == 0) exit 1
        printf "%-8s %4d: %12d instructions, %4d: %12d, %.2f times as many\n", what, size, small, size * 10, large,
            large / small
        exit large > 10.5 * small
    }'
}

do_bench() {
    ready "${build_packages[@]}" "${bench_packages[@]}"
    build_preset release program_bench blattwart_bench && build_preset win64 program_bench start_bench || exit
    say "The program, over COM under Wine; times in milliseconds"
    WINE_RUN_SECONDS=1200 step tools/wine-run.sh build/win64/bench/session/program_bench.exe
    say "Its start"
    WINE_RUN_SECONDS=300 step tools/wine-run.sh build/win64/bench/start/start_bench.exe
    say "The program, natively"
    step build/release/bench/session/program_bench
    say "Growth of the work: a refresh by drawings, the filling of a list by layouts"
    step check_growth refresh refresh 5
    step check_growth click clickDrawing 25
    say "The control models"
    step build/release/bench/blattwart_bench
    [ "$failed" = 0 ]
}

do_soak() {
    ready "${build_packages[@]}"
    build_preset win64 soak || exit
    WINE_RUN_SECONDS=7200 tools/wine-run.sh build/win64/bench/soak/soak.exe
}
