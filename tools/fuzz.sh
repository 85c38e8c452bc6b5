# shellcheck shell=bash
# libFuzzer on the fuzz targets.

# fuzz_target NAME: the end with 255 keeps xargs from starting further ones.
fuzz_target() {
    local name=$1 found="build/fuzz/corpus/$1" log="build/fuzz/$1.log"
    mkdir -p "$found"
    say "$name"
    "build/fuzz/fuzz/$name" -max_total_time="${FUZZ_SECONDS:-60}" -timeout=10 -artifact_prefix="build/fuzz/$name-" \
        "$found" "fuzz/corpus/$name" >"$log" 2>&1 && return
    tail -n 60 "$log"
    say "FOUND: $(sed -n 's/^.*Test unit written to //p' "$log") ($log)"
    return 255
}

do_fuzz() {
    ready "${build_packages[@]}" "${check_packages[@]}"
    build_preset fuzz || exit
    export -f fuzz_target say
    find fuzz/corpus -mindepth 1 -printf '%f\n' -prune | sort | xargs -P 2 -I{} bash -c 'fuzz_target {}' || exit
    say "No findings."
}
