"""Indented XML, and SVG pictures on top of it."""

from contextlib import contextmanager
from xml.sax.saxutils import escape, quoteattr


def number(value):
    """Whole numbers without a point, others with at most two places."""
    if isinstance(value, float):
        return f"{value:.2f}".rstrip("0").rstrip(".")
    return str(value)


def attribute_text(attributes):
    """Python names to attributes: fill_opacity becomes fill-opacity, None is left out."""
    return "".join(
        f" {name.rstrip('_').replace('_', '-')}={quoteattr(number(value))}"
        for name, value in attributes.items()
        if value is not None
    )


class Markup:
    """An XML document that is written from top to bottom."""

    def __init__(self):
        self.lines = []
        self.depth = 0

    def write(self, text):
        self.lines.append("  " * self.depth + text)

    def add(self, tag, text=None, **attributes):
        """An element without children, or with text only."""
        if text is None:
            self.write(f"<{tag}{attribute_text(attributes)}/>")
        else:
            self.write(f"<{tag}{attribute_text(attributes)}>{escape(text)}</{tag}>")

    def add_exact(self, tag, **attributes):
        """As add(), for names in which an underscore is an underscore."""
        self.write(f"<{tag}{self._exact(attributes)}/>")

    @contextmanager
    def element(self, tag, **attributes):
        self.write(f"<{tag}{attribute_text(attributes)}>")
        yield from self._inside(tag)

    @contextmanager
    def element_exact(self, tag, **attributes):
        self.write(f"<{tag}{self._exact(attributes)}>")
        yield from self._inside(tag)

    def _inside(self, tag):
        self.depth += 1
        yield
        self.depth -= 1
        self.write(f"</{tag}>")

    @staticmethod
    def _exact(attributes):
        return "".join(f" {name}={quoteattr(number(value))}" for name, value in attributes.items())

    def text(self):
        return "\n".join(self.lines) + "\n"


class Picture(Markup):
    """An SVG picture of the part `box` = (x, y, width, height) of the scene.

    Its coordinates are the scene's, so a shape has the same numbers here and in the manifest. `zoom` is how
    many pixels of the picture make one pixel of the scene.
    """

    def __init__(self, name, box, zoom=1):
        super().__init__()
        self.name = name
        self.box = box
        x, y, width, height = box
        self.write('<?xml version="1.0" encoding="UTF-8"?>')
        self.write(
            f'<svg xmlns="http://www.w3.org/2000/svg" width="{width * zoom}" height="{height * zoom}"'
            f' viewBox="{x} {y} {width} {height}">'
        )
        self.depth = 1

    def text(self):
        return "\n".join(self.lines + ["</svg>"]) + "\n"

    @contextmanager
    def defs(self):
        with self.element("defs"):
            yield

    @contextmanager
    def group(self, id_, **attributes):
        with self.element("g", id=id_, **attributes):
            yield

    def gradient(self, id_, *colors, across=False):
        """A gradient from top to bottom, or from left to right, through evenly spaced colours.

        A colour may be a pair (colour, opacity).
        """
        end = {"x2": 1, "y2": 0} if across else {"x2": 0, "y2": 1}
        with self.element("linearGradient", id=id_, x1=0, y1=0, **end):
            self._stops(colors)

    def radial(self, id_, *colors):
        with self.element("radialGradient", id=id_):
            self._stops(colors)

    def _stops(self, colors):
        for i, color in enumerate(colors):
            color, opacity = color if isinstance(color, tuple) else (color, None)
            self.add("stop", offset=i / (len(colors) - 1), stop_color=color, stop_opacity=opacity)

    def blur(self, id_, deviation):
        with self.element("filter", id=id_, x="-50%", y="-50%", width="200%", height="200%"):
            self.add("feGaussianBlur", stdDeviation=deviation)

    def rect(self, x, y, width, height, radius=0, **attributes):
        self.add("rect", x=x, y=y, width=width, height=height, rx=radius or None, **attributes)

    def path(self, d, **attributes):
        self.add("path", d=d, **attributes)

    def use(self, id_, x=0, y=0):
        self.add("use", href=f"#{id_}", x=x, y=y)

    def label(self, x, y, text, size, **attributes):
        """Text with its baseline at y."""
        self.add("text", text, x=x, y=y, font_size=size, **attributes)
