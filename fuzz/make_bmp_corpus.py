#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Writes the seeds of the bitmap fuzz target: small files, one a header kind, depth and coding.

Usage: make_bmp_corpus.py FOLDER. The same files come out every time.
"""

import pathlib
import struct
import sys

WIDTH, HEIGHT = 5, 3
MASKS_565 = (0xF800, 0x07E0, 0x001F)
MASKS_10 = (0x3FF00000, 0x000FFC00, 0x000003FF)


def stride(bits):
    return (WIDTH * bits + 31) // 32 * 4


def plain_rows(bits):
    return bytes(i * 37 % 256 for i in range(stride(bits) * HEIGHT))


def colors(bits, entry_bytes):
    if bits > 8:
        return b""
    return b"".join(bytes((i, 255 - i, i * 7 % 256, 0))[:entry_bytes] for i in range(1 << bits))


def bmp(header, table, rows, offset=None):
    start = 14 + len(header) + len(table) if offset is None else offset
    size = 14 + len(header) + len(table) + len(rows)
    return b"BM" + struct.pack("<IHHI", size, 0, 0, start) + header + table + rows


def core_header(bits):
    return struct.pack("<IHHHH", 12, WIDTH, HEIGHT, 1, bits)


def info_header(size, bits, compression=0, masks=(), height=HEIGHT, used=0):
    fields = struct.pack("<IiiHHIIiiII", size, WIDTH, height, 1, bits, compression, 0, 2835, 2835, used, 0)
    fields += b"".join(struct.pack("<I", mask) for mask in masks)
    return fields.ljust(size, b"\0")


RLE8 = bytes((
    3, 7, 2, 9, 0, 0,                # two runs fill the first row
    0, 3, 1, 2, 3, 0, 0, 2, 1, 1,    # literals with padding, then one right and one up
    1, 200, 0, 1,
))
RLE4 = bytes((
    5, 0x12, 0, 0,
    1, 0x30, 0, 3, 0x45, 0x60, 0, 0,
    0, 2, 2, 0, 3, 0x78, 0, 1,
))


def seeds():
    for bits in (1, 4, 8, 24):
        yield f"core-{bits}", bmp(core_header(bits), colors(bits, 3), plain_rows(bits))
    for bits in (1, 4, 8, 16, 24, 32):
        yield f"info-{bits}", bmp(info_header(40, bits), colors(bits, 4), plain_rows(bits))
    yield "info-24-top-down", bmp(info_header(40, 24, height=-HEIGHT), b"", plain_rows(24))
    yield "info-4-top-down", bmp(info_header(40, 4, height=-HEIGHT), colors(4, 4), plain_rows(4))
    for size in (40, 52, 56, 108, 124):
        header = info_header(size, 16, 3, MASKS_565)
        yield f"masks-16-{size}", bmp(header, b"", plain_rows(16))
    yield "masks-32-alpha", bmp(info_header(40, 32, 6, MASKS_10 + (0xC0000000,)), b"", plain_rows(32))
    yield "rle8", bmp(info_header(40, 8, 1), colors(8, 4), RLE8)
    yield "rle4", bmp(info_header(40, 4, 2), colors(4, 4), RLE4)
    yield "short-table", bmp(info_header(40, 4, used=3), colors(4, 4)[:12], plain_rows(4))
    yield "offset-unset", bmp(info_header(40, 1), colors(1, 4), plain_rows(1), offset=0)
    yield "offset-gap", bmp(info_header(40, 24), b"", bytes(10) + plain_rows(24), offset=64)
    yield "cut", bmp(info_header(40, 24), b"", plain_rows(24)[:20])


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, content in seeds():
        (folder / f"{name}.bmp").write_bytes(content)


if __name__ == "__main__":
    main()
