#!/usr/bin/env python3
"""Draws the two optional pictures of the program: vitruvian.bmp, the backdrop of the geometry views, and icon.bmp,
the window's icon. Both are the line art of the scene's own figure on a transparent ground.
Usage: scripts/make_assets.py [FOLDER]   the folder, made if need be, is the current one unless another is named."""
import math
import os
import struct
import sys

# The figure's points in halves of its height: the groin is the origin, the crown stands at 1, the soles at -1.
NAVEL = (0.0, 0.2)
SHOULDER = (0.25, 0.6)
HEAD, HEAD_RADIUS = (0.0, 0.876), 0.125
SPINE = [(0.0, 0.75), (0.0, 0.666), (0.0, 0.6), (0.0, 0.5), (0.0, 0.2), (0.0, 0.0)]
ARM = [(0.0, 0.6), SHOULDER, (0.6, 0.6), (1.0, 0.6)]
LEG = [(0.0, 0.0), (0.11, -0.04), (0.066, -0.5), (0.055, -1.0)]
RIB = [SHOULDER, (0.18, 0.5), NAVEL]


def turned(origin, length, degrees):
    angle = math.radians(degrees)
    return (origin[0] + length * math.cos(angle), origin[1] + length * math.sin(angle))


RAISED_ARM = [SHOULDER, turned(SHOULDER, 0.375, 25), turned(SHOULDER, 0.75, 25)]
SPREAD_LEG = [(0.0, 0.0), turned((0.0, 0.0), 0.5, -60), turned((0.0, 0.0), 1.0, -60)]
CIRCLE_RADIUS = math.dist(NAVEL, RAISED_ARM[-1])
SQUARE = [(-1.0, -1.0), (1.0, -1.0), (1.0, 1.0), (-1.0, 1.0), (-1.0, -1.0)]
STAR = [turned(NAVEL, 0.5, 60 * k - 90) for k in range(7)]

BODY = (235, 212, 160)
SECOND = (200, 180, 130)
GOLD = (214, 180, 92)
BLUE = (110, 176, 230)
VIOLET = (170, 120, 224)
NIGHT = (22, 20, 32)


class Canvas:
    """Pixels of straight red, green, blue and alpha, 0 to 1; `pixels_each` to a unit, (0, `middle`) in the middle."""

    def __init__(self, side, pixels_each, middle):
        self.side, self.scale, self.middle = side, pixels_each, middle
        self.pixels = [[(0.0, 0.0, 0.0, 0.0)] * side for _ in range(side)]

    def place(self, point):
        half = (self.side - 1) / 2
        return half + point[0] * self.scale, half - (point[1] - self.middle) * self.scale

    def blend(self, x, y, colour, alpha):
        if alpha <= 0 or not (0 <= x < self.side and 0 <= y < self.side):
            return
        under = self.pixels[y][x]
        kept = under[3] * (1 - alpha)
        total = alpha + kept
        mixed = [(top / 255 * alpha + low * kept) / total for top, low in zip(colour, under)]
        self.pixels[y][x] = (*mixed, total)

    def stroke(self, start, end, colour, width, alpha=1.0):
        """A line with round ends, `width` in pixels."""
        (x0, y0), (x1, y1) = self.place(start), self.place(end)
        dx, dy = x1 - x0, y1 - y0
        square = dx * dx + dy * dy
        reach = width / 2 + 1
        for y in range(math.floor(min(y0, y1) - reach), math.ceil(max(y0, y1) + reach) + 1):
            low, high = min(x0, x1) - reach, max(x0, x1) + reach
            if abs(dy) > 1e-9:  # only where this row comes near the line
                middle, slack = x0 + (y - y0) * dx / dy, reach * math.sqrt(square) / abs(dy)
                low, high = max(low, middle - slack), min(high, middle + slack)
            for x in range(math.floor(low), math.ceil(high) + 1):
                along = max(0.0, min(1.0, ((x - x0) * dx + (y - y0) * dy) / square)) if square else 0.0
                distance = math.hypot(x - x0 - along * dx, y - y0 - along * dy)
                self.blend(x, y, colour, alpha * max(0.0, min(1.0, width / 2 + 0.5 - distance)))

    def ring(self, centre, radius, colour, width, alpha=1.0, filled=False):
        x0, y0 = self.place(centre)
        reach = radius * self.scale
        for y in range(math.floor(y0 - reach - width), math.ceil(y0 + reach + width) + 1):
            for x in range(math.floor(x0 - reach - width), math.ceil(x0 + reach + width) + 1):
                away = math.hypot(x - x0, y - y0) - reach
                away = max(0.0, away) if filled else abs(away)
                self.blend(x, y, colour, alpha * max(0.0, min(1.0, width / 2 + 0.5 - away)))

    def path(self, points, colour, width, alpha=1.0):
        for start, end in zip(points, points[1:]):
            self.stroke(start, end, colour, width, alpha)

    def both_sides(self, points, colour, width, alpha=1.0):
        self.path(points, colour, width, alpha)
        self.path([(-x, y) for x, y in points], colour, width, alpha)

    def save(self, path):
        """32 bits a pixel with alpha, the lowest row first, under a version 4 head."""
        rows = b"".join(
            bytes(round(255 * pixel[channel]) for pixel in row for channel in (2, 1, 0, 3))
            for row in reversed(self.pixels))
        masks = struct.pack("<IIII", 0xFF0000, 0xFF00, 0xFF, 0xFF000000)
        info = struct.pack("<IiiHHIIiiII", 108, self.side, self.side, 1, 32, 3, len(rows), 2835, 2835, 0, 0)
        head = info + masks + b"BGRs" + bytes(48)  # "sRGB", low byte first, and no end points
        offset = 14 + len(head)
        with open(path, "wb") as file:
            file.write(b"BM" + struct.pack("<IHHI", offset + len(rows), 0, 0, offset) + head + rows)
        print(f"make_assets: {path} ({self.side} x {self.side})")


