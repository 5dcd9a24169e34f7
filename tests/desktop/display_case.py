# SPDX-License-Identifier: MIT
"""Tests of programs that show windows, on a server of their own."""

import os
import shutil
import subprocess
import time
import unittest

from x_client import PATIENCE, XServer

# Its fonts and plug-ins stay until the process ends.
LEAKS_OF_QT = "detect_leaks=0"


def require_tools(*tools):
    for tool in tools:
        if not shutil.which(tool):
            raise RuntimeError(f"{tool} is missing (Debian: xdotool, imagemagick)")


class DisplayTest(unittest.TestCase):
    def setUp(self):
        self.server = XServer(screen="1280x1024x24")
        self.addCleanup(self.server.stop)

    def tool(self, *command, check=True):
        return subprocess.run(command, env=os.environ | {"DISPLAY": self.server.display}, capture_output=True,
                              text=True, timeout=PATIENCE, check=check).stdout

    def window(self, name, process):
        """The number of the visible window of that name."""
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until:
            found = self.tool("xdotool", "search", "--onlyvisible", "--name", f"^{name}$", check=False).split()
            if found:
                return found[-1]
            if process.poll() is not None:
                raise AssertionError(f"ended with {process.returncode}: {process.stderr.read().decode()}")
            time.sleep(0.02)
        raise AssertionError(f"no window {name}")
