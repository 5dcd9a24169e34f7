# SPDX-License-Identifier: MIT
"""Picture files that other programs write and read: ImageMagick and netpbm. MOBREL_BATCH of the environment
names the batch program."""

import json
import os
import random
import shutil
import struct
import subprocess
import tempfile
import unittest
from pathlib import Path

PROGRAM = os.path.abspath(os.environ["MOBREL_BATCH"])
WIDTH, HEIGHT = 37, 23
KEEP = "Depth:Mode=TrueColor"  # changes no pixel


def run(*command, data=b""):
    """Standard output of a command that must work."""
    ended = subprocess.run(command, input=data, capture_output=True, timeout=120, check=False)
    if ended.returncode != 0:
        raise AssertionError(f"{command}: {ended.stderr.decode(errors='replace')}")
    return ended.stdout


def convert(*arguments, data=b""):
    return run("convert", *arguments, data=data)


def photo():
    """Slow changes with some noise, as a portable pixmap."""
    source = random.Random(7)
    samples = bytes(min(255, max(0, base + source.randrange(-6, 7)))
                    for y in range(HEIGHT) for x in range(WIDTH)
                    for base in (x * 6 + 10, y * 10, 255 - x * 3 - y * 4))
    return b"P6\n%d %d\n255\n" % (WIDTH, HEIGHT) + samples


def pixmap(data):
    """(width, height, samples) of a portable pixmap or greymap as netpbm and ImageMagick write them."""
    magic, width, height, most = data.split(maxsplit=4)[:4]
    width, height = int(width), int(height)
    samples = data[len(data) - width * height * (3 if magic == b"P6" else 1):]
    if magic == b"P5":
        samples = bytes(value for sample in samples for value in (sample,) * 3)
    if (magic, most) not in ((b"P6", b"255"), (b"P5", b"255")):
        raise AssertionError((magic, most))
    return width, height, samples


def pixels_of(bmp):
    """The same of a bitmap of 24 bits, by hand."""
    offset, = struct.unpack_from("<I", bmp, 10)
    width, height, _, bits = struct.unpack_from("<iihh", bmp, 18)
    if bits != 24 or height < 0:
        raise AssertionError((bits, height))
    stride = (width * 3 + 3) // 4 * 4
    rows = [bmp[offset + y * stride:][:width * 3] for y in reversed(range(height))]
    return width, height, b"".join(row[x:x + 3][::-1] for row in rows for x in range(0, width * 3, 3))


def distance(a, b):
    """The largest difference of two samples; the pictures must have one size."""
    if a[:2] != b[:2]:
        raise AssertionError((a[:2], b[:2]))
    return max(abs(x - y) for x, y in zip(a[2], b[2], strict=True))


def mean_distance(a, b):
    return sum(abs(x - y) for x, y in zip(a[2], b[2], strict=True)) / len(a[2])


def batch(*arguments, data):
    return run(PROGRAM, *arguments, "--", "-", data=data)


def read(data, *arguments):
    return pixels_of(batch("--quiet", "-f", "bmp", *arguments, KEEP, data=data))


