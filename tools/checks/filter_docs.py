#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds docs/filters.md to the catalogue of filters.

    filter_docs.py LISTING [PAGE]

LISTING is the program mobrel-list-filters. The page has one section an operation, in slot order, with the
names, kinds, ranges and presets of its arguments, its border and its progress. Each section shows a picture
of the operation and names the step that makes it; no picture lies about unshown.
"""

import json
import re
import subprocess
import sys
from pathlib import Path

LEAST_INTEGER, GREATEST_INTEGER = -(2**31), 2**31 - 1

HEADING = re.compile(r"^## (?:\d+)\. .*$", re.MULTILINE)
ARGUMENT = re.compile(r"^\| `.*$", re.MULTILINE)
TRAITS = re.compile(r"^Border: (.*?)\. Progress: (.*?)[,.]", re.MULTILINE)
PICTURE = re.compile(r"!\[([^\]]*)\]\(([^)]*)\)")
FOLDER = "pictures/filters"


def number(value):
    return f"{value:.0f}" if value == int(value) else str(value)


def range_of(argument):
    kind, least, greatest = argument["kind"], argument["least"], argument["greatest"]
    if kind == "texture":
        return "not empty"
    if kind == "boolean":
        return "true or false"
    is_any = kind == "colour" or (least == LEAST_INTEGER and greatest == GREATEST_INTEGER)
    words = "any" if is_any else f"{number(least)} to {number(greatest)}"
    return words if argument["except"] is None else f"{words}, not {number(argument['except'])}"


def preset_of(argument):
    if argument["preset"] is None:
        return "none"
    if argument["kind"] == "boolean":
        return "true" if argument["preset"] else "false"
    return number(argument["preset"])


def row_of(argument):
    return f"| `{argument['name']}` | {argument['kind']} | {range_of(argument)} | {preset_of(argument)} |"


def compare(faults, what, expected, found):
    if expected != found:
        faults.append(f"{what}: expected {expected!r}, found {found!r}")


def check_pictures(faults, name, section, page):
    """The last picture shows the step, and the text names the step."""
    pictures = PICTURE.findall(section)
    if len(pictures) != 2:
        faults.append(f"{name}: shows {len(pictures)} pictures, not one before and one after")
        return
    step, place = pictures[-1]
    compare(faults, f"{name}: place of its picture", f"{FOLDER}/{name}.png", place)
    compare(faults, f"{name}: operation of its step", name, step.split(":")[0])
    if f"\n`{step}`" not in section:
        faults.append(f"{name}: the text does not begin with the step {step}")
    faults += [f"{name}: no picture {place}" for _, place in pictures if not (page.parent / place).is_file()]


def check_section(entry, section, page):
    faults = []
    name = entry["name"]
    compare(faults, f"{name}: arguments", [row_of(a) for a in entry["arguments"]], ARGUMENT.findall(section))
    compare(faults, f"{name}: traits", [(entry["border"], entry["progress"])], TRAITS.findall(section))
    check_pictures(faults, name, section, page)
    return faults


def check_page(catalogue, page):
    text = page.read_text(encoding="utf-8")
    expected = [f"## {entry['slot']}. {entry['name']}" for entry in catalogue]
    faults = []
    compare(faults, "sections", expected, HEADING.findall(text))
    if faults:
        return faults
    for entry, section in zip(catalogue, HEADING.split(text)[1:]):
        faults += check_section(entry, section, page)
    shown = {place for _, place in PICTURE.findall(text)}
    lying = {f"{FOLDER}/{path.name}" for path in (page.parent / FOLDER).iterdir()}
    faults += [f"{place}: shown nowhere" for place in sorted(lying - shown)]
    return faults


def main(arguments):
    if len(arguments) not in (1, 2):
        sys.exit(__doc__)
    page = Path(arguments[1]) if len(arguments) == 2 else Path(__file__).parents[2] / "docs/filters.md"
    listed = subprocess.run([arguments[0]], capture_output=True, text=True, check=True).stdout
    catalogue = json.loads(listed)
    faults = check_page(catalogue, page) if catalogue else ["an empty catalogue"]
    for fault in faults:
        print(f"{page.name}: {fault}")
    if not faults:
        print(f"{len(catalogue)} sections keep to the catalogue")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
