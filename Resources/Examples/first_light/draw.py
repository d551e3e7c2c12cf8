"""Drawing on a transparent canvas: shapes, soft shadows, type. Lengths are pixels, y points down."""

import math

import cairo
import gi
from PIL import Image, ImageFilter

gi.require_version("Pango", "1.0")
gi.require_version("PangoCairo", "1.0")
from gi.repository import Pango, PangoCairo  # noqa: E402 (the versions must be asked for first)


def rgb(text):
    """'#rrggbb' as three numbers from 0 to 1."""
    return tuple(int(text[i:i + 2], 16) / 255 for i in (1, 3, 5))


class Canvas:
    def __init__(self, width, height):
        self.surface = cairo.ImageSurface(cairo.FORMAT_ARGB32, width, height)
        self.pen = cairo.Context(self.surface)
        self.width, self.height = width, height

    def image(self):
        self.surface.flush()
        return Image.frombuffer("RGBA", (self.width, self.height), bytes(self.surface.get_data()), "raw", "BGRa",
                                self.surface.get_stride(), 1)

    def fill(self, color, alpha=1.0, keep=False):
        """A '#rrggbb' text or a cairo pattern."""
        if isinstance(color, str):
            self.pen.set_source_rgba(*rgb(color), alpha)
        else:
            self.pen.set_source(color)
        self.pen.fill_preserve() if keep else self.pen.fill()

    def stroke(self, color, width, alpha=1.0):
        self.pen.set_source_rgba(*rgb(color), alpha)
        self.pen.set_line_width(width)
        self.pen.set_line_cap(cairo.LINE_CAP_ROUND)
        self.pen.set_line_join(cairo.LINE_JOIN_ROUND)
        self.pen.stroke()

    def rounded(self, x, y, width, height, radius):
        """A rectangle whose corners bend in gradually instead of switching from line to arc."""
        reach = min(radius * 1.28, min(width, height) / 2)
        handle = reach * 0.36
        right, bottom = x + width, y + height
        p = self.pen
        p.new_path()
        p.move_to(x + reach, y)
        p.line_to(right - reach, y)
        p.curve_to(right - handle, y, right, y + handle, right, y + reach)
        p.line_to(right, bottom - reach)
        p.curve_to(right, bottom - handle, right - handle, bottom, right - reach, bottom)
        p.line_to(x + reach, bottom)
        p.curve_to(x + handle, bottom, x, bottom - handle, x, bottom - reach)
        p.line_to(x, y + reach)
        p.curve_to(x, y + handle, x + handle, y, x + reach, y)
        p.close_path()

    def circle(self, x, y, radius):
        self.pen.new_path()
        self.pen.arc(x, y, radius, 0, 2 * math.pi)

    def shadow(self, outline, color, alpha, blur, drop):
        """The shadow of whatever path `outline(canvas)` makes, under what is drawn afterwards."""
        shade = Canvas(self.width, self.height)
        shade.pen.translate(0, drop)
        outline(shade)
        shade.fill(color, alpha)
        soft = shade.image().getchannel("A").filter(ImageFilter.GaussianBlur(blur))
        mask = cairo.ImageSurface(cairo.FORMAT_A8, self.width, self.height)
        stride = mask.get_stride()
        rows = soft.tobytes()
        data = mask.get_data()
        for y in range(self.height):
            data[y * stride:y * stride + self.width] = rows[y * self.width:(y + 1) * self.width]
        mask.mark_dirty()
        self.pen.set_source_rgb(*rgb(color))
        self.pen.mask_surface(mask, 0, 0)

    def text(self, x, baseline, text, size, weight=400, color="#000000", alpha=1.0, align="left", tracking=0.0,
             display=False, tabular=False):
        """One line of type; `tracking` in em. Returns its width."""
        layout = typeset(self.pen, text, size, weight, tracking, display, tabular)
        width = layout.get_pixel_size()[0]
        left = x - {"left": 0, "center": width / 2, "right": width}[align]
        self.pen.move_to(left, baseline - layout.get_baseline() / Pango.SCALE)
        self.pen.set_source_rgba(*rgb(color), alpha)
        PangoCairo.show_layout(self.pen, layout)
        return width


def typeset(pen, text, size, weight, tracking, display, tabular):
    layout = PangoCairo.create_layout(pen)
    font = Pango.FontDescription("Inter Display" if display else "Inter")
    font.set_absolute_size(size * Pango.SCALE)
    font.set_weight(Pango.Weight(weight))
    layout.set_font_description(font)
    attributes = Pango.AttrList()
    attributes.insert(Pango.attr_letter_spacing_new(round(tracking * size * Pango.SCALE)))
    attributes.insert(Pango.attr_font_features_new("tnum 1" if tabular else "tnum 0"))
    layout.set_attributes(attributes)
    layout.set_text(text, -1)
    return layout


def gradient(x0, y0, x1, y1, *colors):
    """Evenly spaced stops; each a '#rrggbb' text or a pair of it and an alpha."""
    pattern = cairo.LinearGradient(x0, y0, x1, y1)
    return with_stops(pattern, colors)


def radial(x, y, radius, *colors):
    return with_stops(cairo.RadialGradient(x, y, 0, x, y, radius), colors)


def with_stops(pattern, colors):
    for i, color in enumerate(colors):
        text, alpha = (color, 1.0) if isinstance(color, str) else color
        pattern.add_color_stop_rgba(i / (len(colors) - 1), *rgb(text), alpha)
    return pattern


def headline(text, size, color, weight, tracking, tabular=False):
    """A line of type as a picture of its own. All lines of one size have the same height and baseline."""
    probe = Canvas(4, 4)
    width = typeset(probe.pen, text, size, weight, tracking, True, tabular).get_pixel_size()[0]
    canvas = Canvas(even(width + size * 0.2), even(size * 1.36))
    canvas.text(canvas.width / 2, size * 1.0, text, size, weight, color, align="center", tracking=tracking,
                display=True, tabular=tabular)
    return canvas


def even(length):
    """Whole and even, so that a picture centred on a whole pixel lies on whole pixels."""
    return 2 * math.ceil(length / 2)


def save_flat(canvas, path, color):
    """For pictures of one colour: the palette holds that colour at every opacity, so nothing is lost."""
    alpha = canvas.image().getchannel("A")
    image = Image.frombytes("P", alpha.size, alpha.tobytes())
    image.putpalette(bytes(round(c * 255) for c in rgb(color)) * 256)
    image.save(path, transparency=bytes(range(256)), optimize=True)


def save_webp(canvas, path, quality=92):
    canvas.image().save(path, quality=quality, alpha_quality=100, method=6)
