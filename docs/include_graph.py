#!/usr/bin/env python3
"""The include graph between the folders of src/, and the rules it keeps.

    include_graph.py            write the graph into architecture.md, between its markers
    include_graph.py --check    only compare; a document that is out of date is a fault

Exit status: 0 good; 1 when an include points against the order of the folders, closes a cycle of files,
reaches OpenGL from where nothing is drawn, or (--check) the document does not show the present graph.
"""
import re
import sys
from collections import defaultdict
from pathlib import Path

# A file may include its own folder and those before it.
ORDER = ["core", "platform", "draw", "sound", "weather", "scenery", "aircraft", "flight", "cockpit", "net",
         "plugins", "atc", "ui", "scene", "app"]
GL_FOLDERS = {"draw", "platform", "scene"}  # "draw" also as a subfolder of any subsystem
BEGIN, END = "<!-- include graph -->", "<!-- end of include graph -->"

ROOT = Path(__file__).resolve().parent.parent
SRC = ROOT / "src"
DOCUMENT = ROOT / "docs" / "architecture.md"
INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]', re.MULTILINE)


def read_includes():
    """Of each file of src: its own includes and its system includes."""
    own, system = {}, {}
    for path in sorted(SRC.rglob("*")):
        if path.suffix not in (".h", ".cpp"):
            continue
        name = path.relative_to(SRC).as_posix()
        found = INCLUDE.findall(path.read_text(encoding="utf-8"))
        own[name] = [target for quote, target in found if quote == '"']
        system[name] = [target for quote, target in found if quote == "<"]
    return own, system


def folder_of(name):
    """main.cpp stands above all folders."""
    return name.split("/")[0] if "/" in name else "main"


def draws(name):
    folders = name.split("/")[:-1]
    return bool(folders) and (folders[0] in GL_FOLDERS or "draw" in folders)


def find_faults(own, system):
    rank = {folder: i for i, folder in enumerate(ORDER)}
    rank["main"] = len(ORDER)
    faults = []
    for name, targets in own.items():
        if folder_of(name) not in rank:
            faults.append(f"src/{name}: the folder has no place in the order")
            continue
        for target in targets:
            if target not in own:
                faults.append(f'src/{name}: "{target}" is no file of src, by its path from there')
            elif folder_of(target) in rank and rank[folder_of(target)] > rank[folder_of(name)]:
                faults.append(f'src/{name}: "{target}" points against the order of the folders')
    for name, targets in system.items():
        for target in targets:
            if target.startswith("GL/") and not draws(name):
                faults.append(f"src/{name}: <{target}> outside the folders that draw")
    return faults


def find_cycle(own):
    """One cycle of files that include each other, or nothing."""
    done, trail = set(), []

    def visit(name):
        if name in trail:
            return trail[trail.index(name):] + [name]
        if name in done or name not in own:
            return None
        trail.append(name)
        for target in own[name]:
            cycle = visit(target)
            if cycle:
                return cycle
        trail.pop()
        done.add(name)
        return None

    for name in own:
        cycle = visit(name)
        if cycle:
            return cycle
    return None


def folder_edges(own):
    """Of each folder those that its files include from."""
    edges = defaultdict(set)
    for name, targets in own.items():
        edges[folder_of(name)] |= {folder_of(target) for target in targets} - {folder_of(name)}
    return edges


def reduced(edges):
    """Without the edges that a longer way implies: what is left can be read as a picture."""
    reach = {}
    for folder in ORDER + ["main"]:  # every target comes before its source
        reach[folder] = set(edges[folder])
        for target in edges[folder]:
            reach[folder] |= reach.get(target, set())
    return [(folder, target) for folder in ORDER + ["main"] for target in ORDER
            if target in edges[folder]
            and not any(target in reach.get(other, ()) for other in edges[folder] if other != target)]


def render(own):
    edges = folder_edges(own)
    lines = ["| folder | includes from |", "|---|---|"]
    for folder in ORDER + ["main"]:
        lines.append(f"| {folder} | {', '.join(t for t in ORDER if t in edges[folder]) or '-'} |")
    lines += ["", "What a longer way implies is left out of the picture:", "", "```mermaid", "graph TD"]
    lines += [f"    {folder} --> {target}" for folder, target in reduced(edges)]
    lines.append("```")
    return "\n".join(lines)


def main():
    if sys.argv[1:] not in ([], ["--check"]):
        print(__doc__)
        return 2
    own, system = read_includes()
    faults = find_faults(own, system)
    cycle = find_cycle(own)
    if cycle:
        faults.append("a cycle: " + " -> ".join(cycle))

    text = DOCUMENT.read_text(encoding="utf-8")
    before, _, rest = text.partition(BEGIN)
    _, _, after = rest.partition(END)
    if not rest or not text.count(END):
        faults.append(f"{DOCUMENT.name}: the markers of the graph are missing")
    elif not faults:
        present = f"{before}{BEGIN}\n\n{render(own)}\n\n{END}{after}"
        if present != text and sys.argv[1:]:
            faults.append(f"{DOCUMENT.name} shows an old graph: run docs/include_graph.py")
        elif present != text:
            DOCUMENT.write_text(present, encoding="utf-8")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
