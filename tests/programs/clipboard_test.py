# SPDX-License-Identifier: MIT
"""The clipboard that outlives the program, read back from a server of its own.

    MOBREL_CLIPBOARD=HOLDER MOBREL_PROGRAM=PROGRAM clipboard_test.py [unittest arguments]
"""

import ctypes
import fcntl
import os
import random
import resource
import select
import shutil
import signal
import struct
import subprocess
import time
import unittest
import zlib
from pathlib import Path

from handoff_folder import HandOff, config_of, remove_stray_snapshot
from x_client import ATOM, NONE, PATIENCE, XClient, XServer, copy_text, read_clipboard, xclip

HOLDER = os.environ["MOBREL_CLIPBOARD"]
PROGRAM = os.environ.get("MOBREL_PROGRAM", "")
TARGETS = ["image/png", "image/bmp", "image/x-bmp", "image/x-MS-bmp", "x-kde-force-image-copy", "TARGETS",
           "MULTIPLE", "TIMESTAMP"]
SEALS = fcntl.F_SEAL_SEAL | fcntl.F_SEAL_SHRINK | fcntl.F_SEAL_GROW | fcntl.F_SEAL_WRITE
SET_CHILD_SUBREAPER = 36


def setUpModule():
    if not shutil.which("xclip"):
        raise RuntimeError("xclip is missing (Debian: xclip)")
    # the holder, whose parent ends at once, becomes a child of this process
    ctypes.CDLL(None).prctl(SET_CHILD_SUBREAPER, 1, 0, 0, 0)


tearDownModule = remove_stray_snapshot


class Picture:
    """Noise, in the fourth byte too. `rgb` is what every reader must get, top line first."""

    def __init__(self, width, height):
        self.width = width
        self.height = height
        self.pixels = random.Random(width).randbytes(4 * width * height)
        self.rgb = bytearray(3 * width * height)
        for channel in range(3):
            self.rgb[channel::3] = self.pixels[2 - channel::4]

    def lines(self):
        return (self.rgb[at:at + 3 * self.width] for at in range(0, len(self.rgb), 3 * self.width))

    def handed_over(self):
        return struct.pack("<4sIii", b"MBCP", 1, self.width, self.height) + self.pixels

    def bmp(self):
        padding = bytes(-3 * self.width % 4)
        lines = []
        for line in self.lines():
            turned = bytearray(line)
            turned[0::3], turned[2::3] = line[2::3], line[0::3]
            lines.append(turned + padding)
        rows = b"".join(reversed(lines))
        return struct.pack("<2sIIIIiiHHIIiiII", b"BM", 54 + len(rows), 0, 54, 40, self.width, self.height, 1,
                           24, 0, len(rows), 0, 0, 0, 0) + rows


def paeth(left, above, corner):
    return min((left, above, corner), key=lambda value: abs(left + above - corner - value))


