# SPDX-License-Identifier: MIT
"""A host that asks for a dialog, and a person who answers it, with the real program and a window manager.

    MOBREL_PROGRAM=PROGRAM dialog_numbers_test.py [unittest arguments]
"""

import os
import random
import signal
import struct
import unittest

from display_case import LEAKS_OF_QT, DisplayTest, require_tools
from handoff_folder import HandOff, config_of, finished, remove_stray_snapshot
from handoff_oracle import encoded, noise, written
from x_client import copy_text, read_clipboard

PROGRAM = os.environ["MOBREL_PROGRAM"]
DIALOG_NUMBERS = (5, 6, 7, 16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 29)
FATAL = "Invalid procedure call or argument"


def setUpModule():
    require_tools("xdotool", "openbox", "import")


tearDownModule = remove_stray_snapshot


def rows_of(bmp):
    """The pixels of a BMP file of 24 or 32 bits, from the bottom up, as (blue, green, red)."""
    offset = struct.unpack_from("<I", bmp, 10)[0]
    width, height = struct.unpack_from("<ii", bmp, 18)
    step = struct.unpack_from("<H", bmp, 28)[0] // 8
    stride = (width * step + 3) // 4 * 4
    rows = [[tuple(bmp[offset + y * stride + x * step:][:3]) for x in range(width)] for y in range(abs(height))]
    return rows if height > 0 else rows[::-1]


