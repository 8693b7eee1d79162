#!/usr/bin/env python3
"""Writes the seed inputs of fuzz_zl, fuzz_bmp and fuzz_jpeg into fuzz/corpus/{zl,bmp,jpeg}.
Run from the repository's root: python3 fuzz/make_picture_seeds.py"""
import os
import struct
import zlib

here = os.path.dirname(os.path.abspath(__file__))


def put(kind, name, data):
    folder = os.path.join(here, "corpus", kind)
    os.makedirs(folder, exist_ok=True)
    with open(os.path.join(folder, name), "wb") as f:
        f.write(data)


# .zl: head (magic, original length) and a zlib stream.
def zl(data, level=9):
    return b"VZL\x01" + struct.pack("<Q", len(data)) + zlib.compress(data, level)


put("zl", "empty", zl(b""))
put("zl", "text", zl(b"lara croft tomb raider " * 40))
put("zl", "stored", zl(bytes(range(256)) * 3, 0))


# BMP: the 40-byte header with the given depth, palette and rows.
def bmp(w, h, bpp, rows, palette=b"", compression=0, top_down=False):
    pixels = b"".join(rows)
    off = 14 + 40 + len(palette)
    head = struct.pack("<2sIHHI", b"BM", off + len(pixels), 0, 0, off)
    info = struct.pack("<IiiHHIIiiII", 40, w, -h if top_down else h, 1, bpp, compression,
                       len(pixels), 2835, 2835, len(palette) // 4, 0)
    return head + info + palette + pixels


pal4 = b"".join(struct.pack("<BBBB", b, g, r, 0) for r, g, b in
                [(0, 0, 0), (255, 255, 255), (255, 0, 0), (0, 0, 255)])
put("bmp", "24bit", bmp(3, 2, 24, [b"\x00\x00\xff\x00\xff\x00\xff\x00\x00\x00\x00\x00"] * 2))
put("bmp", "8bit_topdown", bmp(4, 2, 8, [b"\x00\x01\x02\x03"] * 2, pal4, top_down=True))
put("bmp", "1bit", bmp(9, 2, 1, [b"\xaa\x80\x00\x00"] * 2, pal4[:8]))
put("bmp", "4bit", bmp(3, 1, 4, [b"\x12\x30\x00\x00"], pal4))
put("bmp", "32bit", bmp(2, 1, 32, [b"\x01\x02\x03\x04\x05\x06\x07\x08"]))
put("bmp", "rle8", bmp(4, 2, 8, [b"\x04\x01\x00\x00\x00\x03\x02\x03\x02\x00\x01\x01\x00\x01"],
                       pal4, compression=1))
put("bmp", "rle4", bmp(5, 1, 4, [b"\x05\x12\x00\x02\x01\x00\x00\x01"], pal4, compression=2))


# JPEG: a baseline file of flat 8x8 blocks, built by hand. Every table holds one code ('0'):
# DC difference category 0 and end of block, so each block is two zero bits.
def segment(marker, body):
    return b"\xff" + bytes([marker]) + struct.pack(">H", len(body) + 2) + body


def jpeg(components):
    dqt = segment(0xDB, b"\x00" + b"\x01" * 64)
    comps = b"".join(bytes([i + 1, 0x11, 0]) for i in range(components))
    sof = segment(0xC0, struct.pack(">BHHB", 8, 8, 8, components) + comps)
    one_code = b"\x01" + b"\x00" * 15 + b"\x00"
    dht = segment(0xC4, b"\x00" + one_code) + segment(0xC4, b"\x10" + one_code)
    sos = segment(0xDA, bytes([components]) +
                  b"".join(bytes([i + 1, 0x00]) for i in range(components)) + b"\x00\x3f\x00")
    bits = "00" * components
    bits += "1" * (-len(bits) % 8)
    scan = bytes(int(bits[i:i + 8], 2) for i in range(0, len(bits), 8))
    return b"\xff\xd8" + dqt + sof + dht + sos + scan + b"\xff\xd9"


put("jpeg", "gray", jpeg(1))
put("jpeg", "colour", jpeg(3))
