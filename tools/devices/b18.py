"""B18, the keyboard: its left end with three columns of six keys; the rest of it fades into the dark."""

from .manifest import Control, Device, Glow, Label, ModeButton
from .markup import Picture
from . import drawing

ALIAS = "B18Device"
BOX = (358, 142, 618, 476)
ZOOM = 2

KEY_WIDTH, KEY_HEIGHT = 76, 38
COLUMN_PITCH, ROW_PITCH = 84, 62
COLUMN_LEFT, ROW_TOP = 388, 226
COLUMNS, ROWS = 3, 6
LABEL_WIDTH = 82

MODE_WIDTH, MODE_HEIGHT = 52, 26
MODES = tuple(ModeButton(f"M{i + 1}", 388 + 60 * i, 166) for i in range(3))

# The typing keys: rows of (legend, width in pixels), from the top.
TYPING_LEFT, TYPING_TOP, TYPING_HEIGHT, TYPING_GAP = 662, 206, 54, 8
TYPING_ROWS = (
    (("Esc", 54), ("F1", 54), ("F2", 54), ("F3", 54), ("F4", 54)),
    (("`", 54), ("1", 54), ("2", 54), ("3", 54), ("4", 54), ("5", 54)),
    (("Tab", 84), ("Q", 54), ("W", 54), ("E", 54), ("R", 54)),
    (("Caps", 100), ("A", 54), ("S", 54), ("D", 54), ("F", 54)),
    (("Shift", 126), ("Z", 54), ("X", 54), ("C", 54)),
    (("Ctrl", 70), ("Meta", 54), ("Alt", 70), ("", 300)),
)

BODY = "M 384 150 H 976 V 608 H 384 Q 368 608 368 592 V 166 Q 368 150 384 150 Z"


def key_rects():
    """(id, x, y) of G1 to G18, row by row."""
    return [
        (f"G{row * COLUMNS + column + 1}", COLUMN_LEFT + COLUMN_PITCH * column, ROW_TOP + ROW_PITCH * row)
        for row in range(ROWS)
        for column in range(COLUMNS)
    ]


def controls():
    found = []
    for id_, x, y in key_rects():
        left, top = drawing.key_label_box(x, y, KEY_WIDTH, LABEL_WIDTH)
        found.append(
            Control(id_, id_, "key", Label.box(left, top, LABEL_WIDTH),
                    points=drawing.rounded(x, y, KEY_WIDTH, KEY_HEIGHT, 4))
        )
    return found


KEYS_GLOW = (376, 214, 268, 374)


def manifest():
    return Device(
        alias=ALIAS,
        model="Veltrano.Gaming.Keyboard.B18",
        category="Veltrano.Gaming.Keyboard",
        name="B18 Keyboard",
        short_name="B18",
        home=(0.6, 119, 24),
        transform=(1 / ZOOM, BOX[0], BOX[1]),
        controls=controls(),
        modes=MODES,
        glows=[Glow("glow_keys", KEYS_GLOW[0], KEYS_GLOW[1], "key")],
    ).text()


def draw_body(out):
    with out.group("body"):
        out.path(BODY, fill="#000000", fill_opacity=0.7, filter="url(#shadow)")
        out.path(BODY, fill="url(#body)", stroke=drawing.BODY_RIM, stroke_width=1.5)
        out.rect(368, 150, 608, 100, 16, fill="url(#light)")
    with out.group("deck"):
        out.rect(378, 198, 266, 400, 9, fill="url(#deck)", stroke="#0B0F10", stroke_width=2)
        out.rect(379.5, 199.5, 263, 397, 8, fill="none", stroke=drawing.TEAL, stroke_opacity=0.28)
        out.rect(654, 198, 420, 400, 9, fill="url(#deck)", stroke="#0B0F10", stroke_width=2)
    with out.group("top"):
        drawing.lettering(out, 664, 184, "VELTRANO", 13, drawing.LEGEND_DIM, 3)
        drawing.lettering(out, 776, 184, "B18", 13, drawing.TEAL, 2)


def draw_typing_keys(out):
    with out.group("typing"):
        for row, keys in enumerate(TYPING_ROWS):
            x, y = TYPING_LEFT, TYPING_TOP + ROW_PITCH * row
            for text, width in keys:
                out.rect(x - 2, y - 2, width + 4, TYPING_HEIGHT + 4, 7, fill=drawing.WELL)
                out.rect(x, y, width, TYPING_HEIGHT, 5, fill=drawing.CAP_SIDE)
                out.rect(x + 3, y + 1, width - 6, TYPING_HEIGHT - 8, 4, fill="url(#typing_cap)")
                out.path(f"M {x + 7} {y + 1.5} h {width - 14}", stroke="#FFFFFF", stroke_opacity=0.14)
                if text:
                    out.label(x + 10, y + 20, text, 12, fill=drawing.LEGEND_DIM)
                x += width + TYPING_GAP


def draw_keys(out):
    with out.group("strips"):
        for _, x, y in key_rects():
            left, top = drawing.key_label_box(x, y, KEY_WIDTH, LABEL_WIDTH)
            out.use("strip", left, top)
    with out.group("keys"):
        for id_, x, y in key_rects():
            with out.group(id_):
                out.use("key", x, y)
                drawing.legend(out, x + 10, y + 22, id_)


def draw_device():
    out = Picture("device", BOX, ZOOM)
    with out.defs():
        drawing.define_body(out)
        out.gradient("cap", *drawing.CAP)
        out.gradient("typing_cap", "#222A2D", "#181E20")
        drawing.define_key(out, KEY_WIDTH, KEY_HEIGHT)
        drawing.define_strip(out, LABEL_WIDTH)
        with out.element("linearGradient", id="away", gradientUnits="userSpaceOnUse", x1=720, y1=0, x2=970, y2=0):
            out.add("stop", offset=0, stop_color="#FFFFFF")
            out.add("stop", offset=1, stop_color="#000000")
        with out.element("mask", id="fade", maskUnits="userSpaceOnUse", x=BOX[0], y=BOX[1], width=BOX[2],
                         height=BOX[3]):
            out.rect(*BOX, fill="url(#away)")
    with out.group("device", font_family=drawing.FONT, mask="url(#fade)"):
        draw_body(out)
        draw_typing_keys(out)
        draw_keys(out)
        with out.group("modes"):
            for mode in MODES:
                drawing.mode_face(out, mode.left, mode.top, MODE_WIDTH, MODE_HEIGHT, mode.id, "normal")
    return out


def draw_icon():
    out = Picture("device_icon", (0, 0, 48, 48))
    with out.defs():
        out.gradient("body", *drawing.BODY)
    with out.group("icon"):
        out.rect(2.5, 10.5, 43, 27, 4, fill="url(#body)", stroke="#8A999C")
        for row in range(3):
            y = 15 + 7 * row
            with out.group(f"row{row + 1}"):
                for column in range(3):
                    out.rect(6 + 5 * column, y, 4, 5, 1, fill=drawing.TEAL)
                for column in range(4):
                    out.rect(23 + 5 * column, y, 4, 5, 1, fill="#C9D6D6")
    return out


def pictures():
    yield draw_device()
    yield draw_icon()
    yield from drawing.mode_pictures([mode.id for mode in MODES], MODE_WIDTH, MODE_HEIGHT)
    yield drawing.pulse_picture(
        "glow_keys", KEYS_GLOW,
        [drawing.path_of(drawing.rounded(x, y, KEY_WIDTH, KEY_HEIGHT, 4)) for _, x, y in key_rects()])
