#!/usr/bin/python3
"""Draws the bearing bracket of the examples: bearing_bracket.py [OUT.dxf]

One A3 sheet in millimetres, first-angle projection, scale 1:1: front view, section A-A, top view; real dimensions with
their own blocks, blocks used once (title block, name plate) and often (bolt hole, surface symbol, datum), texts in
frames (rectangles, circles, an oval), notes, a hatch. Every run writes the same bytes.
"""
import os
import sys
from pathlib import Path

if os.environ.get("PYTHONHASHSEED") != "0":
    # Classes are written in the order of a set: fix it, or every run writes another file.
    os.execve(sys.executable, [sys.executable, *sys.argv], {**os.environ, "PYTHONHASHSEED": "0"})

import ezdxf
from ezdxf.enums import MTextEntityAlignment, TextEntityAlignment

SHEET_WIDTH, SHEET_HEIGHT = 420, 297

# name, colour, line type, line weight in 1/100 mm
LAYERS = [
    ("OUTLINE", 7, "CONTINUOUS", 50),
    ("HIDDEN", 8, "HIDDEN2", 25),
    ("CENTRE", 1, "CENTER2", 18),
    ("DIMENSIONS", 4, "CONTINUOUS", 18),
    ("HATCH", 9, "CONTINUOUS", 13),
    ("TEXT", 2, "CONTINUOUS", 25),
    ("POSITIONS", 6, "CONTINUOUS", 25),
    ("SHEET", 7, "CONTINUOUS", 35),
]

# The part, seen from the front: x from the middle of the base, y from its underside.
BASE_WIDTH, BASE_DEPTH, BASE_HEIGHT = 160, 80, 16
AXIS_HEIGHT, BOSS_RADIUS, BORE_RADIUS, BOSS_LENGTH = 70, 32, 20, 60
WEB_HALF, WEB_THICKNESS = 26, 18
HOLE_X, HOLE_Y, HOLE_RADIUS = 62, 26, 6.5

FRONT = (118, 150)
SIDE = (318, 150)
TOP = (118, 72)


def at(origin, x, y):
    return origin[0] + x, origin[1] + y


def layer(name, **more):
    return {"layer": name, **more}


def lines(space, origin, name, pairs):
    for (x1, y1), (x2, y2) in pairs:
        space.add_line(at(origin, x1, y1), at(origin, x2, y2), dxfattribs=layer(name))


def text(space, content, position, height=3.5, align=TextEntityAlignment.LEFT, name="TEXT"):
    space.add_text(content, height=height, dxfattribs=layer(name, style="Drawing")).set_placement(position, align=align)


def new_drawing():
    ezdxf.options.write_fixed_meta_data_for_testing = True
    doc = ezdxf.new("R2018")
    doc.units = ezdxf.units.MM
    doc.header["$LTSCALE"] = 10.0
    for name, description, pattern in [
        ("HIDDEN2", "Hidden (.5x) _ _ _ _ _ _", [0.45, 0.3, -0.15]),
        ("CENTER2", "Center (.5x) ____ _ ____ _", [1.35, 0.9, -0.15, 0.15, -0.15]),
    ]:
        doc.linetypes.add(name, pattern, description=description)
    doc.styles.add("Drawing", font="isocp.ttf")
    for name, colour, linetype, weight in LAYERS:
        doc.layers.add(name, color=colour, linetype=linetype, lineweight=weight)
    style = doc.dimstyles.duplicate_entry("Standard", "Mechanical")
    for attribute, value in {
        "dimtxt": 3.0, "dimasz": 2.5, "dimexo": 0.8, "dimexe": 1.5, "dimgap": 0.8, "dimtad": 1, "dimtih": 0,
        "dimtoh": 0, "dimdec": 1, "dimadec": 1, "dimzin": 8, "dimdsep": ord("."), "dimtxsty": "Drawing", "dimblk": "",
    }.items():
        style.set_dxf_attrib(attribute, value)
    return doc


# --- blocks -----------------------------------------------------------------------------------------------------------

def define_bolt_hole(doc):
    block = doc.blocks.new("BOLT_HOLE")
    block.add_circle((0, 0), HOLE_RADIUS, dxfattribs=layer("OUTLINE"))
    block.add_circle((0, 0), 10, dxfattribs=layer("OUTLINE"))
    block.add_line((-13, 0), (13, 0), dxfattribs=layer("CENTRE"))
    block.add_line((0, -13), (0, 13), dxfattribs=layer("CENTRE"))


