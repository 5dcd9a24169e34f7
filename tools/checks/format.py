#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the C++ files to .clang-format.

    format.py [ROOT]
"""

import subprocess
import sys
from pathlib import Path

FOLDERS = ("src", "tests", "fuzz", "tools", "bench")


def main(arguments):
    root = Path(arguments[0] if arguments else Path(__file__).parents[2]).resolve()
    files = sorted(str(path) for folder in FOLDERS for pattern in ("*.hpp", "*.cpp")
                   for path in (root / folder).rglob(pattern))
    if not files:
        print(f"{root}: no C++ files")
        return 1
    command = ["clang-format", "--dry-run", "-Werror", *files]
    status = subprocess.run(command, check=False).returncode
    print(f"{len(files)} files looked at" if status == 0 else "clang-format -i FILE puts a file right")
    return 1 if status else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
