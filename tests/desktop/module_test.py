# SPDX-License-Identifier: MIT
"""The module with the windows, as the program opens it.

    MOBREL_PROGRAM=PROGRAM MOBREL_CORE=LIBRARY module_test.py [unittest arguments]
"""

import os
import random
import signal
import subprocess
import unittest
from pathlib import Path

from display_case import LEAKS_OF_QT, DisplayTest, require_tools
from handoff_folder import HandOff, config_of, copy_program, finished, remove_stray_snapshot
from handoff_oracle import encoded, noise, palette_file, sepia, written

PROGRAM = os.environ["MOBREL_PROGRAM"]
CORE = os.environ["MOBREL_CORE"]
LOAD_MESSAGE = "Unexpected error loading image"


def setUpModule():
    require_tools("xdotool")


tearDownModule = remove_stray_snapshot


def libraries_of(file):
    return subprocess.run(["ldd", file], capture_output=True, text=True, check=True).stdout


def small_noise():
    return noise(13, 9, random.Random(5))


class ModuleTest(DisplayTest):
    def start(self, host, **environment):
        host.root.chmod(0o700)  # Qt wants its runtime folder private
        return host.start(DISPLAY=self.server.display, XDG_RUNTIME_DIR=str(host.root), HOME=str(host.root),
                          ASAN_OPTIONS=LEAKS_OF_QT, **environment)

    def press_return(self, box):
        self.tool("xdotool", "windowfocus", "--sync", box, "key", "Return")

    def test_the_core_and_the_program_know_no_qt(self):
        module = Path(PROGRAM).parent / "libmobrel-desktop.so"
        self.assertIn("libQt6Widgets", libraries_of(module))
        for file in (CORE, PROGRAM):
            self.assertNotIn("Qt6", libraries_of(file))
            self.assertNotIn("xcb", libraries_of(file))

    def test_a_direct_command_loads_no_qt(self):
        picture = small_noise()
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), encoded(picture))
            ended = finished(self.start(host, LD_DEBUG="files"))
            self.assertEqual((ended.status, host.win_state()), (0, b"1"))
            self.assertEqual(host.picture.read_bytes(), written(sepia(picture)))
            self.assertIn("libmobrel-core", ended.errors)
            self.assertNotIn("Qt6", ended.errors)
            self.assertNotIn("libmobrel-desktop", ended.errors)

    def test_a_message_is_a_box(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), b"no picture")
            process = self.start(host)
            box = self.window("Mobrel", process)
            self.assertIsNone(host.win_state())
            self.press_return(box)
            ended = finished(process)
            self.assertEqual((ended.status, ended.errors), (0, ""))
            self.assertEqual((host.win_state(), host.snapshots()), (b"1", []))

    def test_a_fatal_error_is_a_box(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), palette_file(8))
            process = self.start(host)
            box = self.window("Mobrel", process)
            self.press_return(box)
            ended = finished(process)
            self.assertEqual((ended.status, ended.errors), (1, ""))
            self.assertEqual((host.win_state(), host.snapshots()), (None, []))

    def test_no_display_that_a_user_sees(self):
        """The message goes to standard error, and the run goes on."""
        nothing_there = r"mobrel: no window can be shown: the display does not answer\n"
        cases = {
            "none named": ({}, ""),
            "a server that does not answer": ({"DISPLAY": ":9999"}, nothing_there),
            "a compositor that does not answer": ({"WAYLAND_DISPLAY": "nothing"}, nothing_there),
            "Qt's own memory": ({"DISPLAY": self.server.display, "QT_QPA_PLATFORM": "offscreen"},
                                nothing_there),
            "a platform without a plug-in": ({"DISPLAY": self.server.display, "QT_QPA_PLATFORM": "nothing"},
                                             r"(qt\.qpa\.[^\n]*\n|[^\n]*\n)*" + nothing_there),
        }
        for name, (environment, expected) in cases.items():
            with self.subTest(name), HandOff(PROGRAM) as host:
                host.leave(config_of(15), b"no picture")
                ended = host.run(XDG_RUNTIME_DIR=str(host.root), ASAN_OPTIONS=LEAKS_OF_QT, **environment)
                self.assertEqual((ended.status, host.win_state()), (0, b"1"))
                self.assertRegex(ended.errors, f"^{expected}mobrel: {LOAD_MESSAGE}\n")

    def test_a_missing_module(self):
        with HandOff(PROGRAM) as host:
            host.program = copy_program(PROGRAM, host.root)[0]
            (host.root / "libmobrel-desktop.so").unlink(missing_ok=True)
            host.leave(config_of(15), b"no picture")
            ended = finished(self.start(host))
            self.assertEqual((ended.status, host.win_state()), (0, b"1"))
            self.assertEqual(ended.errors, "mobrel: no window can be shown: libmobrel-desktop.so is missing\n"
                             f"mobrel: {LOAD_MESSAGE}\n")

    def test_a_display_that_dies_ends_the_run_as_a_signal_does(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), encoded(small_noise()))
            # the box stands before the snapshots are cleared
            process = self.start(host, MOBREL_RESULT=str(host.root / "nowhere" / "result.bmp"))
            self.window("Mobrel", process)
            self.assertEqual(len(host.snapshots()), 1)
            self.server.stop()
            self.assertEqual(finished(process).status, -signal.SIGHUP)
            self.assertEqual(host.snapshots(), [])


if __name__ == "__main__":
    unittest.main()