def define_surface_symbol(doc):
    block = doc.blocks.new("SURFACE_FINISH")
    block.add_line((0, 0), (-2, 3.46), dxfattribs=layer("DIMENSIONS"))
    block.add_line((0, 0), (4, 6.93), dxfattribs=layer("DIMENSIONS"))
    block.add_line((-2, 3.46), (2, 3.46), dxfattribs=layer("DIMENSIONS"))
    block.add_line((4, 6.93), (12, 6.93), dxfattribs=layer("DIMENSIONS"))
    block.add_attdef("RA", (4.6, 3.6), "Ra 6.3",
                     dxfattribs=layer("TEXT", height=2.5, style="Drawing", prompt="Roughness"))


def define_datum(doc):
    block = doc.blocks.new("DATUM")
    block.add_lwpolyline([(-1.8, 0), (1.8, 0), (0, 3)], close=True, dxfattribs=layer("DIMENSIONS"))
    block.add_line((0, 3), (0, 6), dxfattribs=layer("DIMENSIONS"))
    block.add_lwpolyline([(-3, 6), (3, 6), (3, 12), (-3, 12)], close=True, dxfattribs=layer("DIMENSIONS"))
    block.add_attdef("DATUM", (-1.3, 7.4), "A", dxfattribs=layer("TEXT", height=3.0, style="Drawing", prompt="Datum"))


def define_name_plate(doc):
    """A block used once: a label over its reference reaches the entities inside."""
    block = doc.blocks.new("NAME_PLATE")
    block.add_lwpolyline([(0, 0), (30, 0), (30, 9), (0, 9)], close=True, dxfattribs=layer("OUTLINE"))
    block.add_circle((2, 4.5), 0.8, dxfattribs=layer("OUTLINE"))
    block.add_circle((28, 4.5), 0.8, dxfattribs=layer("OUTLINE"))
    text(block, "LB-40", (15, 4.5), 4, TextEntityAlignment.MIDDLE_CENTER)


# tag, prompt, x, y, height, value
TITLE_FIELDS = [
    ("TITLE", "Title", 64, 32, 5, "BEARING BRACKET"),
    ("NUMBER", "Drawing number", 64, 19, 5, "ZC-2210-016"),
    ("MATERIAL", "Material", 64, 9, 3.5, "EN-GJL-250"),
    ("DRAWN", "Drawn by", 22, 31, 3, "M. Keller"),
    ("CHECKED", "Checked by", 22, 21, 3, "A. Sommer"),
    ("SCALE", "Scale", 22, 11, 3, "1:1"),
    ("SHEET", "Sheet", 22, 3, 3, "1 / 1"),
    ("MASS", "Mass", 138, 9, 3.5, "4.8 kg"),
]
TITLE_CAPTIONS = [("Drawn", 2, 31), ("Checked", 2, 21), ("Scale", 2, 11), ("Sheet", 2, 3), ("Title", 62, 40),
                  ("Drawing number", 62, 26), ("Material", 62, 14.5), ("Mass", 136, 14.5)]


def define_title_block(doc):
    block = doc.blocks.new("TITLE_BLOCK")
    block.add_lwpolyline([(0, 0), (180, 0), (180, 44), (0, 44)], close=True, dxfattribs=layer("SHEET"))
    for (x1, y1), (x2, y2) in [((60, 0), (60, 44)), ((20, 0), (20, 44)), ((60, 29), (180, 29)), ((60, 17), (180, 17)),
                               ((134, 0), (134, 17)), ((0, 28), (60, 28)), ((0, 18), (60, 18)), ((0, 8), (60, 8))]:
        block.add_line((x1, y1), (x2, y2), dxfattribs=layer("SHEET"))
    for caption, x, y in TITLE_CAPTIONS:
        text(block, caption, (x, y), 2)
    text(block, "QUEND", (158, 37), 6, TextEntityAlignment.MIDDLE_CENTER)
    text(block, "machine elements", (158, 31.5), 2.2, TextEntityAlignment.MIDDLE_CENTER)
    for tag, prompt, x, y, height, value in TITLE_FIELDS:
        block.add_attdef(tag, (x, y), value, dxfattribs=layer("TEXT", height=height, style="Drawing", prompt=prompt))


# --- views ------------------------------------------------------------------------------------------------------------

