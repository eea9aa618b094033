"""K13, the left-handed controller: four rows of keys in a hand's curve, a display, a stick for the thumb."""

import math

from .manifest import Control, Device, Glow, Label, ModeButton, PixmapShape
from .markup import Picture
from . import drawing

ALIAS = "K13Device"
BOX = (334, 144, 644, 474)
ZOOM = 2

KEY_WIDTH, KEY_HEIGHT = 76, 36
COLUMN_PITCH, ROW_PITCH = 84, 60
COLUMN_LEFT, ROW_TOP = 358, 247
# How far each column stands back from the longest finger's.
STAGGER = (18, 11, 3, 0, 4, 10, 16)
# First column and number of keys of each row.
ROWS = ((0, 7), (0, 7), (1, 5), (2, 3))
LABEL_WIDTH = 82

DISPLAY = (568, 165, 160, 43)

MODE_WIDTH, MODE_HEIGHT = 48, 26
MODES = tuple(ModeButton(f"M{i + 1}", 764 + 56 * i, 173) for i in range(3))

STICK = (872, 513)
STICK_OUTER, STICK_INNER, STICK_CAP = 50, 25, 22
OVERLAY = (820, 461, 104, 104)

BODY = (
    "M 386 151 C 480 147 816 147 910 151 C 940 153 955 168 957 196 L 961 330"
    " C 962 380 965 410 970 446 C 977 500 978 548 962 578 C 946 606 912 611 868 611"
    " C 800 611 760 613 660 614 C 560 615 500 614 446 609 C 400 604 374 584 371 546"
    " C 368 492 344 420 341 330 L 339 196 C 340 168 356 153 386 151 Z"
)
DECK = (
    "M 390 161 C 480 157 816 157 906 161 C 932 163 945 175 947 200 L 951 380 C 951 396 942 404 926 404"
    " L 888 405 C 868 406 866 422 850 424 L 800 428 C 784 430 786 470 770 478 L 528 480"
    " C 508 480 514 436 494 434 L 458 434 C 430 432 440 386 420 384 L 366 384 C 354 382 352 372 351 330"
    " L 349 200 C 350 175 364 163 390 161 Z"
)
PALM = (
    "M 436 462 C 466 462 474 500 508 502 L 676 502 C 706 503 714 536 711 562 C 708 590 690 601 650 602"
    " C 570 604 500 602 456 598 C 412 592 388 574 384 540 C 382 502 402 462 436 462 Z"
)


def key_rects():
    """(id, x, y) of G1 to G22."""
    places = []
    for row, (first, count) in enumerate(ROWS):
        for column in range(first, first + count):
            x = COLUMN_LEFT + COLUMN_PITCH * column
            y = ROW_TOP + ROW_PITCH * row + STAGGER[column]
            places.append((f"G{len(places) + 1}", x, y))
    return places


def on_circle(radius, degrees):
    angle = math.radians(degrees)
    return round(STICK[0] + radius * math.cos(angle)), round(STICK[1] + radius * math.sin(angle))


def sector(middle):
    """The corners of the ring's quarter around the angle `middle` (0 is right, 90 is down)."""
    outer = [on_circle(STICK_OUTER, middle + turn) for turn in (-41, -27, -14, 0, 14, 27, 41)]
    inner = [on_circle(STICK_INNER + 1, middle + turn) for turn in (36, 12, -12, -36)]
    return outer + inner


# Name, angle, label and context button of each direction.
DIRECTIONS = {
    "G26": ("Stick up", -90, Label.box(774, 434, 92, ((838, 453), (862, 474))), (864, 466)),
    "G27": ("Stick right", 0, Label.box(872, 434, 92, ((926, 453), (911, 502))), (903, 505)),
    "G28": ("Stick down", 90, Label.box(827, 571, 92, ((872, 572), (872, 558))), (864, 544)),
    "G29": ("Stick left", 180, Label.box(724, 504, 92, ((815, 513), (830, 513))), (825, 505)),
}
PRESS_LABEL = Label.box(724, 558, 92, ((814, 567), (858, 527)))


def circle_path(radius):
    x, y = STICK
    return f"M {x - radius} {y} A {radius} {radius} 0 1 1 {x + radius} {y} A {radius} {radius} 0 1 1 {x - radius} {y} Z"


