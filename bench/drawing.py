#!/usr/bin/python3
"""Writes a large drawing for measuring: drawing.py COUNT OUT.dxf

COUNT entities in model space, in repeating runs of twenty: 8 lines, 4 circles, 5 texts, 2 closed polylines, 1 block
reference. What stands around them comes from ezdxf; the entities are written as they are made, so that millions need
no memory. The same COUNT always gives the same entities under the same handles, so that requests can name them.
"""
import io
import math
import random
import sys

import ezdxf

FIRST_HANDLE = 0x100000
BLOCKS = 20
RUN = ["LINE"] * 8 + ["CIRCLE"] * 4 + ["TEXT"] * 5 + ["LWPOLYLINE"] * 2 + ["INSERT"]


def kind(index):
    return RUN[index % len(RUN)]


def handle(index):
    return f"{FIRST_HANDLE + index:X}"


def handles(count, kinds):
    return [handle(i) for i in range(count) if kind(i) in kinds]


def frame(count):
    """The drawing's text before and behind the entities, and the handle of model space."""
    doc = ezdxf.new("R2010", setup=True)
    for number in range(BLOCKS):
        block = doc.blocks.new(f"PART{number}")
        block.add_circle((0, 0), 4)
        block.add_text(f"N{number}", dxfattribs={"height": 2, "insert": (-1.5, -1)})
    whole = io.StringIO()
    doc.write(whole)
    before, behind = whole.getvalue().split("ENTITIES\n", 1)
    name, value = before.split("$HANDSEED\n  5\n", 1)
    before = f"{name}$HANDSEED\n  5\n{FIRST_HANDLE + count + 1:X}\n{value.split(chr(10), 1)[1]}ENTITIES\n"
    return before, behind, doc.modelspace().layout_key


def groups(index, x, y):
    """Subclass data of one entity at this place."""
    what = kind(index)
    if what == "LINE":
        return f"100\nAcDbLine\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 11\n{x + 9:.6f}\n 21\n{y + 4:.6f}\n 31\n0.0\n"
    if what == "CIRCLE":
        return f"100\nAcDbCircle\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n{2 + index % 7:.6f}\n"
    if what == "TEXT":
        return (f"100\nAcDbText\n 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n 40\n2.5\n  1\nE{index}\n"
                "100\nAcDbText\n")
    if what == "LWPOLYLINE":
        corners = ((x, y), (x + 7, y), (x + 7, y + 5), (x, y + 5))
        return "100\nAcDbPolyline\n 90\n4\n 70\n1\n" + "".join(f" 10\n{cx:.6f}\n 20\n{cy:.6f}\n" for cx, cy in corners)
    return (f"100\nAcDbBlockReference\n  2\nPART{index // len(RUN) % BLOCKS}\n"
            f" 10\n{x:.6f}\n 20\n{y:.6f}\n 30\n0.0\n")


def write(count, path):
    before, behind, owner = frame(count)
    side = 18 * math.sqrt(count)
    dice = random.Random(22)
    with open(path, "w", encoding="utf-8") as out:
        out.write(before)
        for index in range(count):
            body = groups(index, dice.random() * side, dice.random() * side)
            out.write(f"  0\n{kind(index)}\n  5\n{handle(index)}\n330\n{owner}\n100\nAcDbEntity\n  8\n0\n{body}")
        out.write(behind)


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__.splitlines()[0])
    write(int(sys.argv[1]), sys.argv[2])