def unfiltered(kind, line, above, step):
    line = bytearray(line)
    for i in range(len(line) if kind else 0):
        left, corner = (line[i - step], above[i - step]) if i >= step else (0, 0)
        guess = (left, above[i], (left + above[i]) // 2, paeth(left, above[i], corner))[kind - 1]
        line[i] = (line[i] + guess) & 0xFF
    return line


def decoded_png(data):
    """Width, height and pixels of a PNG of 8 bits a channel without alpha (ISO/IEC 15948)."""
    assert data[:8] == b"\x89PNG\r\n\x1a\n"
    chunks = {b"IDAT": b""}
    at = 8
    while at < len(data):
        length, name = struct.unpack_from(">I4s", data, at)
        body = data[at + 8:at + 8 + length]
        assert struct.unpack_from(">I", data, at + 8 + length)[0] == zlib.crc32(name + body)
        chunks[name] = chunks.get(name, b"") + body
        at += 12 + length
    width, height, *form = struct.unpack(">IIBBBBB", chunks[b"IHDR"])
    assert form == [8, 2, 0, 0, 0]
    raw = zlib.decompress(chunks[b"IDAT"])
    assert len(raw) == height * (1 + 3 * width)
    lines = [bytes(3 * width)]
    for start in range(0, len(raw), 1 + 3 * width):
        lines.append(unfiltered(raw[start], raw[start + 1:start + 1 + 3 * width], lines[-1], 3))
    return width, height, b"".join(lines[1:])


def holders():
    """The processes that hold a picture for this test."""
    found = []
    for entry in Path("/proc").iterdir():
        if not entry.name.isdigit():
            continue
        try:
            name, rest = (entry / "stat").read_text().split("(", 1)[1].rsplit(")", 1)
        except (FileNotFoundError, ProcessLookupError):
            continue
        if name == "mobrel-clipboard"[:15] and int(rest.split()[1]) == os.getpid():
            found.append(int(entry.name))
    return found


def end_status(process):
    """Waits for a child that is none of subprocess's."""
    until = time.monotonic() + PATIENCE
    while time.monotonic() < until:
        ended, status = os.waitpid(process, os.WNOHANG)
        if ended:
            return os.waitstatus_to_exitcode(status)
        time.sleep(0.01)
    raise AssertionError("the process does not end")


def memory_file(content, seals=SEALS):
    file = os.memfd_create("picture", os.MFD_CLOEXEC | os.MFD_ALLOW_SEALING)
    with open(file, "wb", closefd=False) as writer:
        writer.write(content)
    fcntl.fcntl(file, fcntl.F_ADD_SEALS, seals)
    return file


def start_holder(display, file):
    """Starts the holder as the core does. The exit status of the process that was started, and the answer;
    closes the file."""
    reader, writer = os.pipe()
    high = [fcntl.fcntl(descriptor, fcntl.F_DUPFD_CLOEXEC, 10) for descriptor in (file, writer)]
    started = os.posix_spawn(
        HOLDER, [HOLDER], os.environ | {"DISPLAY": display}, setsid=True,
        file_actions=[(os.POSIX_SPAWN_OPEN, stream, "/dev/null", os.O_RDWR, 0) for stream in range(3)] +
                     [(os.POSIX_SPAWN_DUP2, high[0], 3), (os.POSIX_SPAWN_DUP2, high[1], 4)])
    for descriptor in (file, writer, *high):
        os.close(descriptor)
    status = end_status(started)
    answered = select.select([reader], [], [], PATIENCE)[0]
    answer = os.read(reader, 2) if answered else None
    os.close(reader)
    return status, answer


class ClipboardTest(unittest.TestCase):
    """Every test has a server of its own; whatever holder is left ends with it, or the test fails."""

    def setUp(self):
        self.server = XServer()
        self.addCleanup(self.stop_server)

    def stop_server(self):
        self.server.stop()
        for holder in holders():
            self.assertEqual(end_status(holder), 0)

    def hold(self, picture):
        """The holder's process."""
        before = holders()
        self.assertEqual(start_holder(self.server.display, memory_file(picture.handed_over())), (0, b"c"))
        new = [holder for holder in holders() if holder not in before]
        self.assertEqual(len(new), 1)
        return new[0]

    def check_clipboard(self, picture):
        self.assertTrue(read_clipboard(self.server, "image/bmp") == picture.bmp())
        width, height, rgb = decoded_png(read_clipboard(self.server, "image/png"))
        self.assertEqual((width, height), (picture.width, picture.height))
        self.assertTrue(rgb == picture.rgb)


class HolderTest(ClipboardTest):
    def test_both_formats_give_the_picture(self):
        for size in ((1, 1), (2, 3), (800, 600)):
            picture = Picture(*size)
            self.hold(picture)
            self.check_clipboard(picture)
            self.check_clipboard(picture)  # again, from what is kept

    def test_names_of_the_formats(self):
        picture = Picture(5, 4)
        self.hold(picture)
        self.assertEqual(read_clipboard(self.server, "TARGETS").decode().split(), TARGETS)
        for target in ("image/x-bmp", "image/x-MS-bmp"):
            self.assertEqual(read_clipboard(self.server, target), picture.bmp())
        self.assertEqual(read_clipboard(self.server, "x-kde-force-image-copy"), b"")

    def test_two_readers_of_more_than_one_request_can_hold(self):
        picture = Picture(2500, 2400)
        self.hold(picture)
        readers = [xclip(self.server, "-o", "-t", "image/bmp") for _ in range(2)]
        expected = picture.bmp()
        self.assertGreater(len(expected), 16 << 20)
        for reader in readers:
            self.assertTrue(reader.communicate(timeout=PATIENCE)[0] == expected)

    def test_the_next_copy_ends_it(self):
        first = self.hold(Picture(4, 4))
        picture = Picture(6, 6)
        second = self.hold(picture)
        self.assertEqual(end_status(first), 0)
        self.check_clipboard(picture)
        copy_text(self.server, b"other")
        self.assertEqual(end_status(second), 0)
        self.assertEqual(read_clipboard(self.server, "UTF8_STRING"), b"other")

    def test_the_end_of_the_server_ends_it(self):
        holder = self.hold(Picture(4, 4))
        self.server.stop()
        self.assertEqual(end_status(holder), 0)

    def test_a_hang_up_does_not_end_it(self):
        picture = Picture(4, 4)
        os.kill(self.hold(picture), signal.SIGHUP)
        self.check_clipboard(picture)

    def test_no_server(self):
        self.server.stop()
        for display in (self.server.display, "", "nonsense"):
            file = memory_file(Picture(4, 4).handed_over())
            self.assertEqual(start_holder(display, file), (0, b"d"))

    def test_files_that_are_none(self):
        good = Picture(3, 2).handed_over()
        for content, seals in (
                (good, SEALS & ~fcntl.F_SEAL_WRITE), (good, SEALS & ~fcntl.F_SEAL_SHRINK),
                (good, 0), (b"", SEALS), (good[:15], SEALS), (good[:-1], SEALS), (good + b"\0", SEALS),
                (b"mbcp" + good[4:], SEALS), (good[:4] + b"\2" + good[5:], SEALS),
                *((good[:8] + struct.pack("<ii", *sides) + good[16:], SEALS)
                  for sides in ((0, 6), (-3, -2), (3, -2), (2, 2), (1 << 30, 1 << 30), (1 << 29, 1)))):
            with self.subTest(content=content, seals=seals):
                self.assertEqual(start_holder(self.server.display, memory_file(content, seals)), (1, b""))


class ProtocolTest(ClipboardTest):
    """What xclip does not do."""

    def client(self):
        client = XClient(self.server)
        self.addCleanup(client.socket.close)
        return client

    def begin(self, client, name):
        """Asks for a BMP that comes in pieces. What the property announces."""
        self.assertEqual(client.ask("image/bmp", name), client.atom(name))
        kind, width, announced = client.take(name)
        self.assertEqual((kind, width), (client.atom("INCR"), 32))
        return struct.unpack("<I", announced)[0]

    def test_time_of_the_request(self):
        self.hold(Picture(2, 2))
        client = self.client()
        client.ask("TIMESTAMP", "A")
        since = client.take_words("A")[0]
        for moment, answer in ((since - 1, NONE), (since, client.atom("A")), (since + 1, client.atom("A")),
                               ((since + (1 << 31)) % (1 << 32), NONE)):
            self.assertEqual(client.ask("image/bmp", "A", moment), answer)

    def test_no_property_means_the_target(self):
        picture = Picture(2, 2)
        self.hold(picture)
        client = self.client()
        self.assertEqual(client.ask("image/bmp", None), client.atom("image/bmp"))
        self.assertEqual(client.take("image/bmp"), (client.atom("image/bmp"), 8, picture.bmp()))

    def test_unknown_targets_are_refused(self):
        self.hold(Picture(2, 2))
        client = self.client()
        for target in ("text/plain", "image/jpeg", "SAVE_TARGETS", "DELETE"):
            self.assertEqual(client.ask(target, "A"), NONE)

    def test_several_targets_at_once(self):
        picture = Picture(2, 2)
        self.hold(picture)
        client = self.client()
        pairs = [client.atom(name) for name in ("image/bmp", "A", "text/plain", "B", "TARGETS", "C",
                                                "MULTIPLE", "D", "image/png", "E")]
        client.set_words("LIST", "ATOM_PAIR", pairs + [client.atom("image/png"), NONE])
        self.assertEqual(client.ask("MULTIPLE", "LIST"), client.atom("LIST"))
        pairs[3] = pairs[7] = NONE
        self.assertEqual(client.take_words("LIST"), pairs + [client.atom("image/png"), NONE])
        self.assertEqual(client.take("A"), (client.atom("image/bmp"), 8, picture.bmp()))
        self.assertEqual(client.take("C")[:2], (ATOM, 32))
        self.assertEqual(decoded_png(client.take("E")[2]), (2, 2, picture.rgb))
        for missing_or_odd in ("NOTHING", "ODD"):
            client.set_words("ODD", "ATOM_PAIR", pairs[:3])
            self.assertEqual(client.ask("MULTIPLE", missing_or_odd), NONE)

    def test_transfers_are_independent(self):
        picture = Picture(900, 700)
        expected = picture.bmp()
        holder = self.hold(picture)
        client = self.client()
        with XClient(self.server) as vanishing:
            self.begin(vanishing, "A")
            for name in ("A", "B"):
                self.assertLessEqual(self.begin(client, name), len(expected))
            parts = {"A": b"", "B": b""}
            for name in ("A", "B", "B", "A"):
                kind, width, piece = client.next_piece(name)
                self.assertEqual((kind, width), (client.atom("image/bmp"), 8))
                parts[name] += piece
            vanishing.next_piece("A")
        # the turn of another program comes: what has begun is brought to its end
        client.copy()
        self.assertTrue(parts["B"] + client.all_pieces("B") == expected)
        self.assertTrue(parts["A"] + client.all_pieces("A") == expected)
        self.assertEqual(end_status(holder), 0)

    def test_a_window_that_asks_again_begins_anew(self):
        picture = Picture(900, 700)
        self.hold(picture)
        client = self.client()
        self.begin(client, "A")
        client.next_piece("A")
        self.begin(client, "A")
        self.assertTrue(client.all_pieces("A") == picture.bmp())

    def test_a_reader_that_stops_is_given_up(self):
        holder = self.hold(Picture(900, 700))
        client = self.client()
        self.begin(client, "A")
        client.next_piece("A")
        client.copy()
        self.assertEqual(end_status(holder), 0)


class ProgramTest(ClipboardTest):
    """The whole road: a host's direct command, and the clipboard when it has ended."""

    @classmethod
    def setUpClass(cls):
        if not PROGRAM:
            raise unittest.SkipTest("MOBREL_PROGRAM does not name the program")

    def run_program(self, picture, prepare=None, move=False, **environment):
        # A leak check leaves processes of the holder's name behind; other tests look for leaks.
        variables = {"DISPLAY": self.server.display, "WAYLAND_DISPLAY": None,
                     "ASAN_OPTIONS": "detect_leaks=0"} | environment
        with HandOff(PROGRAM) as host:
            if move:
                host.install_program(host.root)
            host.leave(config_of(3), picture.bmp())
            # this waits for the end of its output, too, which nobody else may keep open
            ended = host.run(prepare=prepare, **variables)
        self.assertEqual((ended.status, ended.output), (0, ""))
        return ended.errors

    def test_the_picture_outlives_the_program(self):
        for size in ((1, 1), (799, 600), (2100, 2000)):
            picture = Picture(*size)
            self.assertEqual(self.run_program(picture), "")
            self.assertTrue(read_clipboard(self.server, "image/bmp") == picture.bmp())
        picture = Picture(301, 203)
        self.run_program(picture)
        self.check_clipboard(picture)

    def test_the_holder_keeps_nothing_of_its_caller(self):
        self.run_program(Picture(4, 4), prepare=lambda: signal.signal(signal.SIGTERM, signal.SIG_IGN))
        holder, = holders()
        process = Path("/proc", str(holder))
        open_files = {int(entry.name): os.readlink(entry) for entry in (process / "fd").iterdir()}
        self.assertEqual([open_files.pop(stream) for stream in range(3)], ["/dev/null"] * 3)
        self.assertEqual([name.split(":")[0] for name in open_files.values()], ["socket"])
        self.assertEqual(os.readlink(process / "cwd"), "/")
        self.assertNotEqual(os.getsid(holder), os.getsid(0))
        status = dict(line.split(":\t", 1) for line in (process / "status").read_text().splitlines())
        self.assertEqual(status["Umask"], "0077")
        os.kill(holder, signal.SIGTERM)
        self.assertEqual(end_status(holder), -signal.SIGTERM)

    def test_odd_callers(self):
        def close_streams():
            os.closerange(0, 3)

        def ignore_children():
            signal.signal(signal.SIGCHLD, signal.SIG_IGN)

        def block_all():
            signal.pthread_sigmask(signal.SIG_BLOCK, signal.valid_signals())

        for prepare in (close_streams, ignore_children, block_all):
            with self.subTest(prepare=prepare.__name__):
                picture = Picture(20 + len(prepare.__name__), 7)
                self.assertEqual(self.run_program(picture, prepare=prepare), "")
                self.check_clipboard(picture)

    def test_without_a_display(self):
        picture = Picture(4, 4)
        self.assertEqual(self.run_program(picture, DISPLAY=None), "")
        self.assertEqual(self.run_program(picture, DISPLAY=""), "")
        self.assertRegex(self.run_program(picture, DISPLAY=None, WAYLAND_DISPLAY="wayland-0"),
                         r"\Amobrel: [^\n]*Wayland[^\n]*\n\Z")
        self.server.stop()
        self.assertEqual(self.run_program(picture), "")
        self.assertEqual([end_status(holder) for holder in holders()], [0])

    def test_without_the_holder(self):
        self.assertRegex(self.run_program(Picture(4, 4), move=True),
                         r"\Amobrel: the picture could not be put on the clipboard: [^\n]+\n\Z")

    def test_no_room_for_the_copy(self):
        def limit_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (40000, 40000))

        # the result, with 3 bytes a pixel, has room; the copy has not
        self.assertRegex(self.run_program(Picture(100, 110), prepare=limit_files),
                         r"\Amobrel: the picture could not be put on the clipboard: [^\n]+\n\Z")

    def test_a_server_that_hangs(self):
        os.kill(self.server.process.pid, signal.SIGSTOP)
        self.assertRegex(self.run_program(Picture(4, 4)),
                         r"\Amobrel: the picture could not be put on the clipboard: [^\n]+\n\Z")
        before = holders()
        self.assertEqual(len(before), 1)
        # the caller has given up: nothing is taken from whoever has the clipboard now
        os.kill(self.server.process.pid, signal.SIGCONT)
        self.assertIn(end_status(before[0]), (1, -signal.SIGALRM))
        with self.assertRaises(AssertionError):
            read_clipboard(self.server, "TARGETS")


if __name__ == "__main__":
    unittest.main()
