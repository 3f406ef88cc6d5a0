"""Makes picture files for the tests, and looks at rendered pages. Needs the standard library alone.

pictures.py make               writes pictures of every kind here, and beside each NAME.rgb: what it should look like
pictures.py big KIND W H NAME  writes a picture that fits in no test otherwise: "black" (grey PNG) or "bits" (raw PBM)
pictures.py header W H NAME [interlaced]  writes a grey PNG file that says it has this size, and ends
pictures.py text SIZE SAID NAME  writes a grey PNG file with a text of SIZE bytes that is said to have SAID bytes
pictures.py same PAGE...        compares rendered pages NAME-1.ppm, in any folder, with NAME.rgb here
pictures.py count R G B PAGE... prints how many pixels of each page have a colour
pictures.py near MOST           reads lines "PAGE X,Y R G B": pixels have these samples, or MOST more or less
pictures.py turn JPEG PREFIX    writes the JPEG file in the eight ways to hold a camera, PREFIX1.jpg to PREFIX8.jpg
"""
import os
import random
import struct
import sys
import zlib

WIDTH, HEIGHT = 37, 23
SIGNATURE = b"\x89PNG\r\n\x1a\n"
WHITE = (255, 255, 255)


def chunk(kind, data):
    return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))


def png(name, width, height, depth, kind, rows, extra=b"", interlaced=False):
    body = zlib.compress(b"".join(b"\0" + bytes(row) for row in rows))
    header = struct.pack(">IIBBBBB", width, height, depth, kind, 0, 0, int(interlaced))
    with open(name, "wb") as file:
        file.write(SIGNATURE + chunk(b"IHDR", header) + extra + chunk(b"IDAT", body) + chunk(b"IEND", b""))


def write(name, data):
    with open(name, "wb") as file:
        file.write(data)


def expect(name, pixels):
    write(name + ".rgb", bytes(c for row in pixels for pixel in row for c in pixel))


def packed(bits):
    """Rows of bits as bytes, the leftmost bit the highest."""
    size = (len(bits) + 7) // 8
    return (int("".join(map(str, bits)), 2) << (size * 8 - len(bits))).to_bytes(size, "big")


def adam7(rows):
    """The rows of the seven passes of an interlaced picture."""
    for x0, y0, dx, dy in (0, 0, 8, 8), (4, 0, 8, 8), (0, 4, 4, 8), (2, 0, 4, 4), (0, 2, 2, 4), (1, 0, 2, 2), (0, 1, 1, 2):
        for row in rows[y0::dy]:
            if row[x0::dx]:
                yield row[x0::dx]


def blended(pixel, paper=WHITE):
    *color, alpha = pixel
    return tuple(int(c * alpha / 255 + p * (255 - alpha) / 255 + 0.5) for c, p in zip(color, paper))


def make():
    rand = random.Random(7)
    columns, lines = range(WIDTH), range(HEIGHT)
    bits = [[rand.randrange(2) for _ in columns] for _ in lines]
    grey = [[rand.randrange(256) for _ in columns] for _ in lines]
    color = [[tuple(rand.randrange(256) for _ in range(3)) for _ in columns] for _ in lines]
    flat = [[c for pixel in row for c in pixel] for row in color]
    black_bits = [[(0, 0, 0) if b else WHITE for b in row] for row in bits]
    white_bits = [[WHITE if b else (0, 0, 0) for b in row] for row in bits]
    greys = [[(g, g, g) for g in row] for row in grey]

    def both(name, pixels):
        expect(name, pixels)
        return name

    png(both("bits.png", white_bits), WIDTH, HEIGHT, 1, 0, map(packed, bits))
    two = [(200, 30, 10), (20, 40, 90)]
    png(both("two.png", [[two[b] for b in row] for row in bits]), WIDTH, HEIGHT, 1, 3, map(packed, bits),
        chunk(b"PLTE", bytes(two[0] + two[1])))
    png(both("grey.png", greys), WIDTH, HEIGHT, 8, 0, grey)
    png(both("interlaced.png", greys), WIDTH, HEIGHT, 8, 0, adam7(grey), interlaced=True)
    deep = [[b for g in row for b in (g, g)] for row in grey]
    png(both("grey16.png", greys), WIDTH, HEIGHT, 16, 0, deep)
    png(both("color.png", color), WIDTH, HEIGHT, 8, 2, flat)
    png(both("dense.png", color), WIDTH, HEIGHT, 8, 2, flat, chunk(b"pHYs", struct.pack(">IIB", 5669, 2835, 1)))
    palette = [tuple(rand.randrange(256) for _ in range(3)) for _ in range(16)]
    quads = [[rand.randrange(16) for _ in columns] for _ in lines]
    png(both("palette.png", [[palette[q] for q in row] for row in quads]), WIDTH, HEIGHT, 4, 3,
        (bytes.fromhex("".join(f"{q:x}" for q in row) + "0" * (WIDTH % 2)) for row in quads),
        chunk(b"PLTE", bytes(c for entry in palette for c in entry)))
    for name, alphas in ("mask.png", (0, 255)), ("alpha.png", range(256)):
        clear = [[pixel + (255 if x < 12 else rand.choice(alphas),) for x, pixel in enumerate(row)] for row in color]
        png(both(name, [[blended(pixel) for pixel in row] for row in clear]), WIDTH, HEIGHT, 8, 6,
            ([c for pixel in row for c in pixel] for row in clear))
    faint = [[(g, 255 * (x % 2)) for x, g in enumerate(row)] for row in grey]
    png(both("greymask.png", [[(g, g, g) if a else WHITE for g, a in row] for row in faint]), WIDTH, HEIGHT, 8, 4,
        ([c for pixel in row for c in pixel] for row in faint))

    size = f"{WIDTH} # columns\n{HEIGHT}\n"

    def text(rows):
        return "".join(" ".join(map(str, row)) + "\n" for row in rows)

    def pnm(name, pixels, header, data):
        write(both(name, pixels), header.encode() + (data.encode() if isinstance(data, str) else b"".join(data)))

    pnm("plain.pbm", black_bits, "P1\n# plain\n" + size, "".join("".join(map(str, row)) + "\n" for row in bits))
    pnm("raw.pbm", black_bits, "P4\n" + size, map(packed, bits))
    pnm("plain.pgm", greys, "P2\n" + size + "255\n", text(grey))
    pnm("raw.pgm", greys, "P5 " + size + "255\n", map(bytes, grey))
    pnm("wide.pgm", greys, "P5 " + size + "65535\n", map(bytes, deep))
    pnm("plain.ppm", color, "P3\n" + size + "255\n", text(flat))
    pnm("raw.ppm", color, "P6\n" + size + "255\n", map(bytes, flat))
    fifths = [[rand.randrange(6) for _ in columns] for _ in lines]
    pnm("six.pgm", [[(51 * v,) * 3 for v in row] for row in fifths], "P5\n" + size + "5\n", map(bytes, fifths))
    pam = f"P7\nWIDTH {WIDTH}\nHEIGHT {HEIGHT}\nDEPTH 3\nMAXVAL 255\nTUPLTYPE RGB\nENDHDR\n"
    pnm("map.pam", color, pam, map(bytes, flat))

    # Wider than a row of level 1 may be, and taller than a strip.
    line = [rand.randrange(256) for _ in range(20000)]
    png(both("wide.png", [[(g, g, g) for g in line]] * 3), 20000, 3, 8, 0, [line] * 3)
    png(both("tall.png", [[(g, g, g)] * 40 for g in line[:9000]]), 40, 9000, 8, 2, ([g] * 120 for g in line[:9000]))


