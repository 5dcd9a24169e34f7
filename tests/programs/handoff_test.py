# SPDX-License-Identifier: MIT
"""The hand-off from end to end: the real program in fresh folders.

    handoff_test.py PROGRAM [unittest arguments]
"""

import os
import random
import re
import resource
import signal
import sys
import unittest

from handoff_folder import (SECTION, STRAY_SNAPSHOT, STRAY_WAS_THERE, FolderWatch, HandOff, config_of,
                            finished, remove_stray_snapshot)
from handoff_oracle import (Picture, despeckled, encoded, file_of, five_bits, in_greys, in_two_tones, noise,
                            palette_file, sepia, written)

PROGRAM = ""
LOAD_MESSAGE = "Unexpected error loading image"
SNAPSHOT_NAME = re.compile(r"b(\d{10})(\d{3})\.dat")

WRITES_BACK = ["3", "03", " 3 ", "+3", "3e0", "0", "-1", "30", "99", "3.5", "15.5", "-15", "1e9",
               "4294967311", '"3"', "0" * 253 + "15"]  # the last is cut behind its 254th character
SEPIA = ["15", "015", " 15 ", "+15", "15.0", "1.5e1", "150e-1", "'15'"]
DESPECKLES = ["28", "028", "2.8e1"]
DIALOGS = [str(number) for number in (5, 6, 7, *range(16, 28), 29)]
NO_NUMBERS = ["", "abc", "15x", "1 5", "0x0F", "15,0", "--3", "e1", "1e999", "nan", "inf", "ERROR"]


def setUpModule():
    os.umask(0o022)  # the unprivileged user of a test reads what is written here


tearDownModule = remove_stray_snapshot


def lose_the_reader():
    """Of standard error."""
    reader, writer = os.pipe()
    os.dup2(writer, 2)
    os.close(reader)


def limit_files():
    resource.setrlimit(resource.RLIMIT_FSIZE, (100 * 1024, 100 * 1024))


def small_noise():
    return noise(13, 9, random.Random(5))


class HandOffTest(unittest.TestCase):
    def check_done(self, host, ended, expected):
        self.assertEqual((ended.status, ended.errors, ended.output), (0, "", ""))
        self.assertEqual(host.picture.read_bytes(), expected)
        self.assertEqual(host.win_state(), b"1")
        self.assertEqual(host.entries(), ["Mobrel.ini", "config.ini", "temp.bmp"])
        self.assertEqual(host.snapshots(), [])

    def check_refused(self, host, ended, config, picture):
        """The run could not do its task: nothing of the host's is touched."""
        self.assertEqual((ended.status, ended.output), (1, ""))
        self.assertRegex(ended.errors, r"^mobrel: [^\n]+\n$")
        self.assertEqual(host.picture.read_bytes(), picture)
        self.assertEqual(host.config.read_bytes() if host.config.exists() else None, config)
        self.assertEqual(host.snapshots(), [])