class DialogTest(DisplayTest):
    def setUp(self):
        super().setUp()
        self.start_window_manager()
        self.picture = noise(61, 43, random.Random(9))
        self.file = encoded(self.picture)
        copy_text(self.server, b"what was there before")

    def open(self, host, number, **environment):
        host.leave(config_of(number), self.file)
        return self.start(host, **environment)

    def start(self, host, **environment):
        host.root.chmod(0o700)  # Qt wants its runtime folder private
        process = host.start(DISPLAY=self.server.display, XDG_RUNTIME_DIR=str(host.root), HOME=str(host.root),
                             ASAN_OPTIONS=LEAKS_OF_QT, **environment)
        self.filter_window = self.window("Filter", process)
        self.activate(self.filter_window)
        return process

    def activate(self, window):
        self.tool("xdotool", "windowactivate", "--sync", window)

    def keys(self, *keys):
        """A button that is pressed by its letter stays down for 100 ms."""
        for key in keys:
            self.tool("xdotool", "key", key, "sleep", "0.15" if key.startswith("alt") else "0.05")

    def preview_and_apply(self, process, is_applied):
        """Apply hears nothing before the preview is done, and once afterwards."""
        self.keys("alt+p")

        def press():
            self.keys("alt+a")
            return is_applied()
        self.wait_for(press, "effect of Apply", process)

    def dismiss_fatal_error(self, process):
        self.activate(self.window("Mobrel", process))
        self.keys("Return")

    def clipboard_rows(self):
        return rows_of(read_clipboard(self.server, "image/bmp"))

    def test_apply(self):
        for number in DIALOG_NUMBERS:
            with self.subTest(number), HandOff(PROGRAM) as host:
                process = self.open(host, number, MOBREL_RESULT=str(host.root / "result.bmp"))
                self.preview_and_apply(process, host.win_state)
                self.dismiss_fatal_error(process)
                ended = finished(process)
                self.assertEqual((ended.status, ended.errors), (1, ""))
                self.assertEqual(host.win_state(), b"1")
                self.assertEqual(host.picture.read_bytes(), self.file)
                self.assertEqual(host.snapshots(), [])
                rows = self.clipboard_rows()
                self.assertEqual(rows_of((host.root / "result.bmp").read_bytes()), rows)
                if number == 27:
                    self.assertEqual(rows, self.picture.mapped(lambda p: tuple(255 - c for c in p)).rows)

    def test_close(self):
        """By its button, by Escape, and by the window manager."""
        endings = (lambda: self.keys("alt+c"), lambda: self.keys("Escape"), lambda: self.keys("alt+F4"))
        for number in DIALOG_NUMBERS:
            with self.subTest(number), HandOff(PROGRAM) as host:
                process = self.open(host, number)
                self.keys("alt+p")
                endings[number % 3]()
                ended = finished(process)
                self.assertEqual((ended.status, ended.errors), (0, ""))
                self.assertEqual((host.win_state(), host.snapshots()), (None, []))
                self.assertEqual(host.picture.read_bytes(), self.file)
                self.assertEqual(self.clipboard_rows(), self.picture.rows)

    def width(self):
        geometry = self.tool("xdotool", "getwindowgeometry", "--shell", self.filter_window)
        return int(geometry.split("WIDTH=")[1].split()[0])

    def colours(self, width, height, x, y):
        """What is seen in a rectangle of the dialog."""
        rows = self.tool("import", "-window", self.filter_window, "-crop", f"{width}x{height}+{x}+{y}", "txt:-")
        return {row.split()[2] for row in rows.splitlines()[1:]}

    def test_a_dialog_that_shrinks(self):
        """What has moved leaves nothing behind."""
        with HandOff(PROGRAM) as host:
            process = self.open(host, 27)
            before = self.width()
            self.tool("xdotool", "windowsize", self.filter_window, "100", "100")
            self.wait_for(lambda: self.width() < before, "smaller window")
            ground = self.colours(1, 1, 3, 60)
            self.wait_for(lambda: self.colours(1, 90, self.width() // 2, 60) == ground, "gap between the panes")
            self.keys("Escape")
            finished(process)

    def test_apply_in_a_dialog_that_stays(self):
        for number in DIALOG_NUMBERS:
            with self.subTest(number), HandOff(PROGRAM) as host:
                process = self.open(host, number)
                self.keys("alt+d")
                self.preview_and_apply(process, lambda: len(host.snapshots()) == 1)
                self.assertEqual(host.win_state(), b"1")
                self.preview_and_apply(process, lambda: len(host.snapshots()) == 2)
                self.keys("alt+c")
                ended = finished(process)
                self.assertEqual((ended.status, ended.errors, host.snapshots()), (0, "", []))
                self.assertEqual(host.picture.read_bytes(), self.file)
                if number == 27:
                    self.assertEqual(self.clipboard_rows(), self.picture.rows)  # the negative of the negative

    def test_enter_is_what_comes_next(self):
        """Also on the button that has just been pressed."""
        with HandOff(PROGRAM) as host:
            process = self.open(host, 27)
            self.keys("Tab", "Tab", "space", "Tab", "space", "Return")
            self.wait_for(lambda: len(host.snapshots()) == 1, "snapshot", process)
            self.keys("Return", "Return")
            self.wait_for(lambda: len(host.snapshots()) == 2, "snapshot", process)
            self.keys("Escape")
            self.assertEqual(finished(process).status, 0)
            self.assertEqual(self.clipboard_rows(), self.picture.rows)  # the negative of the negative

    def test_a_slider_by_the_keyboard(self):
        with HandOff(PROGRAM) as host:
            process = self.open(host, 29)
            self.keys("Tab", "End")
            self.preview_and_apply(process, host.win_state)
            self.dismiss_fatal_error(process)
            finished(process)
            self.assertEqual(self.clipboard_rows(), self.picture.mapped(lambda p: (255, 255, 255)).rows)

    def test_terminated_in_the_middle(self):
        endings = (signal.SIGTERM, signal.SIGINT, signal.SIGHUP)
        for number in DIALOG_NUMBERS:
            with self.subTest(number), HandOff(PROGRAM) as host:
                process = self.open(host, number)
                self.keys("alt+d")
                self.preview_and_apply(process, lambda: len(host.snapshots()) == 1)
                process.send_signal(endings[number % 3])
                self.assertEqual(finished(process).status, -endings[number % 3])
                self.assertEqual((host.snapshots(), host.picture.read_bytes()), ([], self.file))

    def test_the_display_is_lost(self):
        with HandOff(PROGRAM) as host:
            process = self.open(host, 27)
            self.keys("alt+d")
            self.preview_and_apply(process, lambda: len(host.snapshots()) == 1)
            self.server.stop()
            self.assertEqual(finished(process).status, -signal.SIGHUP)
            self.assertEqual((host.snapshots(), host.picture.read_bytes()), ([], self.file))

    def test_no_picture(self):
        """The dialog stands on an empty surface, and everything in it can be pressed."""
        for picture in (None, b"BM, but no picture"):
            with self.subTest(picture), HandOff(PROGRAM) as host:
                host.leave(config_of(18), picture)
                host.root.chmod(0o700)
                process = host.start(DISPLAY=self.server.display, XDG_RUNTIME_DIR=str(host.root),
                                     HOME=str(host.root), ASAN_OPTIONS=LEAKS_OF_QT)
                self.activate(self.window("Mobrel", process))
                self.keys("Return")
                self.activate(self.window("Filter", process))
                self.keys("Tab", "End", "alt+d")
                self.preview_and_apply(process, host.win_state)
                self.keys("alt+p", "alt+c")
                ended = finished(process)
                self.assertEqual((ended.status, ended.errors, host.win_state()), (0, "", b"1"))

    def test_settings_that_are_no_numbers(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(18), self.file)
            host.settings.write_text("[Options]\nFilterBeforeFit=yes\n")
            host.root.chmod(0o700)
            process = host.start(DISPLAY=self.server.display, XDG_RUNTIME_DIR=str(host.root),
                                 HOME=str(host.root), ASAN_OPTIONS=LEAKS_OF_QT)
            self.dismiss_fatal_error(process)
            ended = finished(process)
            self.assertEqual((ended.status, host.win_state(), host.snapshots()), (1, None, []))
            self.assertEqual(host.picture.read_bytes(), self.file)

    def test_two_copies_at_once(self):
        with HandOff(PROGRAM) as first, HandOff(PROGRAM) as second:
            one = self.open(first, 27)
            self.keys("alt+d")
            self.preview_and_apply(one, lambda: len(first.snapshots()) == 1)
            second.leave(config_of(3), self.file)
            ended = second.run(tmp=str(first.temporary))
            self.assertEqual((ended.status, second.win_state()), (0, b"1"))
            self.assertEqual(second.picture.read_bytes(), written(self.picture))
            self.assertEqual(len(first.snapshots()), 1)
            self.keys("Escape")
            self.assertEqual(finished(one).status, 0)


if __name__ == "__main__":
    unittest.main()
