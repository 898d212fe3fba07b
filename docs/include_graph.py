#!/usr/bin/env python3
"""The include graph between the folders of src/, kept true in docs/architecture.md.

--check: exit 1 on an include against the order, on OpenGL where it may not be, or when the document is
out of date. Without it the document is rewritten.
"""
import pathlib
import re
import sys

ORDER = ["core", "platform", "draw", "sound", "weather", "scenery", "aircraft", "flight", "cockpit", "net",
         "plugins", "atc", "ui", "scene", "app"]
ROOT = pathlib.Path(__file__).resolve().parent.parent
DOCUMENT = ROOT / "docs" / "architecture.md"
BEGIN, END = "<!-- include graph -->", "<!-- end of include graph -->"


def folder_of(path):
    """The top folder below src; a file of src itself counts as the last."""
    parts = path.relative_to(ROOT / "src").parts
    return parts[0] if len(parts) > 1 else "app"


def may_use_gl(path):
    parts = path.relative_to(ROOT / "src").parts
    return "draw" in parts or parts[0] in ("platform", "scene")


def main():
    uses, faults = {}, []
    for path in sorted((ROOT / "src").rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        here = folder_of(path)
        for header in re.findall(r'#include\s+["<]([^">]+)[">]', path.read_text()):
            if header.startswith("GL/") and not may_use_gl(path):
                faults.append(f"{path.relative_to(ROOT)} includes {header}")
            there = header.split("/")[0]
            if there not in ORDER or there == here:
                continue
            uses.setdefault(here, {}).setdefault(there, 0)
            uses[here][there] += 1
            if ORDER.index(there) > ORDER.index(here):
                faults.append(f"{path.relative_to(ROOT)} includes {header}, which stands below it")

    lines = ["| folder | includes from (number of includes) |", "|---|---|"]
    for folder in ORDER:
        if folder in uses:
            row = ", ".join(f"{to} {uses[folder][to]}" for to in ORDER if to in uses[folder])
            lines.append(f"| {folder} | {row} |")
    table = "\n".join([BEGIN] + lines + [END])
    text = DOCUMENT.read_text()
    new = text[:text.index(BEGIN)] + table + text[text.index(END) + len(END):]
    if "--check" in sys.argv:
        if new != text:
            faults.append("docs/architecture.md is out of date: run docs/include_graph.py")
    else:
        DOCUMENT.write_text(new)
    print("\n".join(faults) if faults else "The include graph points one way.")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
