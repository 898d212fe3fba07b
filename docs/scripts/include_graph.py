#!/usr/bin/env python3
"""The include graph between the rooms of src/ (every folder with files is one), and the rules it keeps.

    include_graph.py            write the graph into architecture.md, between its markers
    include_graph.py --check    only compare; a document that is out of date is a fault

Exit status: 0 good; 1 when an include points against the order of the top folders, closes a circle of rooms
or of files, reaches OpenGL from where nothing is drawn, a source has no header of its name, or (--check) the
document does not show the present graph.
"""
import re
import sys
from collections import defaultdict
from pathlib import Path

# A file may include its own folder and those before it.
ORDER = ["core", "platform", "draw", "sound", "weather", "scenery", "aircraft", "flight", "cockpit", "net",
         "plugins", "atc", "ui", "scene", "app"]
GL_FOLDERS = {"draw", "platform", "scene"}  # "draw" also as a room of any folder
# Sources whose functions are declared for all in core/program/upward.h, in another record's header, or nowhere:
# neutral answers of what does not exist yet.
WITHOUT_HEADER = {"later.cpp", "main.cpp", "veh_fields.cpp", "about.cpp", "ask_quit.cpp", "window_switch.cpp"}
BEGIN, END = "<!-- include graph -->", "<!-- end of include graph -->"

ROOT = Path(__file__).resolve().parent.parent.parent
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


def top_of(name):
    """main.cpp stands above all folders."""
    return name.split("/")[0] if "/" in name else "main"


def room_of(name):
    return name.rpartition("/")[0] or "main"


def draws(name):
    folders = name.split("/")[:-1]
    return bool(folders) and (folders[0] in GL_FOLDERS or "draw" in folders)


def find_faults(own, system):
    rank = {folder: i for i, folder in enumerate(ORDER)}
    rank["main"] = len(ORDER)
    faults = []
    for name, targets in own.items():
        if top_of(name) not in rank:
            faults.append(f"src/{name}: the folder has no place in the order")
            continue
        for target in targets:
            if target not in own:
                faults.append(f'src/{name}: "{target}" is no file of src, by its path from there')
            elif top_of(target) in rank and rank[top_of(target)] > rank[top_of(name)]:
                faults.append(f'src/{name}: "{target}" points against the order of the folders')
        if name.endswith(".cpp") and name[:-4] + ".h" not in own and Path(name).name not in WITHOUT_HEADER:
            faults.append(f"src/{name} has no header of its name")
    for name, targets in system.items():
        for target in targets:
            if target.startswith("GL/") and not draws(name):
                faults.append(f"src/{name}: <{target}> outside the folders that draw")
    return faults


def find_circle(edges):
    """One circle of nodes that lead to each other, or nothing."""
    done, trail = set(), []

    def visit(node):
        if node in trail:
            return trail[trail.index(node):] + [node]
        if node in done or node not in edges:
            return None
        trail.append(node)
        for target in sorted(edges[node]):
            circle = visit(target)
            if circle:
                return circle
        trail.pop()
        done.add(node)
        return None

    for node in sorted(edges):
        circle = visit(node)
        if circle:
            return circle
    return None


def edges_between(own, node_of):
    """Of each node those that its files include from."""
    edges = defaultdict(set)
    for name, targets in own.items():
        edges[node_of(name)] |= {node_of(target) for target in targets} - {node_of(name)}
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
    edges = edges_between(own, top_of)
    lines = ["| folder | includes from |", "|---|---|"]
    for folder in ORDER + ["main"]:
        lines.append(f"| {folder} | {', '.join(t for t in ORDER if t in edges[folder]) or '-'} |")
    lines += ["", "What a longer way implies is left out of the picture:", "", "```mermaid", "graph TD"]
    lines += [f"    {folder} --> {target}" for folder, target in reduced(edges)]
    lines += ["```", "", "Inside the folders that have rooms:", "", "| room | includes from, in its folder |", "|---|---|"]
    rooms = edges_between(own, room_of)
    for room in sorted(rooms, key=lambda r: (ORDER + ["main"]).index(top_of(r + "/"))):
        inner = sorted(t for t in rooms[room] if top_of(t + "/") == top_of(room + "/"))
        if sum(top_of(r + "/") == top_of(room + "/") for r in rooms) > 1:
            lines.append(f"| {room} | {', '.join(inner) or '-'} |")
    return "\n".join(lines)


def main():
    if sys.argv[1:] not in ([], ["--check"]):
        print(__doc__)
        return 2
    own, system = read_includes()
    faults = find_faults(own, system)
    for kind, edges in (("rooms", edges_between(own, room_of)), ("files", own)):
        circle = find_circle(edges)
        if circle:
            faults.append(f"a circle of {kind}: " + " -> ".join(circle))

    text = DOCUMENT.read_text(encoding="utf-8")
    before, _, rest = text.partition(BEGIN)
    _, _, after = rest.partition(END)
    if not rest or not text.count(END):
        faults.append(f"{DOCUMENT.name}: the markers of the graph are missing")
    elif not faults:
        present = f"{before}{BEGIN}\n\n{render(own)}\n\n{END}{after}"
        if present != text and sys.argv[1:]:
            faults.append(f"{DOCUMENT.name} shows an old graph: run docs/scripts/include_graph.py")
        elif present != text:
            DOCUMENT.write_text(present, encoding="utf-8")
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