class NumberTest(HandOffTest):
    def run_all(self, numbers, picture, expected):
        for number in numbers:
            with self.subTest(number=number), HandOff(PROGRAM) as host:
                host.leave(config_of(number), encoded(picture))
                self.check_done(host, host.run(), expected)

    def test_a_number_without_a_task_writes_the_picture_back(self):
        picture = small_noise()
        self.run_all(WRITES_BACK, picture, written(picture))

    def test_sepia(self):
        every_brightness = Picture(766, 2, lambda x, y: (x // 3, (x + 1) // 3, (x + 2) // 3)[::1 - 2 * y])
        self.run_all(SEPIA[:1], every_brightness, written(sepia(every_brightness)))
        picture = small_noise()
        self.run_all(SEPIA, picture, written(sepia(picture)))

    def test_despeckle(self):
        for width, height in ((1, 1), (2, 7), (7, 2), (3, 3), (41, 29)):
            picture = noise(width, height, random.Random(width))
            self.run_all(DESPECKLES[:1], picture, written(despeckled(picture)))
        speck = Picture(9, 9, lambda x, y: (0, 0, 0) if (x, y) == (4, 4) else (255, 255, 255))
        self.run_all(DESPECKLES, speck, written(despeckled(speck)))

    def test_depths_without_an_error_to_spread(self):
        for width in (1, 3, 8, 9, 33):
            tones = Picture(width, 4, lambda x, y: (0, 0, 0) if (x + y) % 3 else (255, 255, 255))
            for number, bits in (("8", 1), ("11", 1), ("9", 4)):
                self.run_all([number], tones, in_two_tones(tones, bits))
        picture = small_noise()
        self.run_all(["10"], picture, in_greys(picture))
        self.run_all(["13", "14"], picture, written(picture))

    def test_sixteen_colours_are_the_sixteen_most_frequent_ones(self):
        # colour i stands i + 1 times; few colours are neither merged nor do they leave an error
        colours = [(17 * (i % 4), 85 * (i // 4), 255) for i in (0, 1, 5, 10, 15)]
        pixels = [colour for i, colour in enumerate(colours) for _ in range(i + 1)]
        picture = Picture(5, 3, lambda x, y: pixels[5 * y + x])
        with HandOff(PROGRAM) as host:
            host.leave(config_of(12), encoded(picture))
            self.assertEqual(host.run().status, 0)
            file = host.picture.read_bytes()
        self.assertEqual((len(file), file[28], file[10]), (118 + 3 * 4, 4, 118))
        table = [tuple(file[54 + 4 * i:57 + 4 * i]) for i in range(16)]
        self.assertEqual(table, colours[::-1] + [(0, 0, 0)] * 11)

    def test_what_cannot_be_done_yet_is_refused(self):
        picture = encoded(small_noise())
        for number in (*DIALOGS, *NO_NUMBERS):
            with self.subTest(number=number), HandOff(PROGRAM) as host:
                host.leave(config_of(number) + b"WinState=0\r\n", picture)
                before = host.picture.stat()
                self.check_refused(host, host.run(), config_of(number) + b"WinState=0\r\n", picture)
                after = host.picture.stat()
                self.assertEqual((after.st_ino, after.st_mtime_ns), (before.st_ino, before.st_mtime_ns))

    def test_arguments_are_ignored(self):
        picture = small_noise()
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), encoded(picture))
            self.check_done(host, host.run(arguments=["--help", "15", "x.bmp"]), written(sepia(picture)))


class ConfigTest(HandOffTest):
    # what the host leaves, and what stands there afterwards; None: the run is refused
    CASES = {
        "CR LF": (config_of(3), config_of(3) + b"WinState=1\r\n"),
        "LF": (b"[ZV-HARBORLY]\nFilter=3\n", b"[ZV-HARBORLY]\nFilter=3\nWinState=1\n"),
        "CR": (b"[ZV-HARBORLY]\rFilter=3\r", b"[ZV-HARBORLY]\rFilter=3\rWinState=1\r"),
        "no end of the last line": (SECTION + b"Filter=3", config_of(3) + b"WinState=1\r\n"),
        "an old flag": (config_of(3) + b"WinState=0\r\n", config_of(3) + b"WinState=1\r\n"),
        "a flag that stands already": (config_of(3) + b"WinState=1\n;end",
                                       config_of(3) + b"WinState=1\n;end"),
        "only its own line changes": (
            b"; host\n[Other]\r\nFilter=5\n\n[zv-harborly]\r\n filter = 3\n\nWinState=0\r\n\r\n[Z]\nx = 1",
            b"; host\n[Other]\r\nFilter=5\n\n[zv-harborly]\r\n filter = 3\n\nWinState=1\r\n\r\n[Z]\nx = 1"),
        "a new key ends its section": (SECTION + b"Filter=3\r\n; note\r\n\r\n[Z]\r\nx=1\r\n",
                                       SECTION + b"Filter=3\r\n; note\r\nWinState=1\r\n\r\n[Z]\r\nx=1\r\n"),
        "the first section counts": (config_of(3) + config_of(5),
                                     config_of(3) + b"WinState=1\r\n" + config_of(5)),
        "a mark of UTF-8": (b"\xef\xbb\xbf" + config_of(3),
                            b"\xef\xbb\xbf" + config_of(3) + b"WinState=1\r\n"),
        "a line of 1 MB": (b"x" * (1 << 20) + b"\r\n" + config_of(3),
                           b"x" * (1 << 20) + b"\r\n" + config_of(3) + b"WinState=1\r\n"),
        "bytes of no meaning": (b"\0\xff\0=\v\x01" * 99 + b"\r\n" + config_of(3),
                                b"\0\xff\0=\v\x01" * 99 + b"\r\n" + config_of(3) + b"WinState=1\r\n"),
        "no file": (None, None),
        "an empty file": (b"", None),
        "no key": (SECTION + b"WinState=0\r\n", None),
        "the key elsewhere": (b"[Other]\r\nFilter=3\r\n[ZV-HARBORLY]\r\n", None),
        "the key in the second section": (SECTION + b"a=1\r\n" + config_of(3), None),
        "a commented key": (SECTION + b";Filter=3\r\n", None),
        "only garbage": (bytes(range(256)) * 64, None),
    }

    def test_files(self):
        picture = small_noise()
        for name, (config, expected) in self.CASES.items():
            with self.subTest(name), HandOff(PROGRAM) as host:
                host.leave(config, encoded(picture))
                ended = host.run()
                if expected is None:
                    self.check_refused(host, ended, config, encoded(picture))
                else:
                    self.check_done(host, ended, written(picture))
                    self.assertEqual(host.config.read_bytes(), expected)


class PictureTest(HandOffTest):
    def test_forms_of_a_true_colour_file(self):
        picture = small_noise()
        forms = {
            "bottom-up": (encoded(picture), picture),
            "top-down": (encoded(picture, top_down=True), picture),
            "32 bits": (encoded(picture, bits=32), picture),
            "16 bits": (encoded(picture, bits=16), five_bits(picture)),
            "a gap before the rows": (encoded(picture, gap=b"gap" * 7), picture),
            "padding that is not 0": (encoded(picture, padding=b"\xa5"), picture),
            "bytes behind the rows": (encoded(picture, tail=b"tail"), picture),
            "what the program writes": (written(picture), picture),
        }
        for name, (file, expected) in forms.items():
            with self.subTest(name), HandOff(PROGRAM) as host:
                host.leave(config_of(3), file)
                self.check_done(host, host.run(), written(expected))

    def test_a_picture_that_cannot_be_loaded_is_left_alone(self):
        whole = encoded(small_noise())
        claims = whole[:18] + (30000).to_bytes(4, "little") * 2 + whole[26:60]
        files = {"none": None, "empty": b"", "two letters": b"BM", "half": whole[:len(whole) // 2],
                 "more than there is": claims, "noise": random.Random(1).randbytes(4096),
                 "a text": b"GIF?" * 99}
        for name, file in files.items():
            for number in (3, 15, 28):
                with self.subTest(name, number=number), HandOff(PROGRAM) as host:
                    host.leave(config_of(number), file)
                    ended = host.run()
                    self.assertEqual((ended.status, ended.errors), (0, f"mobrel: {LOAD_MESSAGE}\n"))
                    self.assertEqual(host.picture.read_bytes() if host.picture.exists() else None, file)
                    self.assertEqual(host.win_state(), b"1")
                    self.assertEqual(host.snapshots(), [])

    def test_a_folder_in_place_of_the_picture(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), None)
            host.picture.mkdir()
            ended = host.run()
            self.assertEqual((ended.status, host.win_state()), (0, b"1"))
            self.assertIn(LOAD_MESSAGE, ended.errors)
            self.assertTrue(host.picture.is_dir())

    def test_a_palette_picture_ends_the_run_at_once(self):
        for bits in (1, 4, 8):
            for number in (3, 15):
                with self.subTest(bits=bits, number=number), HandOff(PROGRAM) as host:
                    host.leave(config_of(number), palette_file(bits))
                    ended = host.run()
                    self.check_refused(host, ended, config_of(number), palette_file(bits))
                    self.assertIn("Object variable or With block variable not set", ended.errors)


class FolderTest(HandOffTest):
    def test_ways_to_name_the_program_folder(self):
        picture = small_noise()
        for name in ("plain", "two words", "Grüße", "d" * 200):
            for form in ("{folder}", "{folder}/", "{name}"):
                with self.subTest(name=name, form=form), HandOff(PROGRAM, name) as host:
                    host.leave(config_of(15), encoded(picture))
                    folder = form.format(folder=host.folder, name=name)
                    self.check_done(host, host.run(MOBREL_FOLDER=folder), written(sepia(picture)))

    def test_the_folder_of_the_program_is_the_default(self):
        picture = small_noise()
        for variable in (None, ""):
            with self.subTest(variable=variable), HandOff(PROGRAM) as host:
                installed = host.install_program(host.folder)
                link = host.root / "link to the program"
                link.symlink_to(host.program)
                host.program = link
                host.leave(config_of(15), encoded(picture))
                ended = host.run(MOBREL_FOLDER=variable)
                for file in installed:
                    file.unlink()
                self.check_done(host, ended, written(sepia(picture)))

    def test_a_folder_that_does_not_exist(self):
        with HandOff(PROGRAM) as host:
            ended = host.run(MOBREL_FOLDER=str(host.root / "nowhere"))
            self.assertEqual(ended.status, 1)
            self.assertIn(LOAD_MESSAGE, ended.errors)
            self.assertFalse((host.root / "nowhere").exists())

    def test_what_cannot_be_written_does_not_end_the_run(self):
        """Neither messages without a reader nor a limit on the size of files."""
        picture = encoded(noise(300, 200, random.Random(5)))
        for prepare, left in ((lose_the_reader, None), (limit_files, picture)):
            with self.subTest(prepare.__name__), HandOff(PROGRAM) as host:
                host.leave(config_of(15), left)
                ended = host.run(prepare=prepare)
                self.assertEqual(ended.status, 0)
                self.assertEqual(host.win_state(), b"1")
                self.assertEqual(host.snapshots(), [])

    def test_a_folder_that_cannot_be_written(self):
        """Both files are written in place where they allow it; a longer old picture keeps its tail then."""
        picture = small_noise()
        original = encoded(picture, tail=b"tail")
        for mode, expected in ((0o444, original), (0o666, written(sepia(picture)) + b"tail")):
            with self.subTest(mode=oct(mode)), HandOff(PROGRAM) as host:
                host.leave(config_of(15), original)
                host.picture.chmod(mode)
                host.config.chmod(mode)
                inode = host.picture.stat().st_ino
                host.install_program(host.root)  # the build folder may be closed to others
                host.folder.chmod(0o555)
                ended = host.run(as_nobody=os.geteuid() == 0)
                self.assertEqual(ended.status, 0)
                self.assertEqual(host.picture.read_bytes(), expected)
                self.assertEqual(host.picture.stat().st_ino, inode)
                self.assertEqual(host.win_state(), b"1" if mode == 0o666 else None)
                self.assertEqual(host.entries(), ["config.ini", "temp.bmp"])
                self.assertEqual(host.snapshots(), [])


class SettingsTest(HandOffTest):
    def test_a_new_file(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(3), encoded(small_noise()))
            host.run()
            number = r"-?\d+(\.\d+)?"
            place = [f"{key}={number}" for key in ("MainWidth", "MainHeight", "MainTop", "MainLeft")]
            lines = [r"\[Forms\]", *place, "MainWindowState=0",
                     r"\[Folders\]", "MainLastPath=" + re.escape(str(host.picture)),
                     r"\[Options\]", "MainDialogPreview=False", "MainDialogFitMode=False",
                     "MainDialogJPEGquality=0"]
            text = host.settings.read_bytes().decode()
            self.assertIsNotNone(re.fullmatch("\r\n".join([*lines, ""]), text), text)

    def test_what_others_wrote_stays(self):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(99), encoded(small_noise()))
            host.settings.write_bytes(b"; mine\n[Options]\nMainDialogFitMode=True\nFilterNoClose=1\n")
            host.run()
            lines = host.settings.read_bytes().split(b"\n")[:4]
            self.assertEqual(lines, [b"; mine", b"[Options]", b"MainDialogFitMode=False", b"FilterNoClose=1"])


class SnapshotTest(HandOffTest):
    def first_snapshot(self, picture):
        with HandOff(PROGRAM) as host:
            host.leave(config_of(15), encoded(picture))
            host.run()
        return STRAY_SNAPSHOT.read_bytes() if STRAY_SNAPSHOT.exists() else None

    def test_the_first_one_goes_to_the_root_folder(self):
        picture = small_noise()
        if os.access("/", os.W_OK):
            # the file is one for the whole machine: somebody else's run may come between
            self.assertTrue(any(self.first_snapshot(picture) == written(picture) for _ in range(5)))
        elif not STRAY_WAS_THERE:
            self.assertIsNone(self.first_snapshot(picture))

    def test_the_temporary_folder(self):
        """Which variable names it; a snapshot is made there, nowhere else, and is gone at the end."""
        cases = [
            ({"tmp": "A", "temp": "B", "TMPDIR": "C"}, "A"),
            ({"TMP": "A", "temp": "B", "TMPDIR": "C"}, "A"),
            ({"tmp": "", "Temp": "B", "TMPDIR": "C"}, "B"),
            ({"temp": "B", "TMPDIR": "C"}, "B"),
            ({"TMPDIR": "C"}, "C"),
        ]
        for variables, expected in cases:
            with self.subTest(variables), HandOff(PROGRAM) as host:
                folders = {name: host.root / name for name in "ABC"}
                for folder in folders.values():
                    folder.mkdir()
                host.leave(config_of(15), encoded(small_noise()))
                environment = {key: str(folders[value]) if value else "" for key, value in variables.items()}
                with FolderWatch(*folders.values(), host.temporary) as watch:
                    self.assertEqual(host.run(**{"tmp": None} | environment).status, 0)
                    made = watch.made()
                self.assertEqual([folder for folder, name in made], [folders[expected]])
                self.assertRegex(made[0][1], SNAPSHOT_NAME)
                self.assertEqual(list(folders[expected].iterdir()), [])

    def test_a_temporary_folder_that_does_not_exist_stops_nothing(self):
        picture = small_noise()
        with HandOff(PROGRAM) as host:
            host.leave(config_of(28), encoded(picture))
            self.check_done(host, host.run(tmp=str(host.root / "nowhere")), written(despeckled(picture)))

    def test_copies_that_run_at_once_keep_apart(self):
        hosts = [HandOff(PROGRAM) for _ in range(4)]
        shared = hosts[0].temporary
        (shared / "b1234567890000.dat").write_bytes(b"another copy's")
        picture = noise(300, 200, random.Random(4))
        with hosts[0], hosts[1], hosts[2], hosts[3], FolderWatch(shared) as watch:
            for host in hosts:
                host.leave(config_of(15), encoded(picture))
            processes = [host.start(tmp=str(shared)) for host in hosts]
            ended = [finished(process) for process in processes]
            handles = {SNAPSHOT_NAME.fullmatch(name)[1] for _, name in watch.made()}
            (shared / "b1234567890000.dat").unlink()
            for host, end in zip(hosts, ended):
                self.check_done(host, end, written(sepia(picture)))
        self.assertEqual(len(handles), 4)

    def test_an_ended_run_leaves_no_snapshot_and_a_whole_picture(self):
        """Ended while the snapshot of a large picture is being written."""
        pixels = 5000 * 4000
        color = (30, 90, 200)
        original = file_of(5000, 4000, bytes(color) * pixels)
        toned = sepia(Picture(1, 1, lambda x, y: color)).rows[0][0]
        result = file_of(5000, 4000, bytes(toned) * pixels)
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number), HandOff(PROGRAM) as host, FolderWatch(host.temporary) as watch:
                host.leave(config_of(15), original)
                process = host.start(prepare=lambda: signal.signal(number, signal.SIG_DFL))
                made = watch.made(wait=100)
                self.assertEqual(len(made), 1)
                self.assertEqual((host.temporary / made[0][1]).stat().st_mode & 0o777, 0o600)
                process.send_signal(number)
                self.assertEqual(finished(process).status, -number)
                self.assertEqual(host.snapshots(), [])
                self.assertTrue(host.picture.read_bytes() in (original, result))
                self.assertIsNone(host.win_state())


class ModuleTest(HandOffTest):
    """The module that reads what is no BMP, and the libraries that it needs."""

    JPEG = b"\xff\xd8\xff"  # broken behind its first bytes
    LIBRARY = re.compile(r"file=(?:.*/)?(libmobrel-codecs|libpng|libjpeg|libgif|libzimg|libz)\d*\.so"
                         r".* generating link map")

    def test_a_bitmap_does_without_it(self):
        libraries = {"libmobrel-codecs", "libpng", "libjpeg", "libgif", "libzimg", "libz"}
        for picture, expected in ((encoded(small_noise()), set()), (self.JPEG, libraries)):
            with self.subTest(picture[:3]), HandOff(PROGRAM) as host:
                host.leave(config_of(15), picture)
                ended = host.run(LD_DEBUG="files", LD_DEBUG_OUTPUT=str(host.root / "loaded"))
                self.assertEqual(ended.errors, f"mobrel: {LOAD_MESSAGE}\n" if expected else "")
                loaded = "".join(path.read_text() for path in host.root.glob("loaded.*"))
                self.assertIn("libmobrel-core.so", loaded)
                self.assertEqual(set(self.LIBRARY.findall(loaded)), expected)

    def test_where_it_is_missing_only_bitmaps_are_read(self):
        bitmap = small_noise()
        for picture, errors, left in ((encoded(bitmap), "", written(sepia(bitmap))),
                                      (self.JPEG, f"mobrel: {LOAD_MESSAGE}\n", self.JPEG)):
            with self.subTest(picture[:3]), HandOff(PROGRAM) as host:
                host.install_program(host.root)
                (host.root / "libmobrel-codecs.so").unlink()
                host.leave(config_of(15), picture)
                ended = host.run()
                self.assertEqual((ended.status, ended.errors, host.win_state()), (0, errors, b"1"))
                self.assertEqual(host.picture.read_bytes(), left)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    unittest.main()