def draw_backdrop():
    canvas = Canvas(512, 204, (CIRCLE_RADIUS + NAVEL[1] - 1) / 2)  # room for circle and square, and a margin
    canvas.path(STAR, VIOLET, 1.5, 0.55)
    for point in STAR[:6]:
        canvas.stroke(NAVEL, point, VIOLET, 1.5, 0.35)
    canvas.path(SQUARE, GOLD, 2.5)
    canvas.ring(NAVEL, CIRCLE_RADIUS, BLUE, 2.5)
    canvas.both_sides(RAISED_ARM, SECOND, 4, 0.7)
    canvas.both_sides(SPREAD_LEG, SECOND, 4, 0.7)
    canvas.both_sides(RIB, BODY, 2, 0.7)
    canvas.both_sides(ARM, BODY, 5)
    canvas.both_sides(LEG, BODY, 5)
    canvas.path(SPINE, BODY, 5)
    canvas.ring(HEAD, HEAD_RADIUS, BODY, 4)
    for joint in (SHOULDER, ARM[2], LEG[1], LEG[2], RAISED_ARM[1], SPREAD_LEG[1]):
        for side in (-1, 1):
            canvas.ring((side * joint[0], joint[1]), 0.012, BODY, 4, filled=True)
    canvas.ring(NAVEL, 0.022, GOLD, 3)
    return canvas


def draw_icon():
    canvas = Canvas(64, 23.5, NAVEL[1])
    canvas.ring(NAVEL, CIRCLE_RADIUS, NIGHT, 1, filled=True)
    canvas.path(SQUARE, GOLD, 1.5, 0.9)
    canvas.ring(NAVEL, CIRCLE_RADIUS, BLUE, 2)
    for limb in (RAISED_ARM, SPREAD_LEG):
        canvas.both_sides(limb, SECOND, 2, 0.85)
    canvas.both_sides(ARM, BODY, 2.5)
    canvas.both_sides(LEG, BODY, 1.5)
    canvas.path(SPINE, BODY, 3)
    canvas.ring(HEAD, HEAD_RADIUS * 0.6, BODY, 2.5, filled=True)
    return canvas


def main():
    if len(sys.argv) > 2 or sys.argv[1:2] in (["-h"], ["--help"]):
        sys.exit(__doc__)
    folder = sys.argv[1] if len(sys.argv) > 1 else "."
    os.makedirs(folder, exist_ok=True)
    draw_backdrop().save(os.path.join(folder, "vitruvian.bmp"))
    draw_icon().save(os.path.join(folder, "icon.bmp"))


if __name__ == "__main__":
    main()