def draw_front_view(space):
    half = BASE_WIDTH / 2
    space.add_lwpolyline([at(FRONT, *p) for p in
                          [(-half, 0), (half, 0), (half, BASE_HEIGHT - 3, ), (half - 3, BASE_HEIGHT),
                           (-half + 3, BASE_HEIGHT), (-half, BASE_HEIGHT - 3)]], close=True, dxfattribs=layer("OUTLINE"))
    space.add_circle(at(FRONT, 0, AXIS_HEIGHT), BOSS_RADIUS, dxfattribs=layer("OUTLINE"))
    space.add_circle(at(FRONT, 0, AXIS_HEIGHT), BORE_RADIUS, dxfattribs=layer("OUTLINE"))
    space.add_circle(at(FRONT, 0, AXIS_HEIGHT), BORE_RADIUS + 1.5, dxfattribs=layer("OUTLINE"))
    lines(space, FRONT, "OUTLINE", [((-40, BASE_HEIGHT), (-30.9, 61.7)), ((40, BASE_HEIGHT), (30.9, 61.7))])
    lines(space, FRONT, "OUTLINE", [((-5, BASE_HEIGHT), (-5, 38.4)), ((5, BASE_HEIGHT), (5, 38.4))])
    lines(space, FRONT, "HIDDEN", [((side * HOLE_X + dx, 0), (side * HOLE_X + dx, BASE_HEIGHT - 5))
                                   for side in (-1, 1) for dx in (-HOLE_RADIUS, HOLE_RADIUS)])
    lines(space, FRONT, "HIDDEN", [((side * HOLE_X + dx, BASE_HEIGHT - 5), (side * HOLE_X + dx, BASE_HEIGHT))
                                   for side in (-1, 1) for dx in (-10, 10)])
    lines(space, FRONT, "HIDDEN", [((side * HOLE_X - 10, BASE_HEIGHT - 5), (side * HOLE_X + 10, BASE_HEIGHT - 5))
                                   for side in (-1, 1)])
    lines(space, FRONT, "CENTRE", [((-38, AXIS_HEIGHT), (38, AXIS_HEIGHT)), ((0, -5), (0, AXIS_HEIGHT + 38)),
                                   ((-HOLE_X, -4), (-HOLE_X, BASE_HEIGHT + 4)), ((HOLE_X, -4), (HOLE_X, BASE_HEIGHT + 4))])
    space.add_arc(at(FRONT, 0, AXIS_HEIGHT), 27, 200, 250, dxfattribs=layer("HIDDEN"))
    space.add_arc(at(FRONT, 0, AXIS_HEIGHT), 27, 290, 340, dxfattribs=layer("HIDDEN"))
    lines(space, FRONT, "DIMENSIONS", [((0, AXIS_HEIGHT + 38), (0, AXIS_HEIGHT + 44)), ((0, -5), (0, -11))])
    for y in (AXIS_HEIGHT + 45, -12):
        text(space, "A", at(FRONT, 4, y), 5, TextEntityAlignment.MIDDLE_CENTER)
        arrow = [(0, y), (-5, y + 1.2), (-5, y - 1.2)]
        space.add_solid([at(FRONT, *p) for p in arrow], dxfattribs=layer("DIMENSIONS"))


def draw_section(space):
    depth, boss = BASE_DEPTH / 2, BOSS_LENGTH / 2
    low, high = AXIS_HEIGHT - BORE_RADIUS, AXIS_HEIGHT + BORE_RADIUS
    bottom, top, web = AXIS_HEIGHT - BOSS_RADIUS, AXIS_HEIGHT + BOSS_RADIUS, WEB_THICKNESS / 2
    lower = [(-depth, 0), (depth, 0), (depth, BASE_HEIGHT), (web, BASE_HEIGHT), (web, bottom), (boss, bottom),
             (boss, low), (-boss, low), (-boss, bottom), (-web, bottom), (-web, BASE_HEIGHT), (-depth, BASE_HEIGHT)]
    left = [(-boss, high), (-3, high), (-3, top), (-boss, top)]
    right = [(3, high), (boss, high), (boss, top), (3, top)]
    hatch = space.add_hatch(color=9, dxfattribs=layer("HATCH"))
    hatch.set_pattern_fill("ANSI31", scale=1.0)
    for outline in (lower, left, right):
        points = [at(SIDE, *p) for p in outline]
        space.add_lwpolyline(points, close=True, dxfattribs=layer("OUTLINE"))
        hatch.paths.add_polyline_path(points, is_closed=True)
    lines(space, SIDE, "OUTLINE", [((-boss, low), (-boss, high)), ((boss, low), (boss, high)),
                                   ((-3, high), (3, high)), ((-3, top), (3, top))])
    lines(space, SIDE, "CENTRE", [((-boss - 6, AXIS_HEIGHT), (boss + 6, AXIS_HEIGHT)), ((0, high - 4), (0, top + 6)),
                                  ((-HOLE_Y, -4), (-HOLE_Y, BASE_HEIGHT + 4)), ((HOLE_Y, -4), (HOLE_Y, BASE_HEIGHT + 4))])
    text(space, "A-A", at(SIDE, 0, top + 20), 5, TextEntityAlignment.MIDDLE_CENTER)


