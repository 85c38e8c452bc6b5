# shellcheck shell=bash
# Building, and what all steps count.

# build_preset PRESET [TARGETS...]
build_preset() {
    local preset=$1
    shift
    say "Building $preset${*:+: $*}"
    if [ ! "build/$preset/build.ninja" -nt CMakePresets.json ]; then cmake --preset "$preset" || return; fi
    cmake --build --preset "$preset" ${1:+--target "$@"}
}

passed=0
failed=0

# A step that is no test counts as a failed one when it fails. What each takes is added to build/times.log.
step() {
    local TIMEFORMAT="%1R s (processor %1U + %1S s): $*"
    { time "$@" 2>&3; } 3>&2 2>>build/times.log && return
    say "FAILED: $*"
    failed=$((failed + 1))
    return 1
}
