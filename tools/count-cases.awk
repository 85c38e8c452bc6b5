# Counts the cases in ctest's log of a run (Testing/Temporary/LastTest.log) and names those that failed; the last line is
# PASSED FAILED. A case that was not reached, because its program ended before, has failed; a program that is no
# GoogleTest is one case. A program that could not be started passes for ctest's log, but has no time of its start.

function fails(name) { print "FAILED: " program " " name; named = 1 }

function finish(    missed) {
    if (program == "") return
    if (!started) { cases = 1; ok = succeeded }
    if (running != "") fails(running)
    missed = cases - ok
    if (!succeeded && !missed) missed = 1  # leaks are found when all cases have passed
    if (missed && !named) fails("as a whole")
    passed += ok
    failed += missed
}

{ sub(/\r$/, "") }
/^[0-9]+\/[0-9]+ Testing: / { finish(); program = $3; running = ""; cases = ok = absent = started = succeeded = named = 0 }
/" start time: *$/ { absent = 1 }
/^\[==========\] Running / { cases = $3; started = 1 }
/^\[ RUN      \] / { running = $4 }
/^\[       OK \] / { ok++; running = "" }
/^\[  FAILED  \] / && running != "" { fails(running); running = "" }
/^Test Passed\.$/ { succeeded = !absent }
END { finish(); print passed + 0, failed + 0 }
