#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Compiles every header of src alone: each brings what it needs.

    headers.py [SRC [COMPILER [OPTION...]]]
"""

import os
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path


def complaint(header, src, command):
    """What the compiler says of a file that includes this header and nothing else."""
    source = f'#include "{header.relative_to(src).as_posix()}"\n'
    return subprocess.run(command, input=source, text=True, capture_output=True, check=False).stderr


def main(arguments):
    src = Path(arguments[0] if arguments else Path(__file__).parents[2] / "src").resolve()
    compiler, *options = arguments[1:] or ["c++"]
    command = [compiler, *options, "-std=c++20", "-fsyntax-only", "-I", str(src), "-x", "c++", "-"]
    headers = sorted(src.rglob("*.hpp"))
    if not headers:
        print(f"{src}: no headers")
        return 1
    with ThreadPoolExecutor(os.cpu_count()) as pool:
        complaints = list(pool.map(lambda header: complaint(header, src, command), headers))
    broken = [text for text in complaints if text]
    print("\n".join(broken) if broken else f"{len(headers)} headers compile alone")
    return 1 if broken else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
