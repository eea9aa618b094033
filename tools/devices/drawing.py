"""What the pictures of the devices have in common: colours, keys, mode buttons, glows."""

from .markup import Picture, number

FONT = "Liberation Sans, Arial, sans-serif"

TEAL_DEEP = "#063232"
TEAL_DARK = "#216363"
TEAL = "#14ACAC"
TEAL_BRIGHT = "#93C7C7"

BODY_RIM = "#5A686C"
BODY = ("#3A4549", "#2A3337", "#1B2225")
DECK = ("#1D2528", "#151B1D")
WELL = "#080B0C"
CAP = ("#2C363A", "#1D2427")
CAP_SIDE = "#12171A"
LEGEND = "#E2ECEC"
LEGEND_DIM = "#7E8D90"

# A pixmap hotspot's glow reaches this far beyond its outline on all sides.
GLOW_PAD = 12


def rounded(x, y, width, height, cut):
    """The corners of a rectangle with cut corners, clockwise from the top left."""
    right, bottom = x + width, y + height
    return [
        (x + cut, y),
        (right - cut, y),
        (right, y + cut),
        (right, bottom - cut),
        (right - cut, bottom),
        (x + cut, bottom),
        (x, bottom - cut),
        (x, y + cut),
    ]


def path_of(points):
    return "M " + " L ".join(f"{x} {y}" for x, y in points) + " Z"


def define_body(out):
    out.gradient("body", *BODY)
    out.gradient("deck", *DECK)
    out.gradient("light", ("#FFFFFF", 0.16), ("#FFFFFF", 0.02), ("#FFFFFF", 0))
    out.blur("shadow", 9)
    out.blur("haze", 3)


def define_key(out, width, height, id_="key"):
    """A key of this size: well, backlight, side, cap, lit edge."""
    with out.group(id_):
        out.rect(-3, -3, width + 6, height + 6, 8, fill=WELL)
        out.rect(-1, -1, width + 2, height + 2, 6, fill="none", stroke=TEAL, stroke_opacity=0.34)
        out.rect(0, 0, width, height, 5, fill=CAP_SIDE)
        out.rect(2, 1, width - 4, height - 5, 4, fill="url(#cap)")
        out.rect(2.5, 1.5, width - 5, height - 6, 3.5, fill="none", stroke="#FFFFFF", stroke_opacity=0.09)
        out.path(f"M 6 1.5 H {width - 6}", stroke="#FFFFFF", stroke_opacity=0.3)


def define_strip(out, label_width):
    """The recess in which a key's label comes to stand."""
    with out.group("strip"):
        out.rect(0, 0, label_width, 19, 4, fill=WELL, fill_opacity=0.5)
        out.path(f"M 4 19.5 H {label_width - 4}", stroke="#FFFFFF", stroke_opacity=0.07)


def legend(out, x, y, text, size=14, color=LEGEND, **attributes):
    out.label(x, y, text, size, fill=color, font_weight="bold", **attributes)


def lettering(out, x, y, text, size, color, spacing):
    out.label(x, y, text, size, fill=color, font_weight="bold", letter_spacing=spacing)


def chevron(out, x, y, size, **attributes):
    """The mark on the devices: a V of two strokes, its tip at (x, y)."""
    half, top = size / 2, number(y - size * 0.8)
    out.path(f"M {number(x - half)} {top} L {x} {y} L {number(x + half)} {top}", **attributes)


# Face, rim and legend of a mode button in its three states.
MODE_LOOKS = {
    "normal": (("#2C363A", "#1A2023"), "#46545A", "#A9B8BA"),
    "hover": (("#3B4A4E", "#26302F"), TEAL_BRIGHT, "#FFFFFF"),
    "on": (("#2CC9C6", "#108786"), "#B9F0EE", "#041616"),
}


def mode_face(out, x, y, width, height, text, state):
    face, rim, ink = MODE_LOOKS[state]
    gradient = f"mode_{state}"
    with out.defs():
        out.gradient(gradient, *face)
    out.rect(x + 0.5, y + 0.5, width - 1, height - 1, 5.5, fill=WELL)
    out.rect(x + 1.5, y + 1.5, width - 3, height - 3, 4.5, fill=f"url(#{gradient})", stroke=rim)
    if state != "on":
        out.path(f"M {x + 6} {y + 2.5} H {x + width - 6}", stroke="#FFFFFF", stroke_opacity=0.18)
    legend(out, x + width / 2, y + height / 2 + 4.5, text, 13, ink, text_anchor="middle")


def mode_pictures(ids, width, height):
    for id_ in ids:
        for state in MODE_LOOKS:
            picture = Picture(f"{id_.lower()}_{state}", (0, 0, width, height))
            with picture.group(id_, font_family=FONT):
                mode_face(picture, 0, 0, width, height, id_, state)
            yield picture


def halo(out, shapes, width=3, fill_opacity=0.0):
    """Paths lit from behind: a wide soft light under a crisp bright rim."""
    with out.defs():
        out.blur("soft", 4)
    with out.group("light", fill="none", stroke=TEAL, stroke_width=width * 3, filter="url(#soft)"):
        for d in shapes:
            out.path(d, stroke_opacity=0.9)
    with out.group(
        "rim", fill=TEAL, fill_opacity=fill_opacity, stroke=TEAL_BRIGHT, stroke_width=width * 0.6,
        stroke_linejoin="round"
    ):
        for d in shapes:
            out.path(d)


def pulse_picture(name, box, shapes):
    picture = Picture(name, box)
    halo(picture, shapes, 2, 0.12)
    return picture


def hotspot_pictures(name, d, box):
    """Glow and outline of a hotspot of the shape `d`, whose bounds are `box`.

    The view centres the glow on the outline; even sizes keep the two aligned to the pixel.
    """
    x, y, width, height = box
    glow = Picture(
        f"{name}_glow", (x - GLOW_PAD, y - GLOW_PAD, width + 2 * GLOW_PAD, height + 2 * GLOW_PAD)
    )
    halo(glow, [d], 2, 0.22)
    outline = Picture(f"{name}_outline", box)
    outline.path(d, fill="#FFFFFF", shape_rendering="crispEdges")
    return [glow, outline]


def key_label_box(x, y, key_width, label_width):
    """Left and top of the box of the label above a key at (x, y)."""
    return x - (label_width - key_width) // 2, y - 22