def big(kind, width, height, name):
    with open(name, "wb") as file:
        if kind == "bits":
            file.write(b"P4\n%d %d\n" % (width, height) + b"\xff" * ((width + 7) // 8 * height))
            return
        packer = zlib.compressobj(1)
        body = b"".join(packer.compress(b"\0" * (width + 1)) for _ in range(height)) + packer.flush()
        header = struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0)
        file.write(SIGNATURE + chunk(b"IHDR", header) + chunk(b"IDAT", body) + chunk(b"IEND", b""))


def page(name):
    """Width, height and samples of a page as an interpreter writes it."""
    with open(name, "rb") as file:
        data = file.read()
    at, fields = 0, []
    while len(fields) < 4:
        end = data.index(b"\n", at)
        if data[at:at + 1] != b"#":
            fields += data[at:end].split()
        at = end + 1
    return int(fields[1]), int(fields[2]), data[at:]


def same(name):
    width, _, found = page(name)
    with open(os.path.basename(name).removesuffix("-1.ppm") + ".rgb", "rb") as file:
        wanted = file.read()
    if found == wanted:
        return
    if len(found) != len(wanted):
        sys.exit(f"{name}: {len(found)} samples, not {len(wanted)}")
    i = next(i for i, (a, b) in enumerate(zip(found, wanted)) if a != b)
    sys.exit(f"{name}: column {i // 3 % width}, row {i // 3 // width}: {found[i]}, not {wanted[i]}")


def count(name, color):
    samples = page(name)[2]
    print(sum(samples[i:i + 3] == color for i in range(0, len(samples), 3)))


def near(most):
    for line in sys.stdin:
        name, place, *color = line.split()
        x, y = map(int, place.split(","))
        width, _, samples = page(name)
        found = samples[3 * (y * width + x):][:3]
        if len(found) != 3 or max(abs(a - int(b)) for a, b in zip(found, color, strict=True)) > most:
            sys.exit(f"{name}: {tuple(found)} at {place}, not {' '.join(color)}")


def turn(name, orientation, result):
    with open(name, "rb") as file:
        data = file.read()
    tags = b"Exif\0\0MM\0*" + struct.pack(">IHHHIHHI", 8, 1, 0x0112, 3, 1, orientation, 0, 0)
    write(result, data[:2] + b"\xff\xe1" + struct.pack(">H", len(tags) + 2) + tags + data[2:])


def main(command, *words):
    if command == "make":
        make()
    elif command == "big":
        big(words[0], int(words[1]), int(words[2]), words[3])
    elif command == "header":
        size = struct.pack(">IIBBBBB", int(words[0]), int(words[1]), 8, 0, 0, 0, len(words) - 3)
        write(words[2], SIGNATURE + chunk(b"IHDR", size) + chunk(b"IDAT", b""))
    elif command == "text":
        text = chunk(b"tEXt", b"Comment\0" + b" " * int(words[0]))
        png(words[2], 1, 1, 8, 0, [[0]], struct.pack(">I", int(words[1]) + 8) + text[4:])
    elif command == "same":
        for name in words:
            same(name)
    elif command == "count":
        for name in words[3:]:
            count(name, bytes(map(int, words[:3])))
    elif command == "near":
        near(int(words[0]))
    elif command == "turn":
        for orientation in range(1, 9):
            turn(words[0], orientation, f"{words[1]}{orientation}.jpg")
    else:
        sys.exit(__doc__)


main(*sys.argv[1:])
