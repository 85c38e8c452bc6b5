#!/usr/bin/env python3
"""Lists the tests whose program or case matches a regular expression: PRESET PROGRAM CASE, a line each.

They are found in the sources, so that nothing must be built to choose among them. A program that is no GoogleTest has
the case "-". Each program is a target and a test of this name.
"""

import pathlib
import re
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
PROGRAM = re.compile(r"\b(?:blattwart_test\(|wine_test\(|add_test\(NAME )(\w+_test)\b")
CASE = re.compile(r"^TEST(_F|_P)?\(\s*(\w+),\s*(\w+)\)", re.MULTILINE)


def all_tests():
    for lists in [*sorted((ROOT / "tests").rglob("CMakeLists.txt")), ROOT / "fuzz/CMakeLists.txt"]:
        program = PROGRAM.search(lists.read_text(encoding="utf-8"))
        if not program:
            continue
        preset = "win64" if "win32" in lists.parts else "native"
        cases = [
            f"*/{suite}.{name}/*" if kind == "_P" else f"{suite}.{name}"
            for source in sorted(lists.parent.glob("*.cpp"))
            for kind, suite, name in CASE.findall(source.read_text(encoding="utf-8"))
        ]
        for case in cases or ["-"]:
            yield preset, program[1], case


def main():
    try:
        wanted = re.compile(sys.argv[1])
    except re.error as error:
        sys.exit(f"'{sys.argv[1]}' is no regular expression: {error}")
    for preset, program, case in all_tests():
        if wanted.search(program) or wanted.search(case):
            print(preset, program, case)


if __name__ == "__main__":
    main()
