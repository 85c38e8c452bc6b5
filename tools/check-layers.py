#!/usr/bin/env python3
"""Names every include of src/ against the order of its layers, and fails when there is one.

What a layer may include is what src/CMakeLists.txt links it to, and no header outside src/ but of res/. The portable
layers may use no system headers but the standard library's, so that <windows.h> and its like stay in src/win32.
"""

import os
import pathlib
import re
import sys

SRC = pathlib.Path(__file__).resolve().parent.parent / "src"
LAYER = re.compile(r"^blattwart_(windows_)?layer\((\w+)([^)]*)\)", re.MULTILINE)
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')


def read_layers():
    """The folders that each folder of sources may include, itself among them."""
    reach = {}
    for lists in (SRC / "CMakeLists.txt", SRC / "win32/CMakeLists.txt"):
        for windows, name, links in LAYER.findall(lists.read_text(encoding="utf-8")):
            folder = f"win32/{name}" if windows else name
            reach[folder] = {folder}
            for link in re.findall(r"blattwart_(\w+)", links):
                reach[folder] |= reach[link.replace("win32_", "win32/")]
    reach["win32"] = set(reach)  # the entry point
    return reach


def fault_of(source, include, system, reach):
    """What is wrong with an include, or None."""
    folder = source.parent.relative_to(SRC).as_posix()
    if folder not in reach:
        return "lies in no layer of src/CMakeLists.txt"
    windows = folder.startswith("win32")
    if system:
        return None if windows or re.fullmatch(r"\w+", include) else "is no header of the standard library"
    target = os.path.dirname(include)
    if target in reach[folder] or (windows and target == "res"):
        return None
    return f"is not below {folder}" if target in reach else "lies outside src"


def main():
    reach = read_layers()
    faults = 0
    for source in sorted(SRC.rglob("*")):
        if source.suffix not in (".cpp", ".h"):
            continue
        for number, line in enumerate(source.read_text(encoding="utf-8").splitlines(), 1):
            found = INCLUDE.match(line)
            if not found:
                continue
            fault = fault_of(source, found[1] or found[2], found[2] is not None, reach)
            if fault:
                faults += 1
                print(f"{source.relative_to(SRC.parent)}:{number}: {line.strip()} {fault}")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
