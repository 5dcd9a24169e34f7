# SPDX-License-Identifier: MIT
"""BMP files and the pixel recipes of the direct commands, written a second time and plainly."""

import struct


def f32(value):
    """The value as a single-precision number holds it."""
    return struct.unpack("f", struct.pack("f", value))[0]


class Picture:
    """Rows from the bottom up; a pixel is (blue, green, red)."""

    def __init__(self, width, height, pixel_at):
        self.width = width
        self.height = height
        self.rows = [[pixel_at(x, y) for x in range(width)] for y in range(height)]

    def mapped(self, change):
        return Picture(self.width, self.height, lambda x, y: change(self.rows[y][x]))


def noise(width, height, random):
    return Picture(width, height, lambda x, y: tuple(random.randrange(256) for _ in range(3)))


def file_of(width, height, rows):
    """The file that a host gets back: 24 bits, every optional field 0."""
    # the size field leaves the 14 bytes of the file header out
    return b"BM" + struct.pack("<IHHI", 40 + len(rows), 0, 0, 54) + \
        struct.pack("<IiiHHIIiiII", 40, width, height, 1, 24, 0, 0, 0, 0, 0, 0) + rows


def written(picture):
    padding = bytes(-picture.width * 3 % 4)
    rows = [b"".join(map(bytes, row)) + padding for row in picture.rows]
    return file_of(picture.width, picture.height, b"".join(rows))


def encoded(picture, bits=24, top_down=False, gap=b"", padding=b"\0", tail=b""):
    """The same picture in the forms that hosts send."""
    def pixel(p):
        blue, green, red = p
        if bits == 24:
            return bytes(p)
        if bits == 32:
            return bytes(p) + b"\xff"
        return struct.pack("<H", (red >> 3) << 10 | (green >> 3) << 5 | blue >> 3)

    rows = []
    for row in reversed(picture.rows) if top_down else picture.rows:
        data = b"".join(map(pixel, row))
        rows.append(data + padding * (-len(data) % 4))
    offset = 54 + len(gap)
    body = b"".join(rows)
    height = -picture.height if top_down else picture.height
    return b"BM" + struct.pack("<IHHI", offset + len(body), 0, 0, offset) + \
        struct.pack("<IiiHHIIiiII", 40, picture.width, height, 1, bits, 0, len(body), 2835, 2835, 0, 0) + \
        gap + body + tail


def five_bits(picture):
    """What is left of a picture that travelled with 5 bits a channel."""
    return picture.mapped(lambda p: tuple((c >> 3) << 3 | c >> 5 for c in p))


def palette_file(bits, width=5, height=3):
    """A picture of 1, 4 or 8 bits, every pixel of colour 0."""
    entries = 1 << bits
    table = b"".join(struct.pack("<BBBB", i * 255 // (entries - 1), 64, 128, 0) for i in range(entries))
    rows = bytes((width * bits + 31) // 32 * 4 * height)
    offset = 54 + len(table)
    return b"BM" + struct.pack("<IHHI", offset + len(rows), 0, 0, offset) + \
        struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, 0, 0, 0, 0, 0) + table + rows


def sepia(picture):
    """One hue, half way from red to yellow, a quarter saturated; only the brightness stays."""
    hue, saturation = 0.5, 0.25

    def toned(pixel):
        light = f32(f32(sum(pixel) / 765) * 1.0)
        low = f32(light - (1 - light) * saturation if light > 0.5 else (1 - saturation) * light)
        high = f32(light + light - low)
        middle = f32((high - low) * hue + low)
        return tuple(round(channel * 255) for channel in (low, middle, high))

    return picture.mapped(toned)


def despeckled(picture):
    """Four passes in place, each along one direction; a sample steps toward its two neighbours."""
    rows = [[list(pixel) for pixel in row] for row in picture.rows]
    for (ax, ay), (bx, by) in (((0, -1), (0, 1)), ((-1, 0), (1, 0)), ((-1, -1), (1, 1)), ((-1, 1), (1, -1))):
        for y in range(1, picture.height - 1):
            for x in range(1, picture.width - 1):
                for c in range(3):
                    p = rows[y][x][c]
                    a = rows[y + ay][x + ax][c]
                    b = rows[y + by][x + bx][c]
                    p -= a < p - 1 and p > 0
                    p -= b < p - 1 and p > 0
                    p += a > p + 1 and p < 255
                    p += b > p + 1 and p < 255
                    rows[y][x][c] = p
    return Picture(picture.width, picture.height, lambda x, y: tuple(rows[y][x]))


def packed(width, height, bits, entries, indices):
    """A palette file as a host gets it back; `entries` are (blue, green, red), indices in rows from the
    bottom."""
    stride = (width * bits + 31) // 32 * 4
    rows = b""
    for row in indices:
        text = "".join(format(index, f"0{bits}b") for index in row).ljust(stride * 8, "0")
        rows += int(text, 2).to_bytes(stride, "big")
    table = b"".join(bytes(entry) + b"\0" for entry in entries)
    # the size field leaves the 14 bytes of the file header out
    return b"BM" + struct.pack("<IHHI", 40 + len(table) + len(rows), 0, 0, 54 + len(table)) + \
        struct.pack("<IiiHHIIiiII", 40, width, height, 1, bits, 0, 0, 0, 0, 0, 0) + table + rows


def even_greys(bits):
    return [(i * 255 // ((1 << bits) - 1),) * 3 for i in range(1 << bits)]


def weighted_grey(pixel):
    blue, green, red = pixel
    return round(0.707 * green + 0.071 * blue + 0.222 * red)


def in_greys(picture):
    """256 greys: the index is the grey."""
    return packed(picture.width, picture.height, 8, even_greys(8),
                  [[weighted_grey(p) for p in row] for row in picture.rows])


def in_two_tones(picture, bits):
    """A picture of pure black and white, in which there is no error to spread."""
    white = (1 << bits) - 1
    return packed(picture.width, picture.height, bits, even_greys(bits),
                  [[white if p[0] else 0 for p in row] for row in picture.rows])
