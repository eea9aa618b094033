"""What a manifest says, as records, and the writer. host/devices/README.md explains each element."""

from dataclasses import dataclass, field
from typing import Optional

from .markup import Markup

MOUSE_FUNCTION = "http://www.veltrano.com/Halvorine/2010.1/Macros/MouseFunction"

# The view draws a connect line half a label's text height above the numbers of the manifest.
LINE_LIFT = 6
# A label's box is wider than its text by this much.
LABEL_FRAME = 10
# The top of a label's box lies this far above the label's y, the bottom below it.
LABEL_RISE = 14
LABEL_DROP = 5


@dataclass
class Label:
    """A label at rest is `rest` wide, a grown one at most `grown`; `line` is where the line is to be seen."""

    x: int
    y: int
    rest: int
    grown: int
    line: Optional[tuple] = None

    @staticmethod
    def box(left, top, width, line=None, spare=2):
        """The label whose box at full width has this left top corner and this width."""
        grown = width - LABEL_FRAME
        return Label(left, top + LABEL_RISE, grown - spare, grown, line)


@dataclass
class Generic:
    name: str
    required: bool = False
    cannotbeunassigned: bool = False


@dataclass
class PixmapShape:
    """A shape by pictures: its place is the top left corner of the outline."""

    glow: str
    outline: str
    x: int
    y: int


@dataclass
class Control:
    id: str
    name: str
    type: str
    label: Label
    points: list = field(default_factory=list)
    pixmap: Optional[PixmapShape] = None
    generic: Optional[Generic] = None
    context_button: Optional[tuple] = None


@dataclass
class ModeButton:
    id: str
    left: int
    top: int


@dataclass
class Glow:
    image: str
    x: int
    y: int
    type: str


@dataclass
class Device:
    alias: str
    model: str
    category: str
    name: str
    short_name: str
    home: tuple
    transform: tuple
    controls: list
    modes: list = field(default_factory=list)
    glows: list = field(default_factory=list)
    lcd: Optional[tuple] = None
    # Bytes, and bytes per second that can be written.
    memory: Optional[tuple] = None

    def image(self, name):
        return f"{self.alias}:/images/{name}.png"

    def text(self):
        out = Markup()
        out.write('<?xml version="1.0" encoding="UTF-8"?>')
        with out.element_exact("device", model=self.model):
            scale, x, y = self.home
            out.add_exact(
                "presentation",
                name=self.name,
                short_name=self.short_name,
                picture=self.image("device"),
                icon=self.image("device_icon"),
                scale=scale,
                x=x,
                y=y,
            )
            if self.lcd:
                out.add_exact("lcd", width=self.lcd[0], height=self.lcd[1])
            if self.memory:
                out.add_exact("memory", size=self.memory[0], speed=self.memory[1])
            out.add_exact("profiler", category=self.category)
            with out.element_exact("macrobindingmetadata", viewid="macrobinding_view"):
                self._write_binding(out)
        return out.text()

    def _write_binding(self, out):
        scale, x, y = self.transform
        out.add_exact("transform", scale=scale, x=x, y=y)
        if self.modes:
            with out.element("mstates"):
                for mode in self.modes:
                    self._write_mode(out, mode)
        with out.element("pulseGlows"):
            for place, glow in enumerate(self.glows):
                with out.element_exact("pulseGlow", image=self.image(glow.image), x=glow.x, y=glow.y):
                    with out.element("types"):
                        # Of the types of glow number n the view reads the one with number n.
                        for _ in range(place + 1):
                            out.add_exact("type", name=glow.type)
        with out.element("controls"):
            for control in self.controls:
                with out.element_exact("control", id=control.id, name=control.name):
                    self._write_control(out, control)

    def _write_mode(self, out, mode):
        picture = mode.id.lower()
        out.add_exact(
            "mstate",
            id=mode.id,
            imageNormal=self.image(f"{picture}_normal"),
            imageHover=self.image(f"{picture}_hover"),
            imageOn=self.image(f"{picture}_on"),
            top=mode.top,
            left=mode.left,
        )

    def _write_control(self, out, control):
        if control.points:
            with out.element("points"):
                for x, y in control.points:
                    out.add_exact("point", x=x, y=y)
        if control.pixmap:
            shape = control.pixmap
            out.add_exact(
                "pixmap", image=self.image(shape.glow), outline=self.image(shape.outline), x=shape.x, y=shape.y
            )
        if control.generic:
            flags = {"required": "true"} if control.generic.required else {}
            if control.generic.cannotbeunassigned:
                flags["cannotbeunassigned"] = "true"
            out.add_exact(
                "generic_assignment", type=MOUSE_FUNCTION, name=control.generic.name, hidden="true", **flags
            )
        with out.element("types"):
            out.add_exact("type", name=control.type)
        if control.context_button:
            with out.element("context_button"):
                out.add_exact("point", x=control.context_button[0], y=control.context_button[1])
        self._write_label(out, control.label)

    @staticmethod
    def _write_label(out, label):
        place = dict(x=label.x, y=label.y, min_width=label.rest, max_width=label.grown)
        if not label.line:
            out.add_exact("assignment_label", **place)
            return
        (x1, y1), (x2, y2) = label.line
        with out.element_exact("assignment_label", **place):
            out.add_exact("connect_line", x1=x1, y1=y1 + LINE_LIFT, x2=x2, y2=y2 + LINE_LIFT)
