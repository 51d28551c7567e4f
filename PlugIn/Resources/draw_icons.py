#!/usr/bin/env python3
"""Draws the module's two icons: a duct silencer cut open, its wool behind perforated sheet, and a sound wave that fades
on its way through. Writes silencer-small.ico (16 to 32 px) and silencer-large.ico (32 to 256 px) beside this script;
"draw_icons.py FOLDER" writes every size as a PNG for looking at as well. Needs nothing but Python 3."""
import math
import os
import struct
import sys
import zlib

SMALL = (16, 20, 24, 32)
LARGE = (32, 48, 64, 256)

STEEL_DARK, STEEL, STEEL_LIGHT = (22, 58, 95), (46, 104, 158), (170, 205, 234)
WOOL, WOOL_DARK = (242, 183, 64), (176, 116, 22)
AIR = (14, 34, 56)
WAVE = (255, 255, 255)
OUTLINE = (24, 62, 102)
FADING = 2.4  # of the wave, over the whole way
WAVE_POINTS = 600


class Shape:
    """Measures of the drawing in pixels of one size; few and whole ones where pixels are few."""

    def __init__(self, size):
        self.size = size
        tiny = size <= 24
        self.outline = max(1.0, size / 48)
        self.left, self.right = round(size * 0.12), size - round(size * 0.12)
        self.top, self.bottom = round(size * 0.08), size - round(size * 0.08)
        self.spigot_top, self.spigot_bottom = round(size * 0.25), size - round(size * 0.25)
        self.radius = size * 0.06
        shell = max(1, round(size * 0.06))
        self.wool_top = self.top + shell + (0 if tiny else self.outline)
        self.wool = max(2, round(size * 0.12))
        self.air_top = self.wool_top + self.wool
        self.holes = size >= 32
        self.hole_pitch = max(3.0, size / 14)
        self.wave_width = max(1.7, size * 0.055)
        self.waves = 1.75 if tiny else 3.25
        self.wave_start, self.wave_end = size * 0.06, size * 0.94
        self.amplitude = size / 2 - self.air_top - self.wave_width * 0.5
        self.middle = size / 2
        self.wave_heights = [self.wave_height(i / WAVE_POINTS) for i in range(WAVE_POINTS + 1)]

    def wave_height(self, way):
        """Below the middle, at 0 to 1 of the way: loud on the left, nearly still on the right."""
        loudness = self.amplitude * 1.15 * math.exp(-FADING * way)
        return -loudness * math.sin(2 * math.pi * self.waves * way)

    def on_wave(self, x, y):
        half = self.wave_width / 2
        long = self.wave_end - self.wave_start
        step = 1 / WAVE_POINTS
        first = max(0, math.floor((x - half - self.wave_start) / long / step))
        last = min(WAVE_POINTS, math.ceil((x + half - self.wave_start) / long / step))
        for i in range(first, last + 1):
            dx = x - self.wave_start - i * step * long
            dy = y - self.middle - self.wave_heights[i]
            if dx * dx + dy * dy <= half * half:
                return True
        return False


def mix(one, other, share):
    share = min(1.0, max(0.0, share))
    return tuple(a + (b - a) * share for a, b in zip(one, other))


def steel(share):
    """A cylinder's shade across its height, lit from above."""
    if share < 0.28:
        return mix(STEEL, STEEL_LIGHT, share / 0.28)
    if share < 0.6:
        return mix(STEEL_LIGHT, STEEL, (share - 0.28) / 0.32)
    return mix(STEEL, STEEL_DARK, (share - 0.6) / 0.4)


def in_box(x, y, left, top, right, bottom, radius):
    dx = max(left + radius - x, 0, x - (right - radius))
    dy = max(top + radius - y, 0, y - (bottom - radius))
    return left <= x <= right and top <= y <= bottom and dx * dx + dy * dy <= radius * radius + 1e-9


