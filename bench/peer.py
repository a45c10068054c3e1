#!/usr/bin/python3
"""The same jobs by ezdxf, the library most scripts use on drawings: peer.py JOB IN.dxf OUT.dxf [STAMPS.json]

JOB is roundtrip (open, save), onelabel (one label over every line, circle and polyline) or labels (one label per text).
A label is what ezdxf can make of it: an XRECORD in the dictionary ZOL_BSYSTEM_LABELS; each entity it refers to gets
the seven XDATA elements of terraSHAPING and the label as persistent reactor.

JOB may also be stamp (draw the stamps of a JSON file in a new drawing, save) or restamp (open, draw its stamps anew as
the file says, save). A stamp is a block with a hatch, a polyline and a text, and a reference to it.
"""
import json
import math
import sys
import uuid

import ezdxf

LAYER = "ZOL_Annotations_Layer"
STYLE = "ZOL_STAMP_TEXTSTYLE_ARIAL"


def make_label(doc, dictionary, name, entities):
    guid = str(uuid.uuid4())
    record = dictionary.add_xrecord(guid)
    record.reset([(1, guid), (2, name), (90, len(entities)), *((340, entity.dxf.handle) for entity in entities)])
    marks = [(1071, 3), (1071, 0x1000), (1071, 0), (1000, ""), (1000, guid), (1000, name)]
    for entity in entities:
        entity.set_xdata("terraSHAPING", marks)
        entity.append_reactor_handle(record.dxf.handle)


def label_all(job, doc):
    doc.appids.add("terraSHAPING")
    dictionary = doc.rootdict.add_new_dict("ZOL_BSYSTEM_LABELS")
    space = doc.modelspace()
    if job == "onelabel":
        make_label(doc, dictionary, "", list(space.query("LINE CIRCLE LWPOLYLINE")))
    else:
        for text in list(space.query("TEXT")):
            make_label(doc, dictionary, text.dxf.text, [text])


def rgb(argb):
    return tuple(int(argb[at:at + 2], 16) for at in (3, 5, 7))


def outline_of(stamp):
    """Vertices and bulges of a rectangle, a rounded one or a stretched polygon."""
    x, y, shape = stamp["Width"] / 2, stamp["Height"] / 2, stamp["BorderShape"]
    if shape > 2:
        radius = stamp["Height"] / math.sqrt(2) / math.cos(math.pi / shape)
        turns = [math.tau / shape * corner for corner in range(shape)]
        return [(-radius * math.sin(turn) * x / y, radius * math.cos(turn), 0.0) for turn in turns]
    r = stamp["CornerRadius"]
    if not r:
        return [(-x, -y, 0), (x, -y, 0), (x, y, 0), (-x, y, 0)]
    b = math.tan(math.pi / 8)
    return [(-x, -y + r, b), (-x + r, -y, 0), (x - r, -y, b), (x, -y + r, 0), (x, y - r, b), (x - r, y, 0),
            (-x + r, y, b), (-x, y - r, 0)]


def fill(stamp, hatch, border, text):
    outline = outline_of(stamp)
    hatch.paths.clear()
    hatch.paths.add_polyline_path(outline, is_closed=True, flags=3)
    hatch.rgb, hatch.transparency = rgb(stamp["BackgroundColor"]), 0
    border.set_points(outline, format="xyb")
    border.closed = True
    border.dxf.const_width = stamp["BorderThickness"]
    border.rgb, border.transparency = rgb(stamp["BorderColor"]), 0
    text.text = f"\\f{stamp['Font']};{stamp['Text']}"
    text.dxf.char_height, text.dxf.width = stamp["FontSize"], stamp["Width"] - 2 * stamp["Padding"]
    text.dxf.attachment_point, text.dxf.style = 5, STYLE
    text.rgb, text.transparency = rgb(stamp["TextColor"]), 0


def place(stamp, insert):
    insert.dxf.insert, insert.dxf.rotation = (stamp["X"], stamp["Y"]), stamp["Angle"]


def stamp_all(doc, stamps):
    doc.layers.add(LAYER)
    doc.styles.add(STYLE, font="arial.ttf")
    space = doc.modelspace()
    for number, stamp in enumerate(stamps):
        block = doc.blocks.new(f"Annotation_{number + 1}")
        fill(stamp, block.add_hatch(), block.add_lwpolyline([]), block.add_mtext(""))
        place(stamp, space.add_blockref(block.name, (0, 0), dxfattribs={"layer": LAYER}))


def restamp_all(doc, stamps):
    inserts = doc.modelspace().query(f'INSERT[layer=="{LAYER}"]')
    for stamp, insert in zip(stamps, inserts):
        fill(stamp, *sorted(insert.block(), key=lambda entity: entity.dxftype()))
        place(stamp, insert)


def main(job, source, target, stamps=None):
    doc = ezdxf.new("R2018", setup=False) if job == "stamp" else ezdxf.readfile(source)
    if job in ("onelabel", "labels"):
        label_all(job, doc)
    elif stamps:
        with open(stamps, encoding="utf-8") as file:
            (stamp_all if job == "stamp" else restamp_all)(doc, json.load(file))
    doc.saveas(target)


if __name__ == "__main__":
    arguments = {"roundtrip": 4, "onelabel": 4, "labels": 4, "stamp": 5, "restamp": 5}
    if len(sys.argv) < 2 or len(sys.argv) != arguments.get(sys.argv[1]):
        sys.exit(__doc__.splitlines()[0])
    main(*sys.argv[1:])
