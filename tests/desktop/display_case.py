# SPDX-License-Identifier: MIT
"""Tests of programs that show windows, on a server of their own."""

import os
import re
import shutil
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from x_client import PATIENCE, XServer

# Its fonts and plug-ins stay until the process ends.
LEAKS_OF_QT = "detect_leaks=0"


def require_tools(*tools):
    for tool in tools:
        if not shutil.which(tool):
            raise RuntimeError(f"{tool} is missing (Debian: xdotool, imagemagick, openbox)")


class DisplayTest(unittest.TestCase):
    def setUp(self):
        self.server = XServer(screen="1366x768x24")
        self.addCleanup(self.server.stop)

    def start_window_manager(self):
        """It gives windows frames and the keyboard, as a user's does."""
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        stands = Path(folder.name) / "stands"
        # Its properties are there earlier, and a window that comes between is never shown.
        manager = subprocess.Popen(["openbox", "--sm-disable", "--startup", f"touch {stands}"],
                                   env=os.environ | {"DISPLAY": self.server.display}, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.addCleanup(manager.wait)
        self.addCleanup(manager.kill)
        self.wait_for(stands.exists, "window manager")

    def tool(self, *command, check=True):
        return subprocess.run(command, env=os.environ | {"DISPLAY": self.server.display}, capture_output=True,
                              text=True, timeout=PATIENCE, check=check).stdout

    def wait_for(self, answer, what, process=None):
        """The first answer that says something."""
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until:
            found = answer()
            if found:
                return found
            if process is not None and process.poll() is not None:
                raise AssertionError(f"ended with {process.returncode}: {process.stderr.read().decode()}")
            time.sleep(0.02)
        raise AssertionError(f"no {what}")

    def window(self, name, process):
        """The number of the visible window of that name; a window manager adds the program's to it."""
        pattern = f"^{re.escape(name)}( — Mobrel)?$"
        found = self.wait_for(
            lambda: self.tool("xdotool", "search", "--onlyvisible", "--name", pattern, check=False).split(),
            f"window {name}", process)
        return found[-1]