def colour_at(s, x, y):
    """Colour of one point, or None where the drawing is empty."""
    body = in_box(x, y, s.left, s.top, s.right, s.bottom, s.radius)
    spigot = in_box(x, y, 0, s.spigot_top, s.size, s.spigot_bottom, s.radius * 0.5)
    if not body and not spigot:
        return None
    if s.on_wave(x, y):
        return WAVE
    o = s.outline
    if not body:
        edge = in_box(x, y, o, s.spigot_top + o, s.size - o, s.spigot_bottom - o, s.radius * 0.5)
        inner = s.air_top < y < s.size - s.air_top
        if not edge:
            return OUTLINE
        return AIR if inner else steel((y - s.spigot_top) / (s.spigot_bottom - s.spigot_top))
    if not in_box(x, y, s.left + o, s.top + o, s.right - o, s.bottom - o, s.radius - o / 2):
        return AIR if spigot and s.air_top < y < s.size - s.air_top else OUTLINE
    depth = min(y, s.size - y)
    if depth < s.wool_top:
        return steel((y - s.top) / (s.bottom - s.top))
    if depth < s.air_top:
        return wool_at(s, x, y, depth)
    return AIR


def wool_at(s, x, y, depth):
    across = (depth - s.wool_top) / s.wool
    if s.holes:
        # The perforated sheet lies on the air's side of the wool.
        sheet = s.air_top - max(1.5, s.wool * 0.3)
        if depth > sheet:
            along = (x - s.left) / s.hole_pitch
            return WOOL if abs(along - math.floor(along) - 0.5) < 0.24 else STEEL_DARK
        if s.size >= 48:
            crimp = math.sin((x + (s.size - y if y > s.middle else y) * 1.2) * 2 * math.pi / s.hole_pitch)
            return mix(WOOL, WOOL_DARK, 0.18 + 0.22 * crimp)
    return mix(WOOL, WOOL_DARK, 0.25 * across)


def render(size):
    """Rows of (r, g, b, a), anti-aliased by averaging a grid of points in every pixel."""
    s = Shape(size)
    grid = 4 if size >= 128 else 8
    rows = []
    for row in range(size):
        line = []
        for column in range(size):
            total, hits = [0.0, 0.0, 0.0], 0
            for i in range(grid):
                for j in range(grid):
                    colour = colour_at(s, column + (i + 0.5) / grid, row + (j + 0.5) / grid)
                    if colour:
                        hits += 1
                        for k in range(3):
                            total[k] += colour[k]
            line.append(tuple(round(t / hits) for t in total) + (round(255 * hits / grid**2),) if hits else (0, 0, 0, 0))
        rows.append(line)
    return rows


def png(rows):
    def chunk(name, data):
        return struct.pack(">I", len(data)) + name + data + struct.pack(">I", zlib.crc32(name + data))

    raw = b"".join(b"\0" + bytes(value for pixel in row for value in pixel) for row in rows)
    head = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    return b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", head) + chunk(b"IDAT", zlib.compress(raw, 9)) + chunk(b"IEND", b"")


def bitmap(rows):
    """A device-independent bitmap with its mask, as icons up to 64 px hold it."""
    size = len(rows)
    pixels = b"".join(bytes((b, g, r, a)) for row in reversed(rows) for r, g, b, a in row)
    mask_row = ((size + 31) // 32) * 4
    mask = b""
    for row in reversed(rows):
        bits = "".join("0" if pixel[3] else "1" for pixel in row).ljust(mask_row * 8, "0")
        mask += int(bits, 2).to_bytes(mask_row, "big")
    return struct.pack("<IiiHHIIiiII", 40, size, 2 * size, 1, 32, 0, len(pixels) + len(mask), 0, 0, 0, 0) + pixels + mask


def icon(sizes, pictures):
    images = [png(pictures[size]) if size > 64 else bitmap(pictures[size]) for size in sizes]
    offset = 6 + 16 * len(sizes)
    data = struct.pack("<HHH", 0, 1, len(sizes))
    for size, image in zip(sizes, images):
        data += struct.pack("<BBBBHHII", size % 256, size % 256, 0, 0, 1, 32, len(image), offset)
        offset += len(image)
    return data + b"".join(images)


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    pictures = {size: render(size) for size in sorted(set(SMALL + LARGE))}
    for name, sizes in (("silencer-small.ico", SMALL), ("silencer-large.ico", LARGE)):
        with open(os.path.join(here, name), "wb") as file:
            file.write(icon(sizes, pictures))
    if len(sys.argv) > 1:
        for size, rows in pictures.items():
            with open(os.path.join(sys.argv[1], f"silencer-{size}.png"), "wb") as file:
                file.write(png(rows))


if __name__ == "__main__":
    main()