def draw_top_view(space):
    half, depth, boss = BASE_WIDTH / 2, BASE_DEPTH / 2, BOSS_LENGTH / 2
    corner = 0.41421356
    space.add_lwpolyline([(*at(TOP, x, y), bulge) for x, y, bulge in
                          [(-half + 8, -depth, 0), (half - 8, -depth, corner), (half, -depth + 8, 0),
                           (half, depth - 8, corner), (half - 8, depth, 0), (-half + 8, depth, corner),
                           (-half, depth - 8, 0), (-half, -depth + 8, corner)]],
                         format="xyb", close=True, dxfattribs=layer("OUTLINE"))
    space.add_lwpolyline([at(TOP, x, y) for x, y in
                          [(-BOSS_RADIUS, -boss), (BOSS_RADIUS, -boss), (BOSS_RADIUS, boss), (-BOSS_RADIUS, boss)]],
                         close=True, dxfattribs=layer("OUTLINE"))
    lines(space, TOP, "OUTLINE", [((sx * BOSS_RADIUS, sy * WEB_THICKNESS / 2), (sx * 40, sy * WEB_THICKNESS / 2))
                                  for sx in (-1, 1) for sy in (-1, 1)])
    lines(space, TOP, "OUTLINE", [((sx * 40, -WEB_THICKNESS / 2), (sx * 40, WEB_THICKNESS / 2)) for sx in (-1, 1)])
    lines(space, TOP, "HIDDEN", [((side * BORE_RADIUS, -boss), (side * BORE_RADIUS, boss)) for side in (-1, 1)])
    space.add_circle(at(TOP, 0, 0), 3, dxfattribs=layer("OUTLINE"))
    lines(space, TOP, "CENTRE", [((-half - 5, 0), (half + 5, 0)), ((0, -depth - 5), (0, depth + 5))])
    for x in (-HOLE_X, HOLE_X):
        for y in (-HOLE_Y, HOLE_Y):
            space.add_blockref("BOLT_HOLE", at(TOP, x, y), dxfattribs=layer("OUTLINE"))


# --- what is written on them ------------------------------------------------------------------------------------------

def linear(space, origin, base, p1, p2, angle=0, written="<>"):
    space.add_linear_dim(base=at(origin, *base), p1=at(origin, *p1), p2=at(origin, *p2), angle=angle,
                         dimstyle="Mechanical", override={"dimpost": written}, dxfattribs=layer("DIMENSIONS")).render()


def draw_dimensions(space):
    half, depth, boss = BASE_WIDTH / 2, BASE_DEPTH / 2, BOSS_LENGTH / 2
    linear(space, FRONT, (0, -25), (-HOLE_X, 0), (HOLE_X, 0))
    linear(space, FRONT, (-half - 8, 0), (-half, 0), (-half + 3, BASE_HEIGHT), 90)
    linear(space, FRONT, (half + 10, 0), (half, 0), (0, AXIS_HEIGHT), 90, "<>%%p0.05")
    space.add_diameter_dim(center=at(FRONT, 0, AXIS_HEIGHT), radius=BOSS_RADIUS, angle=135, dimstyle="Mechanical",
                           location=at(FRONT, -34, AXIS_HEIGHT + 34), dxfattribs=layer("DIMENSIONS")).render()
    space.add_radius_dim(center=at(TOP, half - 8, depth - 8), radius=8, angle=45, dimstyle="Mechanical",
                         location=at(TOP, half + 8, depth + 8), dxfattribs=layer("DIMENSIONS")).render()
    linear(space, SIDE, (0, -10), (-HOLE_Y, 0), (HOLE_Y, 0))
    linear(space, SIDE, (0, -18), (-depth, 0), (depth, 0))
    linear(space, SIDE, (0, AXIS_HEIGHT + BOSS_RADIUS + 5), (-boss, AXIS_HEIGHT + BOSS_RADIUS),
           (boss, AXIS_HEIGHT + BOSS_RADIUS))
    linear(space, SIDE, (boss + 14, 0), (boss, AXIS_HEIGHT - BORE_RADIUS), (boss, AXIS_HEIGHT + BORE_RADIUS), 90,
           "%%c<> H7")
    linear(space, SIDE, (-depth - 8, 0), (-depth, BASE_HEIGHT), (-boss, AXIS_HEIGHT - BOSS_RADIUS), 90)
    linear(space, TOP, (0, -depth - 10), (-half, -depth), (half, -depth))
    linear(space, TOP, (-half - 10, 0), (-half, -depth), (-half, depth), 90)
    space.add_angular_dim_3p(base=at(FRONT, -26, AXIS_HEIGHT - 26), center=at(FRONT, 0, AXIS_HEIGHT),
                             p1=at(FRONT, -25.4, AXIS_HEIGHT - 9.2), p2=at(FRONT, -9.2, AXIS_HEIGHT - 25.4),
                             dimstyle="Mechanical", dxfattribs=layer("DIMENSIONS")).render()