def controls():
    found = []
    for id_, x, y in key_rects():
        left, top = drawing.key_label_box(x, y, KEY_WIDTH, LABEL_WIDTH)
        found.append(
            Control(id_, id_, "key", Label.box(left, top, LABEL_WIDTH),
                    points=drawing.rounded(x, y, KEY_WIDTH, KEY_HEIGHT, 4))
        )
    # The press is the first of the stick's five: pointing uses the four after it, a joystick all five.
    press = PixmapShape("stick_press_glow", "stick_press_outline", STICK[0] - STICK_CAP, STICK[1] - STICK_CAP)
    found.append(Control("G25", "Stick press", "stick-press", PRESS_LABEL, pixmap=press))
    for id_, (name, angle, label, button) in DIRECTIONS.items():
        found.append(
            Control(id_, name, "stick-direction", label, points=sector(angle), context_button=button)
        )
    return found


KEYS_GLOW = (346, 234, 604, 246)
STICK_GLOW = (806, 447, 132, 132)


def manifest():
    return Device(
        alias=ALIAS,
        model="Veltrano.Gaming.LeftHandedController.K13",
        category="Veltrano.Gaming.LeftHandedController",
        name="K13 Left-Handed Controller",
        short_name="K13",
        home=(0.6, 104, 26),
        transform=(1 / ZOOM, BOX[0], BOX[1]),
        lcd=DISPLAY[2:],
        controls=controls(),
        modes=MODES,
        glows=[
            Glow("glow_keys", KEYS_GLOW[0], KEYS_GLOW[1], "key"),
            Glow("glow_stick_directions", STICK_GLOW[0], STICK_GLOW[1], "stick-direction"),
            Glow("glow_stick_press", STICK_GLOW[0], STICK_GLOW[1], "stick-press"),
        ],
    ).text()


def draw_body(out):
    with out.group("body"):
        out.path(BODY, fill="#000000", fill_opacity=0.7, filter="url(#shadow)")
        out.path(BODY, fill="url(#body)", stroke=drawing.BODY_RIM, stroke_width=1.5)
        out.path(BODY, fill="url(#light)", fill_opacity=0.6)
    with out.group("palm"):
        out.path(PALM, fill="url(#deck)", stroke="#3D494D")
        with out.group("ribs", fill="none", stroke="#FFFFFF", stroke_opacity=0.05, stroke_width=2):
            for i in range(5):
                y = 522 + 14 * i
                out.path(f"M {404 + 4 * i} {y} C 480 {y + 10} 620 {y + 10} {694 - 2 * i} {y}")
        drawing.chevron(out, 550, 566, 40, fill="none", stroke=drawing.TEAL, stroke_width=5, stroke_opacity=0.8)
    with out.group("deck"):
        out.path(DECK, fill="url(#deck)", stroke="#0B0F10", stroke_width=2)
        out.path(DECK, fill="none", stroke=drawing.TEAL, stroke_opacity=0.28)


def draw_display(out):
    x, y, width, height = DISPLAY
    with out.group("display"):
        out.rect(x - 9, y - 7, width + 18, height + 14, 8, fill="#0C1011", stroke="#49565A")
        out.rect(x, y, width, height, 2, fill="url(#lcd)")
        with out.group("pixels", fill=drawing.TEAL):
            drawing.chevron(out, x + 24, y + 32, 26, fill="none", stroke=drawing.TEAL, stroke_width=4)
            drawing.lettering(out, x + 48, y + 27, "K13", 16, drawing.TEAL, 2)
            for i, bar in enumerate((6, 10, 14, 18, 24)):
                out.rect(x + 110 + 8 * i, y + 33 - bar, 5, bar, fill_opacity=0.45 + 0.13 * i)


def draw_keys(out):
    with out.group("strips"):
        for _, x, y in key_rects():
            left, top = drawing.key_label_box(x, y, KEY_WIDTH, LABEL_WIDTH)
            out.use("strip", left, top)
    with out.group("keys"):
        for id_, x, y in key_rects():
            with out.group(id_):
                out.use("key", x, y)
                drawing.legend(out, x + 10, y + 21, id_)


