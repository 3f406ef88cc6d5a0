#!/usr/bin/env python3
"""Drawings of translucent things, and what their pages look like: translucency.py make | check

Pages are 200 by 100 pixels. Expected colours are those of compositing.
"""

import base64
import struct
import sys
import zlib

WIDTH, HEIGHT = 200, 100


def red_png():
    """A red picture whose right half is transparent."""
    rows = [[(255, 0, 0, 255), (0, 0, 0, 0)]]
    data = b"".join(b"\0" + b"".join(bytes(pixel) for pixel in row) for row in rows)

    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))

    png = b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 2, 1, 8, 6, 0, 0, 0))
    png += chunk(b"IDAT", zlib.compress(data)) + chunk(b"IEND", b"")
    return "data:image/png;base64," + base64.b64encode(png).decode()


def stops(*pairs):
    return "".join(f'<stop offset="{at}" stop-color="{color}" stop-opacity="{opacity}"/>' for at, color, opacity in pairs)


# Gradients have colours that rise along the rows that are checked, so that a seam is a step back.
DRAWINGS = {
    "near-lines": """
        <path d="M0,50H200" stroke="#000" stroke-width="4"/><path d="M100,0V100" stroke="#000" stroke-width="4"/>
        <rect x="10" y="33" width="60" height="12" fill="#f00" opacity="0.5"/>
        <rect x="10" y="60" width="60" height="12" rx="5" fill="#f00" opacity="0.5"/>
        <path d="M106,10H112V40H106Z" fill="#00f" opacity="0.5"/>
        <path d="M120,42L180,90" stroke="#0f0" stroke-width="8" opacity="0.5"/>""",
    "linear": f"""
        <linearGradient id="g">{stops((0, "#ff0000", 0.05), (1, "#ff0000", 0.95))}</linearGradient>
        <ellipse cx="100" cy="50" rx="95" ry="48"/>
        <rect x="5" y="20" width="190" height="60" fill="url(#g)"/>""",
    "radial": f"""
        <radialGradient id="g" gradientUnits="userSpaceOnUse" cx="0" cy="50" r="200">
        {stops((0, "#ff0000", 0.05), (1, "#ff0000", 0.95))}</radialGradient>
        <ellipse cx="100" cy="50" rx="95" ry="48"/>
        <rect x="1" y="10" width="198" height="80" fill="url(#g)"/>""",
    "abutting": """
        <rect x="0" y="0" width="70.37" height="100"/><rect x="70.37" y="0" width="130" height="100" fill="#0c0000"/>
        <circle cx="100" cy="50" r="45" fill="#fff" opacity="0.5"/>""",
    "tiles": """
        <pattern id="p" width="13.3" height="7.7" patternUnits="userSpaceOnUse">
        <rect width="13.3" height="7.7" fill="#804020"/><rect x="4" y="2" width="2" height="2" fill="#824222"/></pattern>
        <rect width="200" height="100" fill="#fff"/>
        <rect x="10" y="10" width="80" height="80" fill="url(#p)"/>
        <circle cx="150" cy="50" r="40" fill="url(#p)"/>""",
    "turned-tiles": """
        <pattern id="p" width="13.3" height="7.7" patternUnits="userSpaceOnUse" patternTransform="rotate(20)">
        <path d="M-1,3.85H20" stroke="#804020" stroke-width="9"/></pattern>
        <rect x="10" y="10" width="180" height="80" fill="url(#p)" opacity="0.5"/>""",
    "groups": f"""
        <rect width="200" height="100" fill="#000"/>
        <g opacity="0.5">
        <rect width="100" height="100" fill="#0f0"/>
        <rect x="50" width="100" height="50" fill="#f00" opacity="0.5"/>
        <g opacity="0.5"><rect y="60" width="120" height="40" fill="#fff"/>
        <rect y="80" x="20" width="120" height="20" fill="#00f"/></g>
        <image href="{red_png()}" x="20" y="20" width="20" height="10" preserveAspectRatio="none"/></g>""",
    "picture": f"""
        <image href="{red_png()}" x="20" y="20" width="160" height="60" preserveAspectRatio="none"/>
        <rect x="10" y="40" width="180" height="20" fill="#00f" opacity="0.5"/>
        <text x="110" y="75" font-family="Helvetica" font-weight="bold" font-size="60" fill="#000"
         opacity="0.5">I</text>""",
}

POINTS = {
    "near-lines": {(20, 35): (255, 128, 128), (60, 42): (255, 128, 128), (40, 66): (255, 128, 128),
              (108, 20): (128, 128, 255), (150, 66): (128, 255, 128), (100, 20): (0, 0, 0)},
    "groups": {(10, 10): (0, 128, 0), (60, 10): (64, 64, 0), (120, 10): (64, 0, 0), (10, 70): (64, 128, 64),
               (110, 70): (64, 64, 64), (50, 90): (0, 64, 64), (110, 90): (0, 0, 64), (25, 25): (128, 0, 0),
               (36, 25): (0, 128, 0)},
    "picture": {(40, 30): (255, 0, 0), (40, 50): (128, 0, 128), (150, 50): (128, 128, 255), (15, 50): (128, 128, 255),
                (150, 30): (255, 255, 255), (118, 70): (128, 128, 128)},
}

# Whole boxes of one colour: left, top, right, bottom.
BOXES = {
    "abutting": [((64, 35, 130, 65), (131, 128, 128))],
    "tiles": [((12, 12, 88, 88), (128, 64, 32)), ((130, 30, 170, 70), (128, 64, 32))],
    "turned-tiles": [((12, 12, 188, 88), (192, 160, 144))],
}

# Rows in which red does not fall: from, to, row.
ROWS = {"linear": [(20, 180, 50), (40, 160, 30)], "radial": [(12, 188, 50), (50, 150, 20)]}


def read(name):
    with open(name, "rb") as file:
        data = file.read()
    header, size, rest = data.split(b"\n", 2)
    while size.startswith(b"#"):
        size, rest = rest.split(b"\n", 1)
    assert header == b"P6" and size == b"%d %d" % (WIDTH, HEIGHT), size
    pixels = rest.split(b"\n", 1)[1]
    return lambda x, y: tuple(pixels[3 * (WIDTH * y + x) : 3 * (WIDTH * y + x) + 3])


def check(name):
    at = read(name + "-1.ppm")

    def expect(x, y, wanted, most=3):
        found = at(x, y)
        if max(abs(a - b) for a, b in zip(found, wanted)) > most:
            sys.exit(f"FAILED: {name} at {x},{y}: {found}, not {wanted}")

    for (x, y), wanted in POINTS.get(name, {}).items():
        expect(x, y, wanted)
    for (left, top, right, bottom), wanted in BOXES.get(name, []):
        for y in range(top, bottom):
            for x in range(left, right):
                expect(x, y, wanted, 4)
    for start, end, y in ROWS.get(name, []):
        for x in range(start + 1, end):
            before, here = at(x - 1, y), at(x, y)
            if here[0] < before[0] - 1 or here[0] > before[0] + 9 or here[1] > 2:
                sys.exit(f"FAILED: {name}: a seam at {x},{y}: {before}, then {here}")


def main():
    if sys.argv[1] == "check":
        for name in DRAWINGS:
            check(name)
        return
    for name, body in DRAWINGS.items():
        with open(name + ".svg", "w", encoding="ascii") as file:
            file.write(f'<svg xmlns="http://www.w3.org/2000/svg" width="{WIDTH}" height="{HEIGHT}">{body}</svg>')


main()