# text, where the leader ends, where the frame's middle lies
CIRCLED = [("P1", (118 - 60, 162), (60, 205)), ("P2", (142, 234), (178, 256)), ("P3", (340, 245), (376, 262)),
           ("P4", (180, 98), (222, 116))]
BOXED = [("E12", (96, 180), (44, 228)), ("E14", (327, 185), (388, 176)), ("B7", (118, 72), (216, 46)),
         ("K3", (345, 158), (388, 160))]
OVAL = [("G1/8", (318, 252), (284, 268))]


def leader(space, start, end):
    space.add_line(start, end, dxfattribs=layer("POSITIONS"))
    space.add_circle(start, 0.6, dxfattribs=layer("POSITIONS"))


def foot_on_frame(middle, target, half_width, half_height):
    """Where the line from a frame's middle to its target leaves the frame."""
    dx, dy = target[0] - middle[0], target[1] - middle[1]
    scale = min(half_width / abs(dx) if dx else 1e9, half_height / abs(dy) if dy else 1e9)
    return middle[0] + dx * scale, middle[1] + dy * scale


def draw_positions(space):
    for content, target, middle in CIRCLED:
        length = ((target[0] - middle[0]) ** 2 + (target[1] - middle[1]) ** 2) ** 0.5
        foot = (middle[0] + (target[0] - middle[0]) * 6 / length, middle[1] + (target[1] - middle[1]) * 6 / length)
        leader(space, target, foot)
        space.add_circle(middle, 6, dxfattribs=layer("POSITIONS"))
        text(space, content, middle, 3.5, TextEntityAlignment.MIDDLE_CENTER, "POSITIONS")
    for content, target, (x, y) in BOXED:
        leader(space, target, foot_on_frame((x, y), target, 7, 4))
        space.add_lwpolyline([(x - 7, y - 4), (x + 7, y - 4), (x + 7, y + 4), (x - 7, y + 4)], close=True,
                             dxfattribs=layer("POSITIONS"))
        text(space, content, (x, y), 3.5, TextEntityAlignment.MIDDLE_CENTER, "POSITIONS")
    for content, target, (x, y) in OVAL:
        leader(space, target, foot_on_frame((x, y), target, 9, 4))
        space.add_lwpolyline([(x - 6, y - 4, 0), (x + 6, y - 4, 1), (x + 6, y + 4, 0), (x - 6, y + 4, 1)],
                             format="xyb", close=True, dxfattribs=layer("POSITIONS"))
        text(space, content, (x, y), 3.5, TextEntityAlignment.MIDDLE_CENTER, "POSITIONS")


def draw_symbols(space):
    for ra, x, y, turn in [("Ra 6.3", 60, 166, 0), ("Ra 1.6", 306, 200, 0), ("Ra 3.2", 290, 166, 0),
                           ("Ra 12.5", 72, 112, 0)]:
        space.add_blockref("SURFACE_FINISH", (x, y), dxfattribs=layer("DIMENSIONS", rotation=turn)) \
            .add_auto_attribs({"RA": ra})
    for datum, x, y, turn in [("A", 170, 150, 180), ("B", 348, 206, 270)]:
        space.add_blockref("DATUM", (x, y), dxfattribs=layer("DIMENSIONS", rotation=turn)) \
            .add_auto_attribs({"DATUM": datum})
    space.add_blockref("NAME_PLATE", at(TOP, -15, -26), dxfattribs=layer("OUTLINE"))


