# SPDX-License-Identifier: MIT
"""The batch program, end to end. MOBREL_BATCH of the environment names it."""

import fcntl
import json
import os
import pty
import random
import re
import resource
import select
import shutil
import signal
import struct
import subprocess
import tempfile
import termios
import time
import unittest
from pathlib import Path

from handoff_folder import copy_program
from handoff_oracle import despeckled, encoded, in_greys, noise, palette_file, sepia, written

DOCUMENT = Path(__file__).resolve().parents[2] / "docs" / "batch.md"
NOBODY = 65534
IS_ROOT = os.geteuid() == 0
AS_NOBODY = {"user": NOBODY, "group": NOBODY, "extra_groups": []} if IS_ROOT else {}
# What the caller ignores would stay ignored.
SIGNALS = (signal.SIGINT, signal.SIGTERM, signal.SIGHUP)


PROGRAM = ""


def setUpModule():
    """The tests run a copy: the build folder may be closed to the user whom some of them become."""
    global PROGRAM
    folder = tempfile.mkdtemp(prefix="mobrel-batch-program-")
    unittest.addModuleCleanup(shutil.rmtree, folder)
    os.chmod(folder, 0o755)
    PROGRAM = str(copy_program(os.environ["MOBREL_BATCH"], folder)[0])


def negative(picture):
    return picture.mapped(lambda pixel: tuple(255 - value for value in pixel))


def small(seed=1):
    return noise(7, 5, random.Random(seed))


def wait_for(condition):
    """Until it holds; an error after a long time."""
    end = time.monotonic() + 100
    while not condition():
        if time.monotonic() > end:
            raise TimeoutError("nothing happened")
        time.sleep(0.005)


class BatchTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="mobrel-batch-"))
        self.root.chmod(0o777)
        self.addCleanup(shutil.rmtree, self.root)
        self.out = self.folder("out")

    def folder(self, name):
        folder = self.root / name
        folder.mkdir()
        folder.chmod(0o777)
        return folder

    def leave(self, name, content=None):
        """Writes a file, a small picture where nothing is told; its name as it was given."""
        path = os.path.join(os.fsencode(self.root), os.fsencode(name))
        with open(path, "wb") as file:
            file.write(written(small()) if content is None else content)
        return name

    def read(self, name):
        with open(os.path.join(os.fsencode(self.root), os.fsencode(name)), "rb") as file:
            return file.read()

    def start(self, *arguments, **how):
        how = {"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | how
        return subprocess.Popen([PROGRAM, *arguments], cwd=self.root, **how)

    def run_batch(self, *arguments, status=0, **how):
        ended = self.run_freely(*arguments, **how)
        self.assertEqual(ended.returncode, status, ended.stderr)
        return ended

    def run_freely(self, *arguments, **how):
        if "input" not in how:
            how["stdin"] = subprocess.DEVNULL
        return subprocess.run([PROGRAM, *arguments], cwd=self.root, capture_output=True, timeout=300,
                              check=False, **how)

    def files(self):
        """The content of each file by its name."""
        return {os.fsencode(path.relative_to(self.root)): path.read_bytes()
                for path in self.root.rglob("*") if path.is_file()}


class UsageTest(BatchTest):
    def test_wrong_usage_is_told_and_nothing_is_done(self):
        self.leave("a.bmp")
        self.leave("text", b"no picture")
        to_out = ["-o", "out"]
        cases = [
            ([], "no step"),
            ([*to_out, "--", "a.bmp"], "no step"),
            ([*to_out, "Greys"], "no picture"),
            ([*to_out, "Greys", "--"], "no picture"),
            ([*to_out, "Greys", "a.bmp"], "behind --"),
            (["Greys", "--", "a.bmp"], "-o DIR or --in-place"),
            (["-o", "", "Greys", "--", "a.bmp"], "-o DIR or --in-place"),
            ([*to_out, "--in-place", "Greys", "--", "a.bmp"], "do not go together"),
            (["-o", "nowhere", "Greys", "--", "a.bmp"], "nowhere is no folder"),
            (["-o", "a.bmp", "Greys", "--", "a.bmp"], "a.bmp is no folder"),
            (["Greys", "-o"], "-o"),
            ([*to_out, *to_out, "Greys", "--", "a.bmp"], "At Most 1"),
            ([*to_out, "--frobnicate", "Greys", "--", "a.bmp"], "--frobnicate"),
            ([*to_out, "-f", "xyz", "Greys", "--", "a.bmp"], "xyz cannot be written, only bmp, gif, jpg, png"),
            *[([*to_out, "-j", jobs, "Greys", "--", "a.bmp"], "from 1 to 1024")
              for jobs in ("", "0", "-1", "1025", "2x", "99999999999999999999")],
            *[([*to_out, "--max-pixels", pixels, "Greys", "--", "a.bmp"], "from 1 to") for pixels in ("", "0")],
            ([*to_out, "-f", "", "Greys", "--", "a.bmp"], "format  cannot be written"),
            ([*to_out, "[Blur,Greys]", "--", "a.bmp"], "there is no step [Blur,Greys]"),
            ([*to_out, "--max-pixels", "34", "Texturize:File=a.bmp", "--", "a.bmp"], "7 x 5 pixels are more"),
            (["--in-place", "-f", "png", "Greys", "--", "a.bmp"], "-f needs -o"),
            ([*to_out, "-q", "101", "Greys", "--", "a.bmp"], "from 0 to 100"),
            ([*to_out, "--background", "red", "Greys", "--", "a.bmp"], "#RRGGBB"),
            ([*to_out, "Resize", "--", "a.bmp"], "needs Width, Height or Percent"),
            ([*to_out, "Resize:Width=3,Percent=3", "--", "a.bmp"], "either sides or Percent"),
            ([*to_out, "Orientation:FlipH=no", "--", "a.bmp"], "to be true"),
            ([*to_out, "Crop:Left=3,Top=0,Right=3,Bottom=1", "--", "a.bmp"], "Left below Right"),
            (["--info", "Greys", "--", "a.bmp"], "no step"),
            (["--info", *to_out, "--", "a.bmp"], "-o"),
            (["--info"], "no picture"),
            ([*to_out, "Greys", "Blurr", "--", "a.bmp"], "did you mean Blur?"),
            ([*to_out, "Blur:Levle=1", "--", "a.bmp"], "did you mean Level?"),
            ([*to_out, "Greys", "Blur:Level=102", "--", "a.bmp"], "from -8421395 to 101"),
            ([*to_out, "Shift:ColorFrom=red,Inc=1,Tolerance=1", "--", "a.bmp"], "#RRGGBB"),
            ([*to_out, "Texturize:File=nowhere.bmp", "--", "a.bmp"], "nowhere.bmp: No such file"),
            ([*to_out, "Texturize:File=text", "--", "a.bmp"], "text: not a BMP, GIF, JPEG or PNG file"),
            (["Greys", "--", "-", "a.bmp"], "no other"),
            ([*to_out, "Greys", "--", "-"], "standard output"),
            (["--in-place", "Greys", "--", "-"], "standard output"),
            (["--json", "Greys", "--", "-"], "--json"),
        ]
        before = self.files()
        for arguments, words in cases:
            with self.subTest(arguments):
                ended = self.run_batch(*arguments, status=2)
                self.assertRegex(ended.stderr.decode(), r"\Amobrel-batch: [^\n]*\n\Z")
                self.assertIn(words, ended.stderr.decode())
                self.assertEqual(ended.stdout, b"")
                self.assertEqual(self.files(), before)

    def test_what_is_asked_for_is_printed(self):
        for option, words in (("--help", "--in-place"), ("--version", "mobrel-batch "), ("--list", "Blur ")):
            with self.subTest(option):
                ended = self.run_batch(option)
                self.assertIn(words, ended.stdout.decode())
                self.assertEqual(ended.stderr, b"")
                with open("/dev/full", "wb") as full, self.start(option, stdout=full) as process:
                    self.assertIn(b"standard output: ", process.stderr.read())
                self.assertEqual(process.returncode, 1)

    def test_every_step_of_the_list_runs(self):
        self.leave("palette.bmp", palette_file(4))
        texts = []
        for line in self.run_batch("--list").stdout.decode().splitlines():
            left, right = re.fullmatch(r"( *\S+) +(.*)", line).groups()
            if not left.startswith(" "):
                texts.append(left)
            elif right.endswith("must be given"):
                least = re.search(r"number from (\S+)", right)
                value = (least[1] if least else "#000000" if "colour" in right
                         else "Greys16" if "Greys16" in right else "palette.bmp")
                texts[-1] += ("," if ":" in texts[-1] else ":") + left.strip() + "=" + value
        self.assertEqual(len(texts), 31)
        # All that these two take is optional, but not all of it at once.
        texts[texts.index("Resize")] += ":Percent=100"
        texts[texts.index("Orientation")] += ":FlipH=yes"
        for text in texts:
            with self.subTest(text):
                self.run_batch("-o", "out", "--force", text, "--", "palette.bmp")
                width, height, _, bits = struct.unpack_from("<iihh", self.read("out/palette.bmp"), 18)
                self.assertEqual(bits, 4 if text == "Depth:Mode=Greys16" else 24)
                self.assertEqual((width, height), (1, 1) if text.startswith("Crop") else (5, 3))

    def test_every_line_of_the_document_works(self):
        lines = re.findall(r"^```sh\n(.*?)\n```$", DOCUMENT.read_text(encoding="utf-8"), re.M | re.S)
        self.assertGreaterEqual(len(lines), 10)
        path = os.path.dirname(PROGRAM) + ":" + os.environ["PATH"]
        for line in lines:
            with self.subTest(line), tempfile.TemporaryDirectory(prefix="mobrel-batch-") as folder:
                os.mkdir(os.path.join(folder, "scans"))
                for name in ("in.bmp", "b c.bmp", "canvas.bmp", "scans/1.bmp"):
                    Path(folder, name).write_bytes(written(small()))
                before = sorted(Path(folder).rglob("*"))
                ended = subprocess.run(["sh", "-c", line], cwd=folder, env=os.environ | {"PATH": path},
                                       capture_output=True, timeout=120, check=False)
                self.assertEqual(ended.returncode, 0, ended.stderr)
                changed = any(path.is_file() and path.read_bytes() != written(small())
                              for path in Path(folder).rglob("*"))
                self.assertTrue(changed or sorted(Path(folder).rglob("*")) != before)


class ResultTest(BatchTest):
    def test_steps_are_done_in_their_order(self):
        picture = small()
        self.leave("a.bmp", encoded(picture, top_down=True))
        self.leave("grey.bmp", written(picture.mapped(lambda pixel: (128, 128, 128))))
        cases = [
            (["Negative"], negative(picture)),
            (["Colorize", "Negative"], negative(sepia(picture))),
            (["Negative", "COLORIZE"], sepia(negative(picture))),
            (["Colorize:Luminosity=1,Hue=.5", "despeckle"], despeckled(sepia(picture))),
            (["ShiftRGB:RInc=300,GInc=0,BInc=-300"], picture.mapped(lambda pixel: (0, pixel[1], 255))),
            (["Texturize:File=grey.bmp"], picture),
        ]
        for steps, expected in cases:
            with self.subTest(steps):
                self.run_batch("-o", "out", "--force", *steps, "--", "a.bmp")
                self.assertEqual(self.read("out/a.bmp"), written(expected))

    def test_depths_last_until_a_filter(self):
        picture = small()
        self.leave("a.bmp", written(picture))
        for steps, bits in ((["Depth:Mode=BlackAndWhite"], 1), (["Depth:Mode=Greys16"], 4),
                            (["Depth:Mode=Colors256"], 8), (["Depth:Mode=Colors16", "Negative"], 24),
                            (["Depth:Mode=Colors16", "Depth:Mode=TrueColor"], 24)):
            with self.subTest(steps):
                self.run_batch("-o", "out", "--force", *steps, "--", "a.bmp")
                self.assertEqual(struct.unpack_from("<h", self.read("out/a.bmp"), 28), (bits,))
        self.run_batch("-o", "out", "--force", "Depth:Mode=Greys256", "--", "a.bmp")
        self.assertEqual(self.read("out/a.bmp"), in_greys(picture))

    def test_info_tells_of_pictures(self):
        self.leave("a.bmp", palette_file(4))
        text = ("a.bmp\n"
                "    Width:        5 pixels\n"
                "    Height:       3 pixels\n"
                "    Color depth:  4 bpp\n"
                "    Palette:      16 colors\n"
                "    Colors used:  1\n"
                "    Bitmap size:  0.1 Kb\n")
        self.assertEqual(self.run_batch("--info", "--", "a.bmp").stdout.decode(), text)
        piped = self.run_batch("--info", "--", "-", input=palette_file(4))
        self.assertEqual(piped.stdout.decode(), text.replace("a.bmp", "-"))
        lines = self.run_batch("--info", "--json", "--", "a.bmp", "none.bmp", status=1).stdout.splitlines()
        told, missing = map(json.loads, lines)
        self.assertEqual(told | {"seconds": 0},
                         {"file": "a.bmp", "width": 5, "height": 3, "depth": 4, "palette": "16 colors",
                          "colors_used": 1, "bitmap_bytes": 130, "status": "done", "error": None, "seconds": 0})
        self.assertEqual((missing["status"], missing["width"]), ("failed", None))
        self.assertEqual(list(self.files()), [b"a.bmp"])

    def test_random_steps_do_not_depend_on_jobs(self):
        picture = written(noise(40, 30, random.Random(2)))
        names = [self.leave(f"{i}.bmp", picture) for i in range(12)]
        results = set()
        for jobs in "1", "4":
            self.run_batch("-o", "out", "--force", "-j", jobs, "Noise:Level=60", "Diffuse:xRange=5", "--", *names)
            results |= {self.read("out/" + name) for name in names}
        self.assertEqual(len(results), 1)
        self.assertNotIn(picture, results)

    def test_targets_have_the_pictures_names(self):
        names = {"a": "a.bmp", "b.jpg": "b.bmp", "c.1": "c.1.bmp", "D.BMP": "D.BMP", "e.dib": "e.dib",
                 ".bmp": ".bmp.bmp", "f.x.PNG": "f.x.bmp"}
        for name in names:
            self.leave(name)
        self.run_batch("-o", "out", "Negative", "--", *names)
        self.assertEqual(sorted(os.listdir(self.out)), sorted(names))
        formatted = self.folder("formatted")
        self.run_batch("-o", "formatted", "-f", "BMP", "Negative", "--", *names)
        self.assertEqual(sorted(os.listdir(formatted)), sorted(names.values()))

    def test_names_are_bytes(self):
        names = [b"caf\xe9.bmp", b"%s%n%o.bmp", b"*.bmp", b"new\nline\x1b[1m.bmp", b"-o.bmp", b"--force.bmp",
                 b"[a,b].bmp", b"{}.bmp", b'"q\\".bmp', b"a b;$(x)`.bmp", b"n" * 251 + b".bmp", b"--", b"./-"]
        targets = [b"out/" + os.path.basename(name) for name in names]
        for name in names:
            self.leave(name)
        ended = self.run_batch("-o", "out", "--json", "Negative", "--", *names)
        for target in targets:
            self.assertEqual(self.read(target), written(negative(small())), target)
        told = [json.loads(line)["file"] for line in ended.stdout.splitlines()]
        self.assertEqual(told, [name.decode("latin-1") for name in names])
        self.run_batch("--in-place", "Negative", "--", *names)
        for name in names:
            self.assertEqual(self.read(name), written(negative(small())), name)
        missing = self.run_batch("--in-place", "Negative", "--", b"\xff%s\n\x1b[1m", status=1)
        self.assertIn(b"mobrel-batch: \xff%s\\x0a\\x1b[1m: No such file", missing.stderr)

    def test_a_pipe(self):
        expected = written(negative(small()))
        ended = self.run_batch("Negative", "--", "-", input=written(small()) + b"rest")
        self.assertEqual((ended.stdout, ended.stderr), (expected, b"1 done, 0 failed\n"))
        ended = self.run_batch("--quiet", "--max-pixels=35", "Negative", "--", "-", input=written(small()))
        self.assertEqual((ended.stdout, ended.stderr), (expected, b""))
        for arguments, bytes_in, words in (([], b"", "not a BMP"), ([], written(small())[:-9], "ends"),
                                           (["--max-pixels=34"], written(small()), "7 x 5 pixels")):
            with self.subTest(words):
                ended = self.run_batch(*arguments, "Negative", "--", "-", input=bytes_in, status=1)
                self.assertEqual(ended.stdout, b"")
                self.assertRegex(ended.stderr.decode(), rf"^mobrel-batch: -: .*{words}")
        with open("/dev/full", "wb") as full, self.start("Negative", "--", "-", stdin=subprocess.PIPE,
                                                         stdout=full) as process:
            _, errors = process.communicate(written(small()))
        self.assertEqual(process.returncode, 1)
        self.assertIn(b"cannot write standard output: Disk full", errors)


class FailureTest(BatchTest):
    def test_a_thousand_pictures_of_which_some_are_broken(self):
        good = written(small())
        bad = {3: b"", 99: b"no picture", 500: good[:60], 998: good[:20]}
        names = [self.leave(f"{i}.bmp", bad.get(i, good)) for i in range(1000)]
        ended = self.run_batch("-o", "out", "-j", "4", "Negative", "--", *names, status=1)
        self.assertEqual(set(os.listdir(self.out)), {f"{i}.bmp" for i in range(1000) if i not in bad})
        self.assertEqual({self.read(f"out/{i}.bmp") for i in range(1000) if i not in bad},
                         {written(negative(small()))})
        lines = ended.stderr.decode().splitlines()
        self.assertEqual([line.split(": ")[1] for line in lines[:-1]], [f"{i}.bmp" for i in bad])
        self.assertEqual(lines[-1], "996 done, 4 failed")

    def test_what_is_no_picture_is_told(self):
        self.leave("good.bmp")
        self.leave("text", b"no picture")
        self.leave("file.bmp")
        self.leave("huge.bmp", encoded(small())[:18] + struct.pack("<ii", 30000, -20000)
                   + encoded(small())[26:])
        secret = self.leave("secret.bmp")
        (self.root / secret).chmod(0)
        os.mkfifo(self.root / "fifo")
        os.symlink("nowhere", self.root / "link")
        os.symlink("circle", self.root / "circle")
        cases = {"nowhere": "No such file", "link": "No such file", "out": "is a folder", ".": "is a folder",
                 "text": "not a BMP, GIF, JPEG or PNG file", "file.bmp/x": "Not a directory", "fifo": "is no regular file",
                 "/dev/null": "is no regular file", "secret.bmp": "Permission denied", "circle": "Too many levels",
                 "": "No such file", "huge.bmp": "30000 x 20000 pixels are more than", "n" * 300: "too long"}
        for name, words in cases.items():
            with self.subTest(name):
                ended = self.run_batch("-o", "out", "--force", "--max-pixels", "1000", "Greys", "--", name,
                                       "good.bmp", status=1, **AS_NOBODY)
                failure, count = ended.stderr.decode().splitlines()
                self.assertTrue(failure.startswith(f"mobrel-batch: {name}: "), failure)
                self.assertIn(words, failure)
                self.assertEqual(count, "1 done, 1 failed")
                self.assertEqual(os.listdir(self.out), ["good.bmp"])

    def test_a_missing_or_broken_module_is_told(self):
        program = copy_program(os.environ["MOBREL_BATCH"], self.folder("program"))[0]
        module = program.parent / "libmobrel-codecs.so"
        module.unlink()
        self.leave("a.bmp")
        self.leave("a.png", b"\x89PNG\r\n\x1a\n")
        for words in (b": libmobrel-codecs.so: cannot open shared object file: No such file or directory\n",
                      b": " + os.fsencode(module) + b": file too short\n"):
            for arguments in (["Greys", "--", "a.png"], ["-f", "png", "Greys", "--", "a.bmp"],
                              ["Resize:Percent=50", "--", "a.bmp"]):
                with self.subTest(arguments, words=words):
                    ended = self.run_batch("-o", "out", *arguments, status=1, executable=program)
                    self.assertIn(words, ended.stderr)
                    self.assertEqual(list(self.out.iterdir()), [])
            module.write_bytes(b"")
        self.run_batch("-o", "out", "Greys", "--", "a.bmp", executable=program)

    def test_existing_targets_stay_without_force(self):
        cases = {"file": lambda path: path.write_bytes(b"old"), "folder": Path.mkdir,
                 "link": lambda path: path.symlink_to(self.root / "goal"),
                 "dangling": lambda path: path.symlink_to("nowhere")}
        (self.root / "goal").write_bytes(b"old")
        for name, make in cases.items():
            with self.subTest(name):
                self.leave(name + ".bmp")
                target = self.out / (name + ".bmp")
                make(target)
                before = os.lstat(target)
                ended = self.run_batch("-o", "out", "Negative", "--", name + ".bmp", status=1)
                self.assertIn("it exists already", ended.stderr.decode())
                self.assertEqual(os.lstat(target), before)
                forced = self.run_freely("-o", "out", "--force", "Negative", "--", name + ".bmp")
                self.assertEqual(forced.returncode, 1 if name == "folder" else 0)
                self.assertEqual(target.is_file() and not target.is_symlink(), name != "folder")
        self.assertEqual(self.read("goal"), b"old")
        self.assertFalse(any(name.startswith(".mobrel") for name in os.listdir(self.out)))

    def test_the_second_of_two_with_one_target_is_refused(self):
        self.folder("sub")
        os.symlink("a.bmp", self.root / "link.bmp")
        for arguments, second in ((["-o", "out"], "sub/a.bmp"), (["-o", "out"], "./a.bmp"),
                                  (["-o", "out", "-f", "bmp"], "a.jpg"), (["--in-place"], "sub/../a.bmp"),
                                  (["--in-place"], "link.bmp")):
            with self.subTest(second):
                for name in ("a.bmp", "sub/a.bmp", "a.jpg"):
                    self.leave(name)
                ended = self.run_batch(*arguments, "--force", "Negative", "--", "a.bmp", second, status=1)
                self.assertIn(f"{second}: has the same target as a.bmp\n1 done, 1 failed",
                              ended.stderr.decode())
                result = "out/a.bmp" if arguments[0] == "-o" else "a.bmp"
                self.assertEqual(self.read(result), written(negative(small())))

    def test_a_picture_is_no_target_of_another(self):
        self.leave("a.bmp")
        self.leave("out/a.bmp")
        os.symlink("out/a.bmp", self.root / "z.bmp")
        ended = self.run_batch("-o", "out", "--force", "Negative", "--", "a.bmp", "z.bmp", status=1)
        self.assertIn("a.bmp: its target is the picture z.bmp\n1 done, 1 failed", ended.stderr.decode())
        self.assertEqual(self.read("out/z.bmp"), written(negative(small())))

    def test_a_full_disk_leaves_everything_as_it_was(self):
        large = written(noise(60, 60, random.Random(3)))
        self.leave("large.bmp", large)
        self.leave("small.bmp")

        def limit():
            resource.setrlimit(resource.RLIMIT_FSIZE, (5000, 5000))

        for arguments, target in ((["-o", "out"], "out/small.bmp"), (["--in-place"], "small.bmp")):
            ended = self.run_batch(*arguments, "Negative", "--", "large.bmp", "small.bmp", status=1,
                                   preexec_fn=limit)
            self.assertRegex(ended.stderr.decode(), r"large\.bmp: cannot write .*large\.bmp: Disk full\n1 done")
            self.assertEqual(self.read("large.bmp"), large)
            self.assertEqual(self.read(target), written(negative(small())))
        self.assertEqual(set(self.files()), {b"large.bmp", b"small.bmp", b"out/small.bmp"})

    def test_folders_and_files_that_cannot_be_written(self):
        closed = self.folder("closed")
        names = [self.leave("closed/a.bmp"), self.leave("protected.bmp")]
        (closed / "a.bmp").chmod(0o666)
        (self.root / "protected.bmp").chmod(0o444)
        closed.chmod(0o555)
        before = self.files()
        cases = [(["--in-place"], "closed/a.bmp", "/closed/: Permission denied"),
                 (["--in-place"], "protected.bmp", "protected.bmp: Permission denied"),
                 (["-o", "closed"], "protected.bmp", "cannot write closed/: Permission denied")]
        for arguments, name, words in cases:
            with self.subTest(name):
                ended = self.run_batch(*arguments, "Greys", "--", name, status=1, **AS_NOBODY)
                self.assertIn(words, ended.stderr.decode())
                self.assertEqual(self.files(), before, names)
        closed.chmod(0o755)

    def test_modes_owners_and_links_stay_in_place(self):
        self.addCleanup(os.umask, os.umask(0o027))
        os.symlink("sub/a.bmp", self.root / "link.bmp")
        self.folder("sub")
        for mode in (0o600, 0o640, 0o666, 0o755):
            self.leave("sub/a.bmp")
            (self.root / "sub/a.bmp").chmod(mode)
            if IS_ROOT:
                os.chown(self.root / "sub/a.bmp", NOBODY, NOBODY)
            self.run_batch("--in-place", "Negative", "--", "link.bmp")
            status = os.lstat(self.root / "sub/a.bmp")
            self.assertEqual(status.st_mode & 0o7777, mode)
            self.assertEqual(status.st_uid, NOBODY if IS_ROOT else os.getuid())
            self.assertEqual(self.read("sub/a.bmp"), written(negative(small())))
            self.assertEqual(os.readlink(self.root / "link.bmp"), "sub/a.bmp")
        self.run_batch("-o", "out", "Negative", "--", "link.bmp")
        self.assertEqual(os.stat(self.out / "link.bmp").st_mode & 0o7777, 0o640)

    def test_stop_on_error(self):
        for name in ("a.bmp", "c.bmp", "d.bmp"):
            self.leave(name)
        ended = self.run_batch("-o", "out", "-j", "1", "--stop-on-error", "--json", "Greys", "--", "a.bmp",
                               "b.bmp", "c.bmp", "d.bmp", status=1)
        self.assertEqual([json.loads(line)["status"] for line in ended.stdout.splitlines()],
                         ["done", "failed", "not done", "not done"])
        self.assertTrue(ended.stderr.endswith(b"\n1 done, 1 failed, 2 not done\n"))
        self.assertEqual(os.listdir(self.out), ["a.bmp"])


class ReportTest(BatchTest):
    def test_json_tells_of_each_picture_in_order(self):
        names = [self.leave(f"{i}.bmp") for i in range(40)]
        names[7] = "none\xe9.bmp"
        ended = self.run_batch("-o", "out", "--json", "--quiet", "-j", "4", "Greys", "--", *names, status=1)
        lines = [json.loads(line) for line in ended.stdout.splitlines()]
        self.assertEqual([line["file"] for line in lines], names)
        for index, line in enumerate(lines):
            self.assertGreaterEqual(line.pop("seconds"), 0)
            told = {"file": names[index], "target": "out/" + names[index]}
            told |= {"width": None, "height": None, "depth": None, "status": "failed",
                     "error": "No such file or directory"} if index == 7 else \
                    {"width": 7, "height": 5, "depth": 24, "status": "done", "error": None}
            self.assertEqual(line, told)

    def test_a_report_that_nobody_hears_ends_the_run(self):
        names = [self.leave(f"{i}.bmp") for i in range(50)]
        arguments = ["-o", "out", "--force", "--json", "-j", "1", "Greys", "--", *names]
        for redirection in (">/dev/full", ">&-"):
            with self.subTest(redirection):
                shutil.rmtree(self.out)
                self.out.mkdir()
                ended = subprocess.run(["sh", "-c", f'exec "$@" {redirection}', "sh", PROGRAM, *arguments],
                                       cwd=self.root, capture_output=True, timeout=100, check=False)
                self.assertEqual(ended.returncode, 1)
                self.assertIn(b"standard output: ", ended.stderr)
                self.assertEqual(len(os.listdir(self.out)), 1)
                self.assertEqual(self.read("out/0.bmp")[:2], b"BM")

    def on_terminal(self, columns, terminal, *arguments):
        """What the program writes to standard error when that is a terminal."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        environment = {name: value for name, value in os.environ.items() if name != "TERM"}
        if terminal is not None:
            environment["TERM"] = terminal
        seen = b""
        with self.start(*arguments, stderr=theirs, env=environment) as process:
            os.close(theirs)
            while select.select([ours], [], [], 100)[0]:
                try:
                    seen += os.read(ours, 65536)
                except OSError:  # the other end is closed
                    break
        os.close(ours)
        return seen.replace(b"\r\n", b"\n")

    def test_progress_is_for_terminals_that_can_show_it(self):
        names = [self.leave(f"{i}.bmp") for i in range(30)]
        arguments = ["-o", "out", "--force", "Greys", "--", *names, "none"]
        seen = self.on_terminal(20, "xterm", *arguments)
        self.assertTrue(seen.startswith(b"\r0 of 31: 0 done, 0 "), seen)
        self.assertTrue(seen.endswith(b"\n30 done, 1 failed\n"), seen)
        self.assertIn(b"\rmobrel-batch: none: No such file or directory\n", seen)
        shown = [part for part in seen.split(b"\r") if b" of " in part]
        self.assertLess(max(map(len, shown)), 20)
        for terminal, more in (("dumb", []), (None, []), ("xterm", ["--quiet"])):
            self.assertNotIn(b"\r", self.on_terminal(80, terminal, *more, *arguments))


class InterruptTest(BatchTest):
    def listening(self, *arguments, ignored=(), **how):
        """A run that has got so far that its signals do what they shall."""
        def set_signals():
            for number in SIGNALS:
                signal.signal(number, signal.SIG_IGN if number in ignored else signal.SIG_DFL)

        process = self.start(*arguments, preexec_fn=set_signals, **how)
        status = Path(f"/proc/{process.pid}/status")
        last_is_set = 1 << signal.SIGXFSZ - 1  # the last that the program sets
        wait_for(lambda: int(re.search(r"SigIgn:\s*(\S+)", status.read_text())[1], 16) & last_is_set)
        return process

    def test_an_interrupt_leaves_whole_pictures_only(self):
        picture = written(noise(120, 100, random.Random(4)))
        for number in SIGNALS:
            with self.subTest(number):
                names = [self.leave(f"{i}.bmp", picture) for i in range(60)]
                first = self.root / names[0]
                process = self.listening("--in-place", "-j", "2", *["Despeckle"] * 40, "--", *names)
                wait_for(lambda: first.read_bytes() != picture)
                process.send_signal(number)
                _, errors = process.communicate(timeout=100)
                self.assertEqual(process.returncode, 130, errors)
                contents = [self.read(name) for name in names]
                self.assertEqual(len(set(contents)), 2)
                done = sum(content != picture for content in contents)
                self.assertEqual(errors.decode(), f"{done} done, 0 failed, {60 - done} not done\n")
                self.assertEqual(set(self.files()), {name.encode() for name in names})

    def test_a_long_picture_is_dropped(self):
        picture = written(noise(200, 200, random.Random(5)))
        self.leave("a.bmp", picture)
        process = self.listening("-o", "out", *["DespeckleMore"] * 20000, "--", "a.bmp")
        process.send_signal(signal.SIGINT)
        _, errors = process.communicate(timeout=100)
        self.assertEqual((process.returncode, errors), (130, b"0 done, 0 failed, 1 not done\n"))
        self.assertEqual(set(self.files()), {b"a.bmp"})

    def test_a_reader_that_waits_holds_up_no_interrupt(self):
        self.leave("a.bmp")
        process = self.listening("--info", "--json", "--", *["a.bmp"] * 5000)
        unread = lambda: struct.unpack("i", fcntl.ioctl(process.stdout, termios.FIONREAD, bytes(4)))[0]
        wait_for(lambda: unread() > 50_000)
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(timeout=100), 130)
        self.assertRegex(process.stderr.read(), rb"\A\d+ done, 0 failed, \d+ not done\n\Z")
        process.stdout.close()
        process.stderr.close()

    def test_a_pipe_that_waits_is_ended(self):
        process = self.listening("Greys", "--", "-", stdin=subprocess.PIPE)
        process.stdin.write(written(small())[:40])
        process.stdin.flush()
        process.send_signal(signal.SIGTERM)
        self.assertEqual(process.wait(timeout=100), 130)
        self.assertEqual(process.stderr.read(), b"0 done, 0 failed, 1 not done\n")
        for stream in (process.stdin, process.stdout, process.stderr):
            stream.close()

    def test_a_signal_that_was_ignored_stays_so(self):
        process = self.listening("Negative", "--", "-", stdin=subprocess.PIPE, ignored=[signal.SIGHUP])
        for part in (written(small())[:40], written(small())[40:]):
            process.send_signal(signal.SIGHUP)
            process.stdin.write(part)
            process.stdin.flush()
        output, _ = process.communicate(timeout=100)
        self.assertEqual((process.returncode, output), (0, written(negative(small()))))


if __name__ == "__main__":
    unittest.main()
