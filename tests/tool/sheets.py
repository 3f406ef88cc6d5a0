"""Looks at sheets of pages that have a square in each corner: red and green above, blue and magenta below.

sheets.py whole PAGES PPM...  all corners of so many pages are on each sheet, each as large as the others
sheets.py upright PPM         two pages lie one above the other, upright
sheets.py size W H PPM        the sheet has this size

Needs the standard library alone.
"""
import sys

# Pixels as bytes: the sum of the components that are full, and at least OTHER where one is neither full nor nothing.
RED, GREEN, BLUE, MAGENTA, OTHER = 1, 2, 4, 5, 8


def read(name):
    """Width, height and pixels of a sheet as an interpreter writes it."""
    with open(name, "rb") as file:
        data = file.read()
    at, fields = 0, []
    while len(fields) < 4:
        end = data.index(b"\n", at)
        if data[at:at + 1] != b"#":
            fields += data[at:end].split()
        at = end + 1
    total = 0
    for component, part in enumerate((RED, GREEN, BLUE)):
        samples = data[at + component::3].translate(bytes([0] + [OTHER] * 254 + [part]))
        total += int.from_bytes(samples, "big")  # whose bytes do not overflow
    return int(fields[1]), int(fields[2]), total.to_bytes(len(samples), "big")


def whole(pages, name):
    _, _, pixels = read(name)
    areas = [pixels.count(color) for color in (RED, GREEN, BLUE, MAGENTA)]
    if min(areas) <= pages * 80 or max(areas) >= min(areas) * 1.25:
        sys.exit(f"FAILED: {name}: corners are cut: {areas}")


def box(width, pixels, color):
    """Left, top, width and height of all that has a colour."""
    rows = [pixels[at:at + width] for at in range(0, len(pixels), width)]
    places = [y for y, row in enumerate(rows) if color in row]
    left = min(rows[y].index(color) for y in places)
    right = max(rows[y].rindex(bytes([color])) for y in places)
    return left, places[0], right + 1 - left, places[-1] + 1 - places[0]


def upright(name):
    width, _, pixels = read(name)
    red, magenta = box(width, pixels, RED), box(width, pixels, MAGENTA)
    narrow = all(corner[2] < 50 and corner[3] > 200 for corner in (red, magenta))
    if not narrow or red[0] >= magenta[0] or red[1] >= magenta[1]:
        sys.exit(f"FAILED: {name}: not upright: corners at {red} and {magenta}")


def main(command, *words):
    if command == "whole":
        for name in words[1:]:
            whole(int(words[0]), name)
    elif command == "upright":
        upright(words[0])
    elif command == "size":
        found = read(words[2])[:2]
        if found != (int(words[0]), int(words[1])):
            sys.exit(f"FAILED: {words[2]} has the size {found}")
    else:
        sys.exit(__doc__)


main(*sys.argv[1:])
