# SPDX-License-Identifier: MIT
"""A host's side of the exchange in a fresh folder, and a watch over a folder's entries."""

import ctypes
import os
import select
import shutil
import signal
import struct
import subprocess
import tempfile
from pathlib import Path

SECTION = b"[ZV-HARBORLY]\r\n"
NOBODY = 65534

# The first snapshot of a run goes here wherever the root folder can be written.
STRAY_SNAPSHOT = Path("/b0000.dat")
STRAY_WAS_THERE = STRAY_SNAPSHOT.exists()


def remove_stray_snapshot():
    """Unless it was there before the tests."""
    if not STRAY_WAS_THERE:
        STRAY_SNAPSHOT.unlink(missing_ok=True)


def config_of(number):
    return SECTION + b"Filter=" + str(number).encode() + b"\r\n"


def clean_environment():
    """The caller's environment without what the program reads."""
    return {name: value for name, value in os.environ.items()
            if name.lower() not in ("tmp", "temp", "tmpdir", "mobrel_folder", "mobrel_result", "display", "wayland_display")}


def copy_program(program, folder):
    """Copies a program and its libraries to a folder. The copies, the program first."""
    files = [Path(program), *Path(program).parent.glob("libmobrel-*.so*")]
    return [Path(shutil.copy(file, folder)) for file in files]


class HandOff:
    """One program folder and one temporary folder, removed at the end."""

    def __init__(self, program, name="program folder"):
        self.program = program
        self.root = Path(tempfile.mkdtemp(prefix="mobrel-handoff-"))
        self.root.chmod(0o755)
        self.folder = self.root / name
        self.folder.mkdir()
        self.temporary = self.root / "temporary"
        self.temporary.mkdir()
        self.temporary.chmod(0o777)
        self.picture = self.folder / "temp.bmp"
        self.config = self.folder / "config.ini"
        self.settings = self.folder / "Mobrel.ini"

    def __enter__(self):
        return self

    def __exit__(self, *error):
        self.folder.chmod(0o755)
        shutil.rmtree(self.root)

    def leave(self, config, picture):
        """Writes what a host leaves; None leaves nothing."""
        for path, content in ((self.config, config), (self.picture, picture)):
            if content is not None:
                path.write_bytes(content)

    def start(self, arguments=(), as_nobody=False, prepare=None, **environment):
        """Starts the program; a keyword with the value None leaves that variable out. `prepare` is called
        in the new process."""
        variables = {"MOBREL_FOLDER": str(self.folder), "tmp": str(self.temporary)} | environment
        identity = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if as_nobody else {}
        named = {name: value for name, value in variables.items() if value is not None}
        return subprocess.Popen([self.program, *arguments], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, cwd=self.root, preexec_fn=prepare, **identity,
                                env=clean_environment() | named)

    def install_program(self, folder):
        """Runs a copy of the program in a folder from now on. Names the files."""
        copies = copy_program(self.program, folder)
        self.program = copies[0]
        return copies

    def run(self, **how):
        return finished(self.start(**how))

    def entries(self):
        return sorted(entry.name for entry in self.folder.iterdir())

    def snapshots(self):
        return sorted(entry.name for entry in self.temporary.iterdir())

    def win_state(self):
        lines = self.config.read_bytes().splitlines() if self.config.is_file() else []
        values = [line.split(b"=", 1)[1] for line in lines if line.startswith(b"WinState=")]
        return values[0] if values else None


class Ended:
    def __init__(self, status, output, errors):
        self.status = status
        self.output = output
        self.errors = errors


def finished(process):
    """Waits for a run; one that hangs is ended and is an error."""
    with process:
        try:
            output, errors = process.communicate(timeout=120)
        except subprocess.TimeoutExpired:
            process.send_signal(signal.SIGKILL)
            raise
    return Ended(process.returncode, output.decode(), errors.decode())


class FolderWatch:
    """The names of the entries that are made in a folder while it is watched."""

    IN_CREATE = 0x100

    def __init__(self, *folders):
        libc = ctypes.CDLL(None, use_errno=True)
        self.descriptor = libc.inotify_init1(os.O_CLOEXEC | os.O_NONBLOCK)
        if self.descriptor < 0:
            raise OSError(ctypes.get_errno(), "inotify_init1")
        self.folders = {}
        for folder in folders:
            watch = libc.inotify_add_watch(self.descriptor, os.fsencode(folder), self.IN_CREATE)
            if watch < 0:
                raise OSError(ctypes.get_errno(), "inotify_add_watch")
            self.folders[watch] = folder

    def __enter__(self):
        return self

    def __exit__(self, *error):
        os.close(self.descriptor)

    def made(self, wait=0):
        """The (folder, name) pairs since the last call, after at most `wait` seconds for the first."""
        if not select.select([self.descriptor], [], [], wait)[0]:
            return []
        data = os.read(self.descriptor, 1 << 16)
        pairs = []
        at = 0
        while at < len(data):
            watch, _, _, length = struct.unpack_from("iIII", data, at)
            name = data[at + 16:at + 16 + length].rstrip(b"\0").decode()
            pairs.append((self.folders[watch], name))
            at += 16 + length
        return pairs