class ExchangeTest(unittest.TestCase):
    def setUp(self):
        self.root = Path(tempfile.mkdtemp(prefix="mobrel-exchange-"))
        self.addCleanup(shutil.rmtree, self.root)

    def test_what_others_write_is_read(self):
        reduced = ["-dither", "none", "-colors"]
        masked = ["(", "-size", f"{WIDTH}x{HEIGHT}", "gradient:", ")", "-alpha", "off",
                  "-compose", "CopyOpacity", "-composite"]
        holes = [*masked, "-channel", "A", "-threshold", "50%", "+channel"]
        png = [[f"png:color-type={kind}", f"png:bit-depth={depth}"]
               for kind, depths in ((0, (1, 2, 4, 8, 16)), (2, (8, 16)), (3, (1, 2, 4, 8)), (4, (8, 16)),
                                    (6, (8, 16))) for depth in depths]
        cases = []
        for kind, depth in png:
            colors = [*reduced, str(1 << int(depth[-1]))] if "=3" in kind and depth[-2:] != "16" else []
            grey = ["-colorspace", "Gray"] if kind[-1] in "04" else []
            alpha = masked if kind[-1] in "46" else []
            for interlace in ("none", "PNG"):
                cases.append(("png", 1, [*grey, *colors, *alpha, "-interlace", interlace,
                                         "-define", kind, "-define", depth]))
        cases += [("png", 1, [*reduced, "7", *holes]), ("gif", 0, [*reduced, "200"]),
                  ("gif", 0, [*reduced, "13", "-interlace", "GIF"]), ("gif", 0, [*reduced, "2"]),
                  ("gif", 0, [*holes, *reduced, "30"]), ("jpg", 1, ["-quality", "90"]),
                  ("jpg", 1, ["-quality", "40", "-interlace", "JPEG"]), ("jpg", 1, ["-colorspace", "Gray"]),
                  ("jpg", 3, ["-colorspace", "CMYK", "-quality", "95"]),
                  ("jpg", 1, ["-sampling-factor", "1x2"])]
        for kind, tolerance, arguments in cases:
            with self.subTest(kind=kind, arguments=arguments):
                data = convert("ppm:-", *arguments, f"{kind}:-", data=photo())
                told = convert(f"{kind}:-", "-background", "black", "-alpha", "remove", "-colorspace", "sRGB",
                               "-depth", "8", "ppm:-", data=data)
                self.assertLessEqual(distance(read(data), pixmap(told)), tolerance)

    def test_what_netpbm_writes_is_read(self):
        reduced = run("pnmquant", "40", data=photo())
        for command, decode in ((["pnmtopng", "-interlace"], "pngtopnm"), (["pamtogif"], "giftopnm"),
                                (["pamtogif", "-interlace"], "giftopnm")):
            with self.subTest(command):
                data = run(*command, data=reduced)
                self.assertEqual(read(data), pixmap(run(decode, data=data)))

    def test_the_first_picture_of_an_animation_counts(self):
        frames = ["(", "-size", "20x15", "xc:#2060a0", "-repage", "20x15+0+0", ")",
                  "(", "-size", "8x6", "xc:red", "-repage", "20x15+5+4", ")"]
        data = convert("-delay", "5", *frames, "-loop", "0", "gif:-")
        self.assertEqual(read(data), (20, 15, b"\x20\x60\xa0" * 300))

    def test_what_we_write_is_read(self):
        few = convert("ppm:-", "-dither", "none", "-colors", "256", "-depth", "8", "ppm:-", data=photo())
        for source, target, exact, decoder in ((photo(), "png", True, "pngtopnm"), (few, "gif", True, "giftopnm"),
                                               (photo(), "gif", False, "giftopnm"),
                                               (photo(), "jpg", False, "jpegtopnm")):
            bmp = convert("ppm:-", "bmp3:-", data=source)
            data = batch("--quiet", "-f", target, KEEP, data=bmp)
            for told in (convert(f"{target}:-", "-depth", "8", "ppm:-", data=data), run(decoder, data=data)):
                with self.subTest(target, exact=exact):
                    self.assertLessEqual(distance(pixmap(told), pixmap(source)), 0 if exact else 60)
                    self.assertLess(mean_distance(pixmap(told), pixmap(source)), 0.01 if exact else 6)
            self.assertEqual(batch("--quiet", KEEP, data=data)[:4], data[:4], "the format is kept")

    def test_reduced_bitmaps_are_read_alike(self):
        """Depth, palette and pixels. ImageMagick ends with 1 because of the size that the header tells."""
        bmp = convert("ppm:-", "bmp3:-", data=photo())
        for mode, bits in (("BlackAndWhite", 1), ("Greys16", 4), ("Colors16", 4), ("Greys256", 8), ("Colors256", 8)):
            with self.subTest(mode):
                data = batch("--quiet", f"Depth:Mode={mode}", data=bmp)
                named = subprocess.run(["identify", "-format", "%w %h %z %[type]", "bmp:-"], input=data,
                                       capture_output=True, timeout=60, check=False).stdout.split()
                self.assertEqual(named[:3], [b"37", b"23", str(bits).encode()])
                self.assertIn(named[3], (b"Bilevel", b"Grayscale", b"Palette"))
                magick = subprocess.run(["convert", "bmp:-", "-depth", "8", "ppm:-"], input=data,
                                        capture_output=True, timeout=60, check=False).stdout
                netpbm = run("pamtopnm", data=run("pamdepth", "255", data=run("bmptopnm", data=data)))
                if netpbm[:2] == b"P4":
                    netpbm = run("pgmtoppm", "black-white", data=run("pbmtopgm", "1", "1", data=netpbm))
                ours = pixels_of(batch("--quiet", KEEP, data=data))
                self.assertEqual(pixmap(magick), ours)
                self.assertEqual(pixmap(netpbm), ours)

    def test_quality_counts(self):
        bmp = convert("ppm:-", "bmp3:-", data=photo())
        results = [batch("--quiet", "-f", "jpg", "-q", quality, KEEP, data=bmp) for quality in ("0", "60", "100")]
        sizes = [len(data) for data in results]
        self.assertEqual(sizes, sorted(sizes))
        losses = [mean_distance(read(data), pixmap(photo())) for data in results]
        self.assertEqual(losses, sorted(losses, reverse=True))
        self.assertLess(losses[-1], 1.5)

    def test_a_camera_that_was_turned(self):
        plain = convert("ppm:-", "-quality", "95", "jpg:-", data=photo())
        for orientation in range(1, 9):
            for order, mark in ((">", b"MM"), ("<", b"II")):
                exif = b"Exif\0\0" + mark + struct.pack(
                    order + "HIHHHIHHI", 42, 8, 1, 0x0112, 3, 1, orientation, 0, 0)
                turned = plain[:2] + b"\xff\xe1" + struct.pack(">H", len(exif) + 2) + exif + plain[2:]
                with self.subTest(orientation=orientation, order=order):
                    upright = pixmap(convert("jpg:-", "-auto-orient", "ppm:-", data=turned))
                    self.assertLessEqual(distance(read(turned), upright), 1)
                    self.assertEqual(read(turned, "--keep-orientation"), read(plain))

    def test_places_and_sizes(self):
        bmp = convert("ppm:-", "bmp3:-", data=photo())
        cases = [("Orientation:Rotate90=true", ["-rotate", "-90"]), ("Orientation:FlipH=1", ["-flop"]),
                 ("Orientation:FlipV=1", ["-flip"]),
                 ("Orientation:Rotate90=1,FlipH=1,FlipV=1", ["-rotate", "90"]),
                 ("Crop:Left=3,Top=5,Right=20,Bottom=9", ["-crop", "17x4+3+5", "+repage"]),
                 ("Crop:Left=30,Top=20,Right=99,Bottom=99", ["-crop", "7x3+30+20", "+repage"])]
        for step, arguments in cases:
            with self.subTest(step):
                told = pixmap(convert("ppm:-", *arguments, "ppm:-", data=photo()))
                self.assertEqual(pixels_of(batch("--quiet", step, data=bmp)), told)
        for step, size in (("Resize:Width=74", (74, 46)), ("Resize:Height=46,Resample=false", (74, 46)),
                           ("Resize:Width=5,Height=1", (5, 1)), ("Resize:Percent=50", (18, 12)),
                           ("Resize:Percent=0.01", (1, 1)), ("Resize:Width=5000,Height=1", (5000, 1))):
            with self.subTest(step):
                self.assertEqual(pixels_of(batch("--quiet", step, data=bmp))[:2], size)
        halved = pixels_of(batch("--quiet", "Resize:Percent=50", data=convert("-size", "64x48", "gradient:",
                                                                              "-type", "TrueColor", "bmp3:-")))
        told = pixmap(convert("-size", "64x48", "gradient:", "-filter", "Catrom", "-resize", "50%",
                              "-type", "TrueColor", "-depth", "8", "ppm:-"))
        self.assertLessEqual(distance(halved, told), 2)

    def batch_here(self, *arguments, status=0):
        ended = subprocess.run([PROGRAM, "-o", str(self.root), "--force", *arguments], capture_output=True,
                               cwd=self.root, timeout=60, check=False)
        self.assertEqual(ended.returncode, status, ended.stderr)
        return ended

    def test_formats_have_their_limits(self):
        (self.root / "a.bmp").write_bytes(convert("-size", "10x1", "xc:red", "bmp3:-"))
        for name, most in (("jpeg", b"65500"), ("gif", b"65535")):
            ended = self.batch_here("-f", name, "Resize:Width=65600,Height=1", "--", "a.bmp", status=1)
            self.assertIn(b"whose sides have at most " + most, ended.stderr)
        for name, depth in (("png", 24), ("bmp", 8)):
            ended = self.batch_here("-f", name, "--json", "Depth:Mode=Greys256", "--", "a.bmp")
            self.assertEqual(json.loads(ended.stdout)["depth"], depth)
        frames = convert("-size", "9x9", "xc:red", "xc:blue", "gif:-")
        (self.root / "two.gif").write_bytes(frames)
        self.assertIn(b"has more pictures", self.batch_here("-f", "png", "--", "two.gif").stderr)
        claim = frames[:6] + struct.pack("<HH", 60000, 8000) + frames[10:]
        (self.root / "claim.gif").write_bytes(claim)
        self.assertIn(b"is too small for a screen", self.batch_here("-f", "png", "--", "claim.gif", status=1).stderr)

    def test_transparency_is_laid_over_the_background_and_said(self):
        data = convert("-size", "4x3", "xc:#ff000080", "png:-")
        path = self.root / "a.png"
        path.write_bytes(data)
        for options, expected, said in (([], (128, 0, 0), True), (["--background", "#00ff00"], (128, 127, 0), True),
                                        (["--quiet"], (128, 0, 0), False)):
            with self.subTest(options):
                ended = self.batch_here("-f", "bmp", *options, "--", str(path))
                self.assertEqual(b"has transparency" in ended.stderr, said)
                pixels = pixels_of((self.root / "a.bmp").read_bytes())
                self.assertEqual(pixels, (4, 3, bytes(expected) * 12))


if __name__ == "__main__":
    for program in ("convert", "pngtopnm", "giftopnm", "jpegtopnm", "pnmquant"):
        if shutil.which(program) is None:
            raise SystemExit(f"{program} is missing; scripts/setup installs it")
    unittest.main()
