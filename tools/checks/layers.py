#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the sources to the list of layers.

    layers.py [SRC]

A layer is a folder, or a room: a folder in it. A file includes its own layer and lower ones, never a higher one.
No file includes itself, not even by way of others. Below the layer `desktop` nothing includes Qt. Every include in
quotes is written from src and names a file that is there. The list in src/README.md is the list enforced here.
"""

import re
import sys
from pathlib import Path

# From the ground up; folders in one row are one layer.
LAYERS = [
    ["platform/base"],
    ["platform/system"],
    ["platform/drawing"],
    ["platform/drawing/scaling"],
    ["platform/pictures"],
    ["platform/pictures/codecs"],
    ["platform/control"],
    ["platform/screen"],
    ["imaging", "imaging/diffusion"],
    ["filters", "filters/kernels"],
    ["canvas", "controls"],
    ["shell"],
    ["desktop"],
    ["dialogs/common"],
    ["dialogs/pickers"],
    ["dialogs/filter", "dialogs/about"],
    ["dialogs"],
    ["programs/batch/steps"],
    ["programs/batch/run"],
    ["programs/mobrel", "programs/batch", "programs/clipboard", "programs/gallery"],
]
FIRST_WITH_QT = "desktop"

ROW = [(level, folder) for level, folders in enumerate(LAYERS, 1) for folder in folders]
LEVEL = {folder: level for level, folder in ROW}
TOP_FOLDERS = {folder.split("/")[0] for folder in LEVEL}
CODE = {".hpp", ".cpp", ".h", ".hxx", ".cc", ".cxx", ".c", ".ipp", ".inc"}
DIRECTIVE = re.compile(r"^\s*#\s*include\b\s*(.*)")
NAMED = re.compile(r'(?:"([^"]+)"|<([^>]+)>)')
QT = re.compile(r"^(Q[A-Z]|Qt|qt)")
README_ROW = re.compile(r"^\| (\d+) \| `([\w/]+)/` \|", re.MULTILINE)


def folder_of(name):
    return name.rpartition("/")[0]


def includes_of(path):
    """(line number, name in quotes or None, name in angles or None) of each include."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        directive = DIRECTIVE.match(line)
        if directive:
            named = NAMED.match(directive[1])
            yield number, *(named.groups() if named else (None, None))


def check_file(path, src, graph):
    """The faults of one file; notes what it includes."""
    name = path.relative_to(src).as_posix()
    folder = folder_of(name)
    if folder not in LEVEL:
        return [f"{name}: stands in no layer"]
    faults = []
    for number, quoted, angled in includes_of(path):
        where = f"{name}:{number}"
        if angled is not None:
            if QT.match(angled) and LEVEL[folder] < LEVEL[FIRST_WITH_QT]:
                faults.append(f"{where}: <{angled}>: {folder} is below {FIRST_WITH_QT} and knows no Qt")
            elif angled.split("/")[0] in TOP_FOLDERS:
                faults.append(f"{where}: <{angled}>: a file of our own is named in quotes")
        elif quoted is None:
            faults.append(f"{where}: an include that names no file cannot be checked")
        elif QT.match(quoted) and LEVEL[folder] < LEVEL[FIRST_WITH_QT]:
            faults.append(f'{where}: "{quoted}": {folder} is below {FIRST_WITH_QT} and knows no Qt')
        elif ".." in quoted.split("/") or not (src / quoted).is_file():
            faults.append(f'{where}: "{quoted}": no such file, written from src')
        else:
            target = folder_of(quoted)
            graph[name].append(quoted)
            if target in LEVEL and LEVEL[target] > LEVEL[folder]:
                faults.append(f'{where}: "{quoted}": {target} is above {folder}')
    return faults


def cycles(graph):
    """Each circle of includes, once."""
    found = []
    state = {}

    def visit(name, road):
        state[name] = "open"
        for target in graph.get(name, []):
            if state.get(target) == "open":
                found.append([*road[road.index(target):], target])
            elif target not in state:
                visit(target, [*road, target])
        state[name] = "done"

    for name in sorted(graph):
        if name not in state:
            visit(name, [name])
    return found


def check_readme(src):
    readme = src / "README.md"
    text = readme.read_text(encoding="utf-8") if readme.is_file() else ""
    listed = sorted((int(row[1]), row[2]) for row in README_ROW.finditer(text))
    if listed != sorted(ROW):
        return [f"README.md: lists the layers {listed}, enforced are {sorted(ROW)}"]
    return []


def main(arguments):
    src = Path(arguments[0] if arguments else Path(__file__).parents[2] / "src").resolve()
    files = sorted(path for path in src.rglob("*") if path.suffix in CODE)
    if not files:
        print(f"{src}: no sources")
        return 1
    graph = {path.relative_to(src).as_posix(): [] for path in files}
    faults = check_readme(src)
    for path in files:
        faults += check_file(path, src, graph)
    faults += ["files that include each other: " + " > ".join(circle) for circle in cycles(graph)]
    print("\n".join(faults) if faults else f"{len(files)} files keep to the layers")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
