"""Compares what a page shows with a screenshot: window_dump.py XWD PPM. Needs the standard library alone."""
import struct
import sys

TRUE_COLOR, DIRECT_COLOR = 4, 5


class Known(dict):
    """What a function makes of its argument, made once."""

    def __init__(self, make):
        super().__init__()
        self.make = make

    def __missing__(self, key):
        self[key] = self.make(key)
        return self[key]


def screenshot(data):
    """Width, height and pixels (three bytes each) of a dump by xwd."""
    (size, _, _, _, width, height, _, byte_order, _, bit_order, _, bits, row_bytes, visual, *masks, _, _, colors,
     ) = struct.unpack(">20I", data[:80])
    entries = [struct.unpack(">IHHH", data[size + 12 * i:][:10]) for i in range(colors)]
    if visual == DIRECT_COLOR:
        parts = [{entry[0] & mask: entry[1 + i] >> 8 for entry in entries} for i, mask in enumerate(masks)]
    else:
        table = {entry[0]: bytes(c >> 8 for c in entry[1:]) for entry in entries}

    def color(pixel):
        if visual == DIRECT_COLOR:
            return bytes(part[pixel & mask] for part, mask in zip(parts, masks))
        if visual != TRUE_COLOR:
            return table[pixel]
        largest = [mask // (mask & -mask) for mask in masks]
        values = [(pixel & mask) // (mask & -mask) for mask in masks]
        return bytes((value * 255 + most // 2) // most for value, most in zip(values, largest))

    def shown(row):
        if bits == 1:
            return b"".join(color(row[x // 8] >> (7 - x % 8 if bit_order else x % 8) & 1) for x in range(width))
        step = bits // 8
        return b"".join([known[row[at:at + step]] for at in range(0, width * step, step)])

    # Most pixels, and most rows, are like others.
    known = Known(lambda raw: color(int.from_bytes(raw, "big" if byte_order else "little")))
    rows = Known(shown)
    start = size + 12 * colors
    return width, height, b"".join(rows[data[start + row_bytes * y:start + row_bytes * (y + 1)]] for y in range(height))


def page(data):
    fields, at = [], 0
    while len(fields) < 4:
        end = data.index(b"\n", at)
        if data[at:at + 1] != b"#":
            fields += data[at:end].split()
        at = end + 1
    return int(fields[1]), int(fields[2]), data[at:]


expected, shown = screenshot(open(sys.argv[1], "rb").read()), page(open(sys.argv[2], "rb").read())
if expected[2] == expected[2][:3] * (expected[0] * expected[1]):
    sys.exit("the screenshot shows nothing")
if expected[:2] != shown[:2]:
    sys.exit("the screenshot has %d x %d pixels, the page %d x %d" % (expected[:2] + shown[:2]))
if expected[2] != shown[2]:
    wrong = sum(expected[2][i:i + 3] != shown[2][i:i + 3] for i in range(0, len(shown[2]), 3))
    sys.exit("%d pixels differ" % wrong)
