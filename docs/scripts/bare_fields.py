#!/usr/bin/env python3
"""Counts the fields of the global records that are declared without a comment (unit, frame, range, writer).

    bare_fields.py          the number of bare fields of each record
    bare_fields.py --list   every one of them
    bare_fields.py --check  exit status 1 when there is one

A comment stands on the field's own line. Fields of one line share it.
"""
import re
import sys
from pathlib import Path

RECORDS = Path(__file__).resolve().parent.parent.parent / "src" / "core" / "records"
DECLARATION = re.compile(r"^    [A-Za-z_][^()/]*;(.*)$")


def bare_fields(path):
    """Names on lines of declarations, inside a struct, that end without a comment."""
    found, inside = [], False
    for line in path.read_text(encoding="utf-8").splitlines():
        if re.match(r"struct \w+.*\{", line):
            inside = True
        elif line.startswith("}"):
            inside = False
        elif inside:
            match = DECLARATION.match(line)
            if match and "//" not in match.group(1):
                names = re.sub(r"\[[^\]]*\]|= [^,;]+", "", line.split(";")[0])
                found += [name.split()[-1].strip("*&") for name in names.split(",")]
    return found


def main():
    asked, total = sys.argv[1:], 0
    for path in sorted(RECORDS.glob("*.h")):
        bare = bare_fields(path)
        total += len(bare)
        if asked:
            for name in bare:
                print(f"{path.name}: {name}")
        else:
            print(f"{path.name}: {len(bare)} bare fields")
    return 1 if total and asked == ["--check"] else 0


if __name__ == "__main__":
    sys.exit(main())
