#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""A host of Mobrel: hands one picture over and reports what came back.

    examples/host.py FOLDER NUMBER [PICTURE.bmp]

FOLDER holds the exchange. PICTURE is copied into it as temp.bmp; without it temp.bmp has to be there. The
program is the one named by MOBREL, else mobrel of the release build, else mobrel on the PATH.
"""

import os
import shutil
import subprocess
import sys
from pathlib import Path

RESULT = "result.bmp"


class HandOffError(Exception):
    """The work was not done; the text says why."""


def find_program():
    named = os.environ.get("MOBREL")
    built = Path(__file__).resolve().parents[1] / "build/release/bin/mobrel"
    program = shutil.which(named) if named else shutil.which(built) or shutil.which("mobrel")
    if not program:
        raise HandOffError(f"no program {named or 'mobrel'}; build it, or name it in MOBREL")
    return program


def win_state(config):
    """The value of WinState, or None."""
    for line in config.read_bytes().splitlines():
        key, _, value = line.partition(b"=")
        if key.strip().lower() == b"winstate":
            return value.strip().decode("ascii", "replace")
    return None


def hand_over(folder, number, picture=None):
    """The five steps. True when the picture was changed; HandOffError when the work was not done."""
    folder = Path(folder).resolve()
    exchange = folder / "temp.bmp"
    config = folder / "config.ini"
    result = folder / RESULT
    program = find_program()
    if not folder.is_dir():
        raise HandOffError(f"no folder {folder}")

    # 1. The picture.
    if picture is not None:
        shutil.copyfile(picture, exchange)
    if not exchange.is_file():
        raise HandOffError(f"no picture: {exchange} is not there and none was named")
    before = exchange.read_bytes()

    # 2. The number, and no WinState of an earlier run. A host that keeps other things in config.ini
    #    changes only these two lines.
    config.write_bytes(f"[ZV-HARBORLY]\r\nFilter={number}\r\n".encode())

    # 3. Start, and wait for the end. The result file has the picture of every run; temp.bmp stays as it is
    #    after a dialog.
    result.unlink(missing_ok=True)
    ended = subprocess.run([program], stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False,
                           env=os.environ | {"MOBREL_FOLDER": str(folder), "MOBREL_RESULT": str(result)})
    told = ended.stderr.decode(errors="replace").strip()

    # 4. Was the work done? WinState tells, and not the status: after Apply in a dialog that is 1.
    if win_state(config) != "1":
        if ended.returncode != 0:
            raise HandOffError(f"the program ended with status {ended.returncode}: {told}")
        raise HandOffError(f"the program ended without setting WinState {told}".rstrip())
    if told:
        raise HandOffError(told)

    # 5. The result.
    return result.read_bytes() != before


def main(arguments):
    if len(arguments) not in (2, 3):
        print("usage: host.py FOLDER NUMBER [PICTURE.bmp]", file=sys.stderr)
        return 2
    try:
        changed = hand_over(*arguments)
    except (HandOffError, OSError) as error:
        print(f"host: {error}", file=sys.stderr)
        return 1
    result = Path(arguments[0]) / RESULT
    print(f"host: done, {'the result is' if changed else 'the picture is as it was:'} {result}")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
