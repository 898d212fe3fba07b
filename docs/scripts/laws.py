#!/usr/bin/env python3
"""Checks docs/flight-model.md: the functions and the tests that it names are there, and every file of the model with a
law that is as given has a row. Prints what is wrong; exit status 1 then.
"""
import re
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
MODEL = ["flight", "weather", "aircraft/derive"]
NOT_MODEL = ["weather/sky", "weather/draw"]


def tests_of(folder):
    text = "\n".join(path.read_text(encoding="utf-8") for path in folder.rglob("*.cpp"))
    return {f"{suite}.{name}" for suite, name in re.findall(r"^TEST(?:_F|_P)?\((\w+),\s*(\w+)\)", text, re.M)}


def main():
    doc = (ROOT / "docs" / "flight-model.md").read_text(encoding="utf-8")
    wrong, named = [], set()
    for file, function in re.findall(r"`([\w/]+\.(?:cpp|h))` `(\w+)`", doc):
        named.add(file)
        path = ROOT / "src" / file
        if not path.is_file() or not re.search(rf"\b{function}\(", path.read_text(encoding="utf-8")):
            wrong.append(f"no {function} in {file}")
    tests = tests_of(ROOT / "tests")
    for test in sorted(set(re.findall(r"`(\w+\.\w+)`", doc))):
        if test not in tests:
            wrong.append(f"no test {test}")
    for folder in MODEL:
        for path in sorted((ROOT / "src" / folder).rglob("*.cpp")):
            file = path.relative_to(ROOT / "src").as_posix()
            if any(file.startswith(other) for other in NOT_MODEL):
                continue
            if file not in named and re.search("as given", path.read_text(encoding="utf-8"), re.I):
                wrong.append(f"{file} has laws that are as given and no row")
    print("\n".join(wrong), end="\n" if wrong else "")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
