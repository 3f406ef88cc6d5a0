#!/usr/bin/env python3
"""Whether includes go one way: no folder knows one that stands above it, and none knows another in a circle.

includes.py TOP
"""
import os
import re
import sys

# Which folders each folder may include, besides those that they may include themselves. A folder stands below all that
# name it.
MAY_INCLUDE = {
    "toolkit/base": [],
    "toolkit/geometry": ["toolkit/base"],
    "toolkit/graphics": ["toolkit/geometry"],
    "toolkit/raster": ["toolkit/graphics"],
    "toolkit/port": ["toolkit/raster"],
    "toolkit/encoder": ["toolkit/base"],
    "toolkit/memory": ["toolkit/port"],
    "toolkit/x11": ["toolkit/memory"],
    "toolkit/zlib": ["toolkit/encoder"],
    "ps/text": ["toolkit/port", "toolkit/encoder"],
    "ps/fonts": ["ps/text"],
    "ps/images": ["ps/text"],
    "ps/stream": ["toolkit/base"],
    "ps/classic": ["ps/fonts", "ps/images", "ps/stream"],
    "ps/print": ["ps/classic"],
    "tools/qsdps/values": ["toolkit/base"],
    "tools/qsdps/drawing": ["tools/qsdps/values"],
    "tools/qsdps/images": ["tools/qsdps/drawing"],
    "tools/qsdps/svg/xml": ["tools/qsdps/drawing"],
    "tools/qsdps/svg/css": ["tools/qsdps/svg/xml"],
    "tools/qsdps/svg/shapes": ["tools/qsdps/svg/css"],
    "tools/qsdps/svg/walker": ["tools/qsdps/svg/shapes", "tools/qsdps/images"],
    "tools/qsdps/svg": ["tools/qsdps/svg/walker"],
    "tools/qsdps/page": ["tools/qsdps/images", "toolkit/port"],
    "tools/qsdps/command": ["tools/qsdps/page", "tools/qsdps/svg", "toolkit/memory", "toolkit/zlib", "ps/print"],
    "tools/qsdps/window": ["tools/qsdps/command", "toolkit/x11"],
    "tools/qsdview": ["tools/qsdps/command", "toolkit/x11"],
}

# Public headers of ps lie in its top folder, their code in these.
PUBLIC = {
    "QsdPSBulkDevice.h": "ps/classic",
    "QsdPSBulkStream.h": "ps/stream",
    "QsdPSColorModel.h": "ps/classic",
    "QsdPSDevice.h": "ps/classic",
    "QsdPSFontNames_.h": "ps/fonts",
    "QsdPSFonts_.h": "ps/fonts",
    "QsdPSGlyphs.h": "ps/fonts",
    "QsdPSMatrix.h": "ps/text",
    "QsdPSPrintDevice.h": "ps/print",
    "QsdPSString.h": "ps/text",
}

# Folders that quoted names are looked for in, besides that of the file.
ROOTS = ["", "tools/qsdps", "tools"]


def reach(folder, seen=()):
    """All that a folder may include."""
    if folder in seen:
        sys.exit("a circle: " + " -> ".join(seen + (folder,)))
    found = {folder}
    for below in MAY_INCLUDE[folder]:
        found |= reach(below, seen + (folder,))
    return found


def room_of(path):
    folder, name = os.path.split(path)
    return PUBLIC.get(name, folder) if folder == "ps" else folder


def included(top, path):
    with open(os.path.join(top, path), encoding="utf-8") as file:
        for name in re.findall(r'^#include "([^"]+)"', file.read(), re.M):
            for root in [os.path.dirname(path)] + ROOTS:
                candidate = os.path.normpath(os.path.join(root, name))
                if os.path.isfile(os.path.join(top, candidate)):
                    yield candidate
                    break
            else:
                yield name + " (not found)"


def main(top):
    allowed = {folder: reach(folder) for folder in MAY_INCLUDE}
    faults = []
    count = 0
    for start in ("toolkit", "ps", "tools"):
        for folder, _, names in os.walk(os.path.join(top, start)):
            for name in sorted(names):
                if not name.endswith((".h", ".cpp")):
                    continue
                path = os.path.relpath(os.path.join(folder, name), top)
                room = room_of(path)
                if room not in allowed:
                    faults.append(f"{path}: a folder that the table does not know")
                    continue
                for other in included(top, path):
                    count += 1
                    if room_of(other) not in allowed[room]:
                        faults.append(f"{path}: includes {other}")
    for fault in faults:
        print(fault, file=sys.stderr)
    print(f"{count} includes looked at, {len(faults)} against the table")
    return 1 if faults or count == 0 else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
