"""Line icons on a grid of 24 units, and the drawings of the product's own: hills, sun, leaf."""

import math

from draw import gradient, radial


def sun(p):
    p.arc(12, 12, 4.2, 0, 2 * math.pi)
    for i in range(8):
        a = i * math.pi / 4
        p.move_to(12 + 7.4 * math.cos(a), 12 + 7.4 * math.sin(a))
        p.line_to(12 + 9.4 * math.cos(a), 12 + 9.4 * math.sin(a))


def pencil(p):
    p.move_to(4, 20)
    p.line_to(5, 15.6)
    p.line_to(16.2, 4.4)
    p.line_to(19.6, 7.8)
    p.line_to(8.4, 19)
    p.close_path()
    p.move_to(13.6, 7)
    p.line_to(17, 10.4)


def people(p):
    p.arc(9, 8, 3.4, 0, 2 * math.pi)
    p.new_sub_path()
    p.arc(9, 20.4, 6.4, math.pi * 1.08, math.pi * 1.92)
    p.new_sub_path()
    p.arc(16.4, 8.4, 3, -math.pi * 0.6, math.pi * 0.55)
    p.new_sub_path()
    p.arc(15, 20.4, 6.6, -math.pi * 0.36, -math.pi * 0.06)


def leaf(p):
    p.move_to(5.4, 18.6)
    p.curve_to(2.6, 10.4, 8.2, 4.2, 20, 4)
    p.curve_to(20.4, 15.4, 14, 21.4, 5.4, 18.6)
    p.move_to(3.6, 20.4)
    p.line_to(12.6, 11.4)


def moon(p):
    p.arc(12, 12, 8, math.pi * 1.55, math.pi * 0.95)
    p.curve_to(8.4, 14.6, 13.6, 11, 13.2, 4.1)


def bell(p):
    p.move_to(5, 17)
    p.line_to(19, 17)
    p.curve_to(17.4, 15.4, 17, 13.6, 17, 10.6)
    p.curve_to(17, 7.4, 15, 5, 12, 5)
    p.curve_to(9, 5, 7, 7.4, 7, 10.6)
    p.curve_to(7, 13.6, 6.6, 15.4, 5, 17)
    p.close_path()
    p.move_to(10.2, 20)
    p.curve_to(11, 20.8, 13, 20.8, 13.8, 20)


def rain(p):
    for i, height in enumerate((4, 9, 14, 7, 11)):
        p.move_to(4 + 4 * i, 12 - height / 2)
        p.line_to(4 + 4 * i, 12 + height / 2)


def check(p):
    p.move_to(5.5, 12.6)
    p.line_to(10, 17)
    p.line_to(18.5, 7.5)


def arrow(p):
    p.move_to(5, 12)
    p.line_to(19, 12)
    p.move_to(13, 6)
    p.line_to(19, 12)
    p.line_to(13, 18)


def place(canvas, glyph, x, y, size, color, alpha=1.0, weight=1.9):
    """Centred on (x, y); the line weight is in grid units."""
    canvas.pen.save()
    canvas.pen.translate(x - size / 2, y - size / 2)
    canvas.pen.scale(size / 24, size / 24)
    canvas.pen.new_path()
    glyph(canvas.pen)
    canvas.stroke(color, weight, alpha)
    canvas.pen.restore()


def hill(canvas, left, right, bottom, crest, swing, phase, color):
    """Everything under a slow wave."""
    canvas.pen.new_path()
    canvas.pen.move_to(left, bottom)
    steps = 96
    for i in range(steps + 1):
        t = i / steps
        wave = math.sin(2 * math.pi * (0.62 * t + phase)) + 0.3 * math.sin(2 * math.pi * (1.3 * t + 1.7 * phase))
        canvas.pen.line_to(left + (right - left) * t, crest + swing * wave)
    canvas.pen.line_to(right, bottom)
    canvas.pen.close_path()
    canvas.fill(color)


def landscape(canvas, x, y, width, height, sun_x=0.68, sun_y=0.42, sun_radius=0.15):
    """Morning over a meadow. The caller has clipped to what shall show."""
    right, bottom = x + width, y + height
    canvas.pen.rectangle(x, y, width, height)
    canvas.fill(gradient(x, y, x, bottom, "#8fe3ee", "#c9f3e2", "#fff1cf"))
    cx, cy, r = x + width * sun_x, y + height * sun_y, height * sun_radius
    canvas.circle(cx, cy, r * 3.4)
    canvas.fill(radial(cx, cy, r * 3.4, ("#fff6d8", 0.95), ("#fff0c4", 0.35), ("#fff0c4", 0.0)))
    canvas.circle(cx, cy, r)
    canvas.fill(gradient(cx, cy - r, cx, cy + r, "#fffdf2", "#ffe7a6"))
    layers = (
        (0.60, 0.050, 0.15, "#8adfb4", "#5cc596"),
        (0.70, 0.060, 0.52, "#4fc28c", "#2aa172"),
        (0.82, 0.055, 0.86, "#1f9d6e", "#0d7a58"),
    )
    for crest, swing, phase, top, low in layers:
        crest_y = y + height * crest
        hill(canvas, x, right, bottom, crest_y, height * swing, phase,
             gradient(0, crest_y - height * swing, 0, bottom, top, low))
