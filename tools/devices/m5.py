"""M5, the mouse: two main buttons, a wheel that tilts, three buttons for the thumb, two behind the wheel."""

from .manifest import Control, Device, Generic, Glow, Label, PixmapShape
from .markup import Picture
from . import drawing

ALIAS = "M5Device"
BOX = (450, 146, 400, 474)
ZOOM = 2

MIDDLE = 650

BODY = (
    "M 650 190 C 716 188 756 206 764 262 C 770 310 768 350 764 396 C 760 446 774 500 758 546"
    " C 742 592 702 612 650 612 C 598 612 558 592 542 546 C 526 500 536 446 532 396"
    " C 528 350 530 310 536 262 C 544 206 584 188 650 190 Z"
)
LEFT_BUTTON = "M 606 194 C 572 199 548 216 542 262 C 538 292 536 312 536 332 C 560 342 584 346 606 346 Z"
RIGHT_BUTTON = "M 694 194 C 728 199 752 216 758 262 C 762 292 764 312 764 332 C 740 342 716 346 694 346 Z"
# Bounds of the two: left, top, width, height.
LEFT_BOUNDS = (536, 194, 70, 152)
RIGHT_BOUNDS = (694, 194, 70, 152)

SPINE = (611, 196, 78, 224)
WHEEL = (637, 210, 26, 64)
TILT_LEFT = [(615, 216), (633, 212), (633, 272), (615, 268)]
TILT_RIGHT = [(667, 212), (685, 216), (685, 268), (667, 272)]
DPI_UP = (632, 314, 36, 34)
DPI_DOWN = (632, 356, 36, 34)

THUMB_PANEL = (
    "M 533 350 C 546 354 560 355 572 358 C 577 400 577 470 571 521 C 560 524 550 524 539 522"
    " C 534 490 534 446 532 396 Z"
)
THUMB_FRONT = [(539, 357), (560, 360), (565, 364), (568, 392), (564, 396), (538, 396), (535, 392), (536, 360)]
THUMB_MIDDLE = [(538, 402), (565, 402), (569, 406), (569, 450), (565, 454), (540, 454), (536, 450), (535, 405)]
THUMB_BACK = [(539, 460), (565, 460), (569, 464), (565, 511), (560, 516), (543, 516), (539, 512), (536, 464)]

LABEL_LEFT, LABEL_RIGHT = 380, 790
LABEL_WIDTH = 136


def side_label(left, y, target):
    """A label at the side whose middle is y, joined to `target` from its inner edge."""
    near = left if left == LABEL_RIGHT else left + LABEL_WIDTH - 6
    return Label.box(left, y - 9, LABEL_WIDTH, ((near, y), target), 6)


def top_label(left, near, target):
    return Label.box(left, 154, 124, ((near, 173), target), 4)


def pixmap(name, bounds):
    return PixmapShape(f"{name}_glow", f"{name}_outline", bounds[0], bounds[1])


def key(rect):
    return drawing.rounded(*rect, 4)


def controls():
    return [
        Control("G1", "Left button", "button", side_label(LABEL_LEFT, 268, (580, 268)),
                pixmap=pixmap("left", LEFT_BOUNDS), context_button=(586, 322),
                generic=Generic("Left Click", required=True, cannotbeunassigned=True)),
        Control("G2", "Right button", "button", side_label(LABEL_RIGHT, 268, (720, 268)),
                pixmap=pixmap("right", RIGHT_BOUNDS), context_button=(698, 322),
                generic=Generic("Right Click", required=True)),
        Control("G3", "Wheel press", "button", top_label(588, MIDDLE, (MIDDLE, 226)),
                points=key(WHEEL), generic=Generic("Middle Click", required=True)),
        Control("G4", "Thumb button back", "button", side_label(LABEL_LEFT, 488, (541, 488)),
                points=THUMB_BACK, generic=Generic("Back", required=True)),
        Control("G5", "Thumb button middle", "button", side_label(LABEL_LEFT, 428, (541, 428)),
                points=THUMB_MIDDLE, generic=Generic("Forward", required=True)),
        Control("G6", "Thumb button front", "button", side_label(LABEL_LEFT, 372, (540, 372)),
                points=THUMB_FRONT, generic=Generic("DPI Shift")),
        Control("G7", "DPI down", "button", side_label(LABEL_RIGHT, 414, (662, 380)),
                points=key(DPI_DOWN), generic=Generic("DPI Down", required=True)),
        Control("G8", "DPI up", "button", side_label(LABEL_RIGHT, 370, (662, 344)),
                points=key(DPI_UP), generic=Generic("DPI Up", required=True)),
        Control("G9", "Wheel tilt left", "wheel-tilt", top_label(456, 568, (624, 222)),
                points=TILT_LEFT, context_button=(616, 250), generic=Generic("Scroll Left", required=True)),
        Control("G10", "Wheel tilt right", "wheel-tilt", top_label(720, 732, (676, 222)),
                points=TILT_RIGHT, context_button=(668, 250), generic=Generic("Scroll Right", required=True)),
    ]