def draw_stick(out):
    x, y = STICK
    with out.group("stick"):
        out.add("circle", cx=x, cy=y, r=62, fill="#0C1011", stroke="#49565A", stroke_width=1.5)
        out.add("circle", cx=x, cy=y, r=57, fill="none", stroke=drawing.TEAL, stroke_opacity=0.45, stroke_width=1.5)
        out.add("circle", cx=x, cy=y, r=52, fill="url(#bowl)")
        with out.group("arrows", fill="none", stroke="#A9B8BA", stroke_width=2.5, stroke_linecap="round",
                       stroke_linejoin="round"):
            for turn in (0, 90, 180, 270):
                out.path(f"M {x + 35} {y - 6} l 6 6 l -6 6", transform=f"rotate({turn} {x} {y})")
        out.add("circle", cx=x, cy=y + 2, r=STICK_CAP + 2, fill="#000000", fill_opacity=0.6)
        out.add("circle", cx=x, cy=y, r=STICK_CAP, fill="url(#cap)", stroke="#5A686C", stroke_width=1.5)
        out.add("circle", cx=x, cy=y, r=STICK_CAP - 7, fill="url(#dimple)")


def draw_device():
    out = Picture("device", BOX, ZOOM)
    with out.defs():
        drawing.define_body(out)
        out.gradient("cap", *drawing.CAP)
        out.gradient("lcd", "#062424", "#0A3838")
        out.radial("bowl", "#2A3337", "#1C2326", "#101517")
        out.radial("dimple", "#171D20", "#20282B")
        drawing.define_key(out, KEY_WIDTH, KEY_HEIGHT)
        drawing.define_strip(out, LABEL_WIDTH)
    with out.group("device", font_family=drawing.FONT):
        draw_body(out)
        drawing.lettering(out, 376, 192, "VELTRANO", 13, drawing.LEGEND_DIM, 3)
        drawing.lettering(out, 488, 192, "K13", 13, drawing.TEAL, 2)
        draw_display(out)
        draw_keys(out)
        with out.group("modes"):
            for mode in MODES:
                drawing.mode_face(out, mode.left, mode.top, MODE_WIDTH, MODE_HEIGHT, mode.id, "normal")
        draw_stick(out)
    return out


def draw_icon():
    out = Picture("device_icon", (0, 0, 48, 48))
    with out.defs():
        out.gradient("body", *drawing.BODY)
    with out.group("icon", stroke_linejoin="round"):
        out.path("M 7 5 H 39 Q 42 5 42 8 L 45 34 Q 46 43 38 43 H 12 Q 6 43 5.5 36 L 4 8 Q 4 5 7 5 Z",
                 fill="url(#body)", stroke="#8A999C")
        out.rect(17, 8, 13, 5, 1, fill=drawing.TEAL)
        with out.group("keys", fill="#C9D6D6"):
            for row, (first, count) in enumerate(((0, 5), (0, 5), (0, 3))):
                for column in range(first, first + count):
                    out.rect(8 + 7 * column, 16 + 7 * row, 5, 4, 1)
        out.add("circle", cx=36, cy=35, r=5, fill="#0C1011", stroke=drawing.TEAL_BRIGHT, stroke_width=1.5)
    return out


def draw_overlay():
    """The stick's directions; the view shows it at three tenths of its strength."""
    out = Picture("K13_minijoystick_overlay", OVERLAY)
    x, y = STICK
    with out.group("directions", fill=drawing.TEAL_BRIGHT, stroke="#FFFFFF", stroke_linejoin="round"):
        for angle in (-90, 0, 90, 180):
            out.path(drawing.path_of(sector(angle)), fill_opacity=0.35)
    with out.group("arrows", fill="#FFFFFF"):
        for turn in (0, 90, 180, 270):
            out.path(f"M {x + 33} {y - 8} l 10 8 l -10 8 Z", transform=f"rotate({turn} {x} {y})")
    return out


def pictures():
    yield draw_device()
    yield draw_icon()
    yield draw_overlay()
    yield from drawing.mode_pictures([mode.id for mode in MODES], MODE_WIDTH, MODE_HEIGHT)
    yield drawing.pulse_picture(
        "glow_keys", KEYS_GLOW,
        [drawing.path_of(drawing.rounded(x, y, KEY_WIDTH, KEY_HEIGHT, 4)) for _, x, y in key_rects()])
    yield drawing.pulse_picture(
        "glow_stick_directions", STICK_GLOW,
        [drawing.path_of(sector(angle)) for _, angle, _, _ in DIRECTIONS.values()])
    yield drawing.pulse_picture("glow_stick_press", STICK_GLOW, [circle_path(STICK_CAP)])
    yield from drawing.hotspot_pictures(
        "stick_press", circle_path(STICK_CAP),
        (STICK[0] - STICK_CAP, STICK[1] - STICK_CAP, 2 * STICK_CAP, 2 * STICK_CAP))
