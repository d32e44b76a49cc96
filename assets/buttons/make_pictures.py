#!/usr/bin/env python3
"""Draws the gallery's button pictures (20 x 20 RGBA PNGs) with the standard library only.

Run it in this folder to write the PNG files again: python3 make_pictures.py
"""
import math
import struct
import zlib

SIZE = 20
SUBSAMPLES = 4  # per side, for smooth edges


def png(path, pixels):
    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body) & 0xFFFFFFFF)

    rows = b"".join(b"\x00" + bytes(c for px in row for c in px) for row in pixels)
    header = struct.pack(">IIBBBBB", SIZE, SIZE, 8, 6, 0, 0, 0)
    with open(path, "wb") as out:
        out.write(b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
                  chunk(b"IDAT", zlib.compress(rows, 9)) + chunk(b"IEND", b""))


def segment_distance(px, py, ax, ay, bx, by):
    dx, dy = bx - ax, by - ay
    t = max(0.0, min(1.0, ((px - ax) * dx + (py - ay) * dy) / (dx * dx + dy * dy)))
    return math.hypot(px - (ax + t * dx), py - (ay + t * dy))


def draw(inside, color):
    """One picture: `inside(x, y)` tells whether a point is painted in `color`."""
    pixels = []
    for y in range(SIZE):
        row = []
        for x in range(SIZE):
            hits = sum(
                inside(x + (i + 0.5) / SUBSAMPLES, y + (j + 0.5) / SUBSAMPLES)
                for i in range(SUBSAMPLES) for j in range(SUBSAMPLES))
            alpha = round(255 * hits / SUBSAMPLES ** 2)
            row.append((*color, alpha))
        pixels.append(row)
    return pixels


def strokes(segments, width):
    return lambda x, y: any(segment_distance(x, y, *s) <= width / 2 for s in segments)


def disc(cx, cy, r):
    return lambda x, y: math.hypot(x - cx, y - cy) <= r


def triangle(points):
    (ax, ay), (bx, by), (cx, cy) = points

    def side(x, y, x1, y1, x2, y2):
        return (x - x2) * (y1 - y2) - (x1 - x2) * (y - y2)

    def inside(x, y):
        d1, d2, d3 = side(x, y, ax, ay, bx, by), side(x, y, bx, by, cx, cy), side(x, y, cx, cy, ax, ay)
        return not ((d1 < 0 or d2 < 0 or d3 < 0) and (d1 > 0 or d2 > 0 or d3 > 0))

    return inside


if __name__ == "__main__":
    png("check.png", draw(strokes([(3, 11, 8, 16), (8, 16, 17, 4)], 3.2), (0, 140, 40)))
    png("cross.png", draw(strokes([(4, 4, 16, 16), (16, 4, 4, 16)], 3.2), (200, 30, 30)))
    png("lamp_off.png", draw(disc(10, 10, 8), (90, 90, 90)))
    png("lamp_on.png", draw(disc(10, 10, 8), (255, 200, 0)))
    png("play.png", draw(triangle([(5, 3), (17, 10), (5, 17)]), (30, 80, 200)))