GLOW = (520, 178, 260, 352)


def manifest():
    return Device(
        alias=ALIAS,
        model="Veltrano.Gaming.Mouse.M5",
        category="Veltrano.Gaming.Mouse",
        name="M5 Mouse",
        short_name="M5",
        home=(0.6, 250, 26),
        transform=(1 / ZOOM, BOX[0], BOX[1]),
        memory=(128 * 1024, 32 * 1024),
        controls=controls(),
        glows=[
            Glow("glow_buttons", GLOW[0], GLOW[1], "button"),
            Glow("glow_wheel_tilt", GLOW[0], GLOW[1], "wheel-tilt"),
        ],
    ).text()


def draw_body(out):
    with out.group("body"):
        out.add("ellipse", cx=MIDDLE, cy=386, rx=196, ry=230, fill="url(#pool)")
        out.path(BODY, fill="#000000", fill_opacity=0.8, filter="url(#shadow)")
        out.path(BODY, fill="url(#body)", stroke=drawing.BODY_RIM, stroke_width=1.5)
        out.path(BODY, fill="url(#across)")
    with out.group("shell"):
        out.path("M 576 420 C 600 446 700 446 738 408 C 744 470 750 520 738 552 C 722 590 690 600 650 600"
                 " C 612 600 580 588 566 552 C 572 508 578 466 576 420 Z",
                 fill="url(#shell)", stroke="#4A585C", stroke_opacity=0.7)
        drawing.chevron(out, 652, 540, 44, fill="none", stroke=drawing.TEAL, stroke_width=9, stroke_opacity=0.35,
                      filter="url(#haze)")
        drawing.chevron(out, 652, 540, 44, fill="none", stroke=drawing.TEAL, stroke_width=5)
        out.label(652, 574, "VELTRANO M5", 10, fill=drawing.LEGEND_DIM, font_weight="bold", letter_spacing=2,
                  text_anchor="middle")


def draw_main_buttons(out):
    for id_, d, x in (("G1", LEFT_BUTTON, 572), ("G2", RIGHT_BUTTON, 728)):
        with out.group(id_):
            out.path(d, fill="url(#button)", stroke="#0A0E0F", stroke_width=3, stroke_linejoin="round")
            out.path(d, fill="none", stroke="#6A797D", stroke_opacity=0.6)
            drawing.legend(out, x, 300, id_, 15, text_anchor="middle")


