#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the seeds of the filter fuzz target: each operation with usual arguments, and at the ends of its
ranges.

Usage: make_filter_args_corpus.py FOLDER. The same files come out every time.
"""

import pathlib
import struct
import sys

WIDTH, HEIGHT = 9, 7
SMALL, END = 1, 2  # ways to take a number, see filter_args_fuzzer.cpp

# In slot order, with usual arguments: integers are values, floats shares of their range.
OPERATIONS = [
    ("Blur", [100]), ("Contour", []), ("Contrast", [50]), ("Colorize", [0.25, 0.25, 1.0]),
    ("Despeckle", []), ("DespeckleMore", []), ("Diffuse", [3, 1, 2]), ("Emboss", [100, 1]),
    ("Engrave", [100, 0]), ("Greys", []), ("Negative", []), ("Noise", [40, 2]), ("Outline", [-50, 5]),
    ("Pixelize", [3]), ("RankFilterMaximum", []), ("RankFilterMinimum", []), ("Relieve", [75]),
    ("ReplaceHS", [0x4060A0, 0xF01020, 150, 30, 40]), ("ReplaceL", [0x4060A0, 0xF01020, 150, 20]),
    ("SaltAndPepperRemoval", [40]), ("Saturation", [60]), ("ScanLines", [30, 70]), ("Sharpen", [85]),
    ("Shift", [0x4060A0, 60, 150]), ("ShiftRGB", [20, -10, 35]), ("Soften", [95]), ("Texturize", []),
]


def samples():
    """Neighbours that differ a little, and now and then a lot."""
    return bytes((i * 5 % 61 + (i % 7 == 0) * 150) % 256 for i in range(WIDTH * HEIGHT * 3))


def usual(value):
    word = int(value * 0xFFFFFFFF) if isinstance(value, float) else value & 0xFFFFFFFF
    return struct.pack("<BI", SMALL, word)


def seed(slot, arguments):
    texture = bytes((4, 3)) if OPERATIONS[slot - 1][0] == "Texturize" else b""
    return bytes((slot - 1, WIDTH - 1, HEIGHT - 1)) + arguments + texture + samples()


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for slot, (name, values) in enumerate(OPERATIONS, 1):
        (folder / name).write_bytes(seed(slot, b"".join(map(usual, values))))
        if values:
            ends = b"".join(struct.pack("<BI", END, i % 2) for i in range(len(values)))
            (folder / f"{name}-ends").write_bytes(seed(slot, ends))


if __name__ == "__main__":
    main()