PARTS = [("1", "Bracket", "1", "EN-GJL-250"), ("2", "Bush 40x45x60", "1", "CuSn8"),
         ("3", "Lubricating nipple G1/8", "1", "St"), ("4", "Screw M12x40", "4", "8.8")]


def draw_parts_list(space):
    left, bottom, row = 230, 56, 6
    columns = [0, 14, 84, 104, 180]
    rows = [("Pos.", "Part", "Qty", "Material")] + PARTS
    for i in range(len(rows) + 1):
        space.add_line((left, bottom + i * row), (left + 180, bottom + i * row), dxfattribs=layer("SHEET"))
    for x in columns:
        space.add_line((left + x, bottom), (left + x, bottom + len(rows) * row), dxfattribs=layer("SHEET"))
    for i, cells in enumerate(rows):
        for x, cell in zip(columns, cells):
            text(space, cell, (left + x + 2, bottom + i * row + 1.7), 2.5)


def draw_notes(space):
    space.add_mtext(
        "{\\H1.3x;General notes}\\P"
        "Tolerances ISO 2768-mK\\P"
        "Unmachined edges R3, castings ISO 8062-CT9\\P"
        "Bore \\H1x;%%c40 H7 machined after assembly",
        dxfattribs=layer("TEXT", char_height=2.5, width=90, style="Drawing")
    ).set_location((232, 122), attachment_point=MTextEntityAlignment.TOP_LEFT)
    space.add_mtext("Paint \\fArial|b1;RAL 7031\\fArial|b0; except faces marked \u221a\\PLager\u00f6l ISO VG 68",
                    dxfattribs=layer("TEXT", char_height=2.5, width=70, style="Drawing")
                    ).set_location((330, 122), attachment_point=MTextEntityAlignment.TOP_LEFT)


def draw_sheet(space):
    for left, bottom, right, top in [(0, 0, SHEET_WIDTH, SHEET_HEIGHT), (20, 10, 410, 287)]:
        space.add_lwpolyline([(left, bottom), (right, bottom), (right, top), (left, top)], close=True,
                             dxfattribs=layer("SHEET"))
    for i in range(1, 8):
        x = 20 + i * 390 / 8
        space.add_line((x, 287), (x, 292), dxfattribs=layer("SHEET"))
        space.add_line((x, 5), (x, 10), dxfattribs=layer("SHEET"))
    for i in range(8):
        for y in (289.5, 7.5):
            text(space, str(i + 1), (20 + (i + 0.5) * 390 / 8, y), 2.5, TextEntityAlignment.MIDDLE_CENTER, "SHEET")
    values = {tag: value for tag, _, _, _, _, value in TITLE_FIELDS}
    space.add_blockref("TITLE_BLOCK", (230, 10), dxfattribs=layer("SHEET")).add_auto_attribs(values)


def make_repeatable(doc):
    """Takes the hour out of the header, so that the same program writes the same file."""
    doc.header["$TDCREATE"] = doc.header["$TDUCREATE"] = 2460000.5
    doc.header["$TDUPDATE"] = doc.header["$TDUUPDATE"] = 2460000.5
    doc.header["$EXTMIN"], doc.header["$EXTMAX"] = (0, 0, 0), (SHEET_WIDTH, SHEET_HEIGHT, 0)


def main(target):
    doc = new_drawing()
    for define in (define_bolt_hole, define_surface_symbol, define_datum, define_name_plate, define_title_block):
        define(doc)
    space = doc.modelspace()
    for draw in (draw_sheet, draw_front_view, draw_section, draw_top_view, draw_dimensions, draw_positions,
                 draw_symbols, draw_parts_list, draw_notes):
        draw(space)
    doc.set_modelspace_vport(height=SHEET_HEIGHT + 10, center=(SHEET_WIDTH / 2, SHEET_HEIGHT / 2))
    make_repeatable(doc)
    auditor = doc.audit()
    if auditor.has_errors or auditor.fixes:
        auditor.print_error_report()
        return 1
    doc.saveas(target)
    print(f"{target}: {len(space)} entities in model space, {len(doc.entitydb)} objects")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1] if len(sys.argv) > 1 else Path(__file__).with_name("bearing-bracket.dxf")))