def draw_spine(out):
    x, y, width, height = SPINE
    with out.group("spine"):
        out.rect(x, y, width, height, 14, fill="#0C1011", stroke="#3F4B4F")
    with out.group("G3"):
        x, y, width, height = WHEEL
        out.rect(x - 3, y - 3, width + 6, height + 6, 12, fill="#050708", stroke=drawing.TEAL, stroke_opacity=0.7)
        out.rect(x, y, width, height, 9, fill="url(#wheel)")
        with out.group("ribs", stroke="#0A0E0F", stroke_width=2):
            for i in range(7):
                out.path(f"M {x + 3} {y + 8 + 8 * i} h {width - 6}")
        out.rect(x + 3, y + 21, width - 6, 15, 3, fill="#0C1011", fill_opacity=0.85)
        drawing.legend(out, MIDDLE, y + 33, "G3", 11, text_anchor="middle")
    for id_, points, x, turn in (("G9", TILT_LEFT, 624, -90), ("G10", TILT_RIGHT, 676, 90)):
        with out.group(id_):
            out.path(drawing.path_of(points), fill="url(#cap)", stroke="#55636A", stroke_opacity=0.8)
            drawing.legend(out, x, 240, id_, 11, text_anchor="middle",
                         transform=f"rotate({turn} {x} 240) translate(0 4)")
    for id_, rect, sign in (("G8", DPI_UP, "+"), ("G7", DPI_DOWN, "−")):
        x, y, width, height = rect
        with out.group(id_):
            out.rect(x, y, width, height, 6, fill="url(#cap)", stroke="#55636A")
            drawing.legend(out, x + 6, y + 15, id_, 12)
            out.label(x + 6, y + 29, sign, 14, fill=drawing.TEAL_BRIGHT, font_weight="bold")
    with out.group("dpi_lights"):
        for i in range(4):
            out.rect(636 + 8 * i, 399, 4, 12, 2, fill=drawing.TEAL if i < 2 else "#263033")


def draw_thumb(out):
    with out.group("thumb"):
        out.path(THUMB_PANEL, fill="#0C1011", stroke="#3F4B4F")
        for id_, points, y in (("G6", THUMB_FRONT, 377), ("G5", THUMB_MIDDLE, 425), ("G4", THUMB_BACK, 484)):
            with out.group(id_):
                out.path(drawing.path_of(points), fill="url(#cap)", stroke="#55636A", stroke_linejoin="round",
                         stroke_width=1.5)
                drawing.legend(out, 552, y, id_, 12, text_anchor="middle")


def draw_device():
    out = Picture("device", BOX, ZOOM)
    with out.defs():
        drawing.define_body(out)
        out.gradient("across", ("#000000", 0.3), ("#FFFFFF", 0.07), ("#FFFFFF", 0), ("#000000", 0.3), across=True)
        out.gradient("button", "#434F53", "#2B3438")
        out.gradient("shell", "#323C40", "#1E2528")
        out.gradient("wheel", "#161C1E", "#566367", "#161C1E")
        out.gradient("cap", *drawing.CAP)
        out.radial("pool", ("#3A5052", 1), ("#2A3B3D", 0.85), ("#1A2628", 0))
    with out.group("device", font_family=drawing.FONT):
        draw_body(out)
        draw_main_buttons(out)
        draw_spine(out)
        draw_thumb(out)
    return out


def draw_icon():
    out = Picture("device_icon", (0, 0, 48, 48))
    with out.defs():
        out.gradient("body", *drawing.BODY)
    with out.group("icon"):
        out.path("M 24 3 C 33 3 37 8 37 18 V 30 C 37 40 32 45 24 45 C 16 45 11 40 11 30 V 18 C 11 8 15 3 24 3 Z",
                 fill="url(#body)", stroke="#8A999C")
        out.path("M 11.5 22 C 18 24 30 24 36.5 22 M 24 3.5 V 23", fill="none", stroke="#0C1011", stroke_width=1.5)
        out.rect(22, 8, 4, 10, 2, fill=drawing.TEAL)
        out.rect(9, 25, 3, 6, 1.5, fill="#C9D6D6")
        out.rect(9, 33, 3, 5, 1.5, fill="#C9D6D6")
        drawing.chevron(out, 24, 39, 9, fill="none", stroke=drawing.TEAL, stroke_width=2)
    return out


def pictures():
    yield draw_device()
    yield draw_icon()
    yield from drawing.hotspot_pictures("left", LEFT_BUTTON, LEFT_BOUNDS)
    yield from drawing.hotspot_pictures("right", RIGHT_BUTTON, RIGHT_BOUNDS)
    polygons = [key(WHEEL), key(DPI_UP), key(DPI_DOWN), THUMB_FRONT, THUMB_MIDDLE, THUMB_BACK]
    yield drawing.pulse_picture(
        "glow_buttons", GLOW, [LEFT_BUTTON, RIGHT_BUTTON] + [drawing.path_of(points) for points in polygons])
    yield drawing.pulse_picture("glow_wheel_tilt", GLOW, [drawing.path_of(TILT_LEFT), drawing.path_of(TILT_RIGHT)])
