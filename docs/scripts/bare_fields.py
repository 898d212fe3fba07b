#!/usr/bin/env python3
"""Counts the fields of the global records that are declared without a comment (unit, frame, range, writer).

    bare_fields.py          the number of bare fields of each record
    bare_fields.py --list   every one of them
    bare_fields.py --check  exit status 1 when a record has more than its allowance below

A comment stands on the field's own line. Fields of one line share it.
"""
import re
import sys
from pathlib import Path

RECORDS = Path(__file__).resolve().parent.parent.parent / "src" / "core" / "records"
# What is left to be described; a record that isn't here has none.
ALLOWED = {"atm.h": 8, "con.h": 36, "double_float.h": 1, "env.h": 20, "mnw.h": 88, "msc.h": 19, "nav.h": 95, "net.h": 34,
           "pat.h": 13, "ren.h": 46, "stg.h": 104, "stl.h": 13}
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
    over = 0
    for path in sorted(RECORDS.glob("*.h")):
        bare = bare_fields(path)
        if sys.argv[1:] == ["--list"]:
            print("\n".join(f"{path.name}: {name}" for name in bare), end="\n" if bare else "")
        elif sys.argv[1:] != ["--check"] or len(bare) > ALLOWED.get(path.name, 0):
            print(f"{path.name}: {len(bare)} bare fields")
        over += len(bare) > ALLOWED.get(path.name, 0)
    return 1 if over and sys.argv[1:] == ["--check"] else 0


if __name__ == "__main__":
    sys.exit(main())
