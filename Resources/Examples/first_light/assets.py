"""The pictures of the example, at the size they have in a frame of 1080 by 1920."""

import math

import glyphs
from draw import Canvas, even, gradient, headline, radial, rgb, save_flat, save_webp

INK, GREEN, SOFT = "#0f3b30", "#12946c", "#6f8a82"
ROSE_INK = "#571334"
WHITE = "#ffffff"

LINES = {
    # name: (text, size, colour, weight)
    "tagline": ("Plan less. Bloom more.", 58, "#2c6a58", 500),
    "day-1": ("Your whole day,", 118, INK, 700),
    "day-2": ("one calm page.", 118, INK, 700),
    "focus-1": ("One thing.", 128, WHITE, 700),
    "focus-2": ("Deeply.", 128, "#8df5cd", 700),
    "week-1": ("Watch the good", 118, ROSE_INK, 700),
    "week-2": ("hours grow.", 118, ROSE_INK, 700),
    "time-2500": ("25:00", 168, WHITE, 500),
    "time-2459": ("24:59", 168, WHITE, 500),
    "time-2458": ("24:58", 168, WHITE, 500),
    "wordmark": ("Meadow", 176, INK, 700),
    "note": ("Free for your first season", 42, "#2c6a58", 500),
}

ROWS = {
    # name: (glyph, tile colours, title, subtitle, time)
    "row-1": (glyphs.sun, ("#ffc861", "#ff9f43"), "Morning pages", "20 min · kitchen", "8:00"),
    "row-2": (glyphs.pencil, ("#37cf9b", "#0f9670"), "Write the launch plan", "90 min · deep focus", "9:00"),
    "row-3": (glyphs.people, ("#63b8ff", "#3a83f0"), "Design review", "30 min · with Ana and Tom", "11:00"),
    "row-4": (glyphs.leaf, ("#ff9b87", "#f55c7d"), "Walk in the park", "45 min · phone stays home", "13:30"),
}

SHADOW_MARGIN = 60


def line(name):
    text, size, color, weight = LINES[name]
    # The countdown's digits keep their places from second to second.
    return headline(text, size, color, weight, -0.03 if size > 100 else -0.01, tabular=name.startswith("time-")), color


def card(width, height, radius, color=WHITE, shadow=0.16, margin=SHADOW_MARGIN, tint="#0b4a3a"):
    """A sheet with two shadows, one close and one wide, in the middle of a canvas with that margin."""
    canvas = Canvas(width + 2 * margin, height + 2 * margin)

    def outline(target):
        target.rounded(margin, margin, width, height, radius)

    canvas.shadow(outline, tint, shadow, margin * 0.36, margin * 0.30)
    canvas.shadow(outline, tint, shadow * 0.55, margin * 0.08, margin * 0.06)
    outline(canvas)
    canvas.fill(color)
    return canvas


def icon(side=380):
    margin = 120
    canvas = Canvas(side + 2 * margin, side + 2 * margin)

    def outline(target):
        target.rounded(margin, margin, side, side, side * 0.235)

    canvas.shadow(outline, "#0b6a4e", 0.42, 30, 30)
    canvas.shadow(outline, "#06382a", 0.20, 6, 6)
    canvas.pen.save()
    outline(canvas)
    canvas.pen.clip()
    glyphs.landscape(canvas, margin, margin, side, side, sun_x=0.5, sun_y=0.46, sun_radius=0.165)
    canvas.pen.restore()
    # A thin light along the upper edge, as glass has.
    canvas.rounded(margin + 1.5, margin + 1.5, side - 3, side - 3, side * 0.232)
    canvas.pen.set_source(gradient(0, margin, 0, margin + side, (WHITE, 0.85), (WHITE, 0.10), (WHITE, 0.18)))
    canvas.pen.set_line_width(3)
    canvas.pen.stroke()
    return canvas


def planner():
    """The day's page: a sheet with its date line; picture and rows are laid over it."""
    margin, width, height = SHADOW_MARGIN, 920, 1480
    canvas = card(width, height, 72, "#f5fbf7", shadow=0.20)
    left, top = margin + 60, margin
    canvas.text(left, top + 520, "Tuesday", 72, 700, INK, tracking=-0.03, display=True)
    canvas.text(left, top + 574, "4 plans, 3 h free", 32, 500, SOFT)
    for i, (day, number) in enumerate(zip("MTWTF", (11, 12, 13, 14, 15))):
        x = margin + width - 60 - 38 - (4 - i) * 84
        chosen = i == 1
        if chosen:
            canvas.rounded(x - 38, top + 452, 76, 124, 34)
            canvas.fill(gradient(0, top + 452, 0, top + 576, "#25b585", "#0f8f69"))
        canvas.text(x, top + 500, day, 26, 600, "#d8fff0" if chosen else "#9db3ac", align="center")
        canvas.text(x, top + 548, str(number), 34, 600, WHITE if chosen else INK, align="center")
    return canvas


def row(name):
    glyph, tile, title, subtitle, time = ROWS[name]
    margin, width, height = 40, 816, 160
    canvas = card(width, height, 44, WHITE, shadow=0.12, margin=margin)
    middle = margin + height / 2
    canvas.rounded(margin + 30, middle - 50, 100, 100, 30)
    canvas.fill(gradient(0, middle - 50, 0, middle + 50, *tile))
    glyphs.place(canvas, glyph, margin + 80, middle, 58, WHITE)
    canvas.text(margin + 162, middle - 8, title, 40, 600, INK, tracking=-0.012)
    canvas.text(margin + 162, middle + 40, subtitle, 30, 400, SOFT)
    canvas.text(margin + width - 42, middle + 13, time, 36, 500, "#8aa39b", align="right")
    return canvas


def done():
    """The tick that covers a tile when the plan is done."""
    canvas = card(100, 100, 30, gradient(0, 40, 0, 140, "#37cf9b", "#0f9670"), shadow=0.25, margin=40)
    glyphs.place(canvas, glyphs.check, 90, 90, 64, WHITE, weight=2.6)
    return canvas


def dial():
    """The ring's track with its minute marks."""
    side = 760
    canvas, middle = Canvas(side, side), 380
    canvas.circle(middle, middle, 300)
    canvas.stroke(WHITE, 30, 0.12)
    for i in range(60):
        a = i * math.pi / 30
        long = i % 5 == 0
        canvas.pen.move_to(middle + (252 if long else 258) * math.cos(a), middle + (252 if long else 258) * math.sin(a))
        canvas.pen.line_to(middle + 266 * math.cos(a), middle + 266 * math.sin(a))
        canvas.stroke(WHITE, 3, 0.45 if long else 0.18)
    canvas.text(middle, middle + 132, "Write the launch plan", 38, 500, "#c7efe2", align="center")
    return canvas


def arc():
    """Time that is left: from the top clockwise, fading in from its tail, with a bright head."""
    side, middle, radius = 760, 380, 300
    canvas = Canvas(side, side)
    sweep, steps = math.radians(286), 286
    tail, head = rgb("#1d7fe0"), rgb("#7dffd0")
    for i in range(steps):
        t = (i + 1) / steps
        a = -math.pi / 2 + sweep * i / steps
        canvas.pen.set_source_rgba(*(u + (v - u) * t for u, v in zip(tail, head)), min(1, 0.05 + 1.5 * t))
        canvas.pen.set_line_width(30)
        canvas.pen.set_line_cap(1 if i == steps - 1 else 0)
        canvas.pen.arc(middle, middle, radius, a, a + sweep / steps + (0.002 if i < steps - 1 else 0))
        canvas.pen.stroke()
    end = -math.pi / 2 + sweep
    x, y = middle + radius * math.cos(end), middle + radius * math.sin(end)
    canvas.circle(x, y, 62)
    canvas.fill(radial(x, y, 62, ("#baffe6", 0.75), ("#baffe6", 0.0)))
    canvas.circle(x, y, 22)
    canvas.fill("#f3fffa")
    return canvas


def chip(glyph, text):
    """A glass pill."""
    probe = Canvas(4, 4)
    width = even(probe.text(0, 0, text, 38, 500) + 190)
    height, margin = 104, 24
    canvas = Canvas(width + 2 * margin, height + 2 * margin)
    canvas.rounded(margin, margin, width, height, 52)
    canvas.fill(gradient(0, margin, 0, margin + height, (WHITE, 0.22), (WHITE, 0.10)))
    canvas.rounded(margin + 1, margin + 1, width - 2, height - 2, 51)
    canvas.pen.set_source(gradient(0, margin, 0, margin + height, (WHITE, 0.55), (WHITE, 0.12)))
    canvas.pen.set_line_width(2)
    canvas.pen.stroke()
    glyphs.place(canvas, glyph, margin + 66, margin + height / 2, 46, "#8df5cd")
    canvas.text(margin + 112, margin + height / 2 + 13, text, 38, 500, WHITE)
    return canvas


CHART_FLOOR = 400   # height of the card's lower part, which hides the bars until they rise


def week():
    margin, width, height = SHADOW_MARGIN, 920, 1140
    canvas = card(width, height, 72, WHITE, shadow=0.22, tint="#8a1f48")
    left, top = margin + 64, margin
    canvas.text(left, top + 108, "Deep focus", 40, 600, "#b07a8c")
    canvas.text(left - 4, top + 226, "12 h 40 min", 116, 700, ROSE_INK, tracking=-0.03, display=True)
    pill = 176
    canvas.rounded(margin + width - 64 - pill, top + 62, pill, 72, 36)
    canvas.fill("#e2f8ee")
    canvas.text(margin + width - 64 - pill / 2, top + 111, "+38 %", 36, 600, GREEN, align="center")
    for i in range(3):
        y = top + height - CHART_FLOOR - 120 * (i + 1)
        canvas.pen.move_to(left, y)
        canvas.pen.line_to(margin + width - 64, y)
        canvas.stroke("#f7e6ea", 3)
    return canvas


def week_floor():
    width, height = 920, CHART_FLOOR
    canvas = Canvas(width, height)
    canvas.rounded(0, -200, width, height + 200, 72)
    canvas.fill(WHITE)
    canvas.pen.move_to(64, 2)
    canvas.pen.line_to(width - 64, 2)
    canvas.stroke("#efd6dc", 4)
    for i, day in enumerate("MTWTFSS"):
        canvas.text(104 + i * 118.6, 62, day, 34, 600, "#f4517c" if i == 4 else "#c39aa8", align="center")
    facts = ((glyphs.leaf, "Longest streak", "9 days"), (glyphs.sun, "Best hour", "9 to 10"))
    for i, (glyph, title, value) in enumerate(facts):
        x = 64 + i * 404
        canvas.rounded(x, 118, 388, 206, 44)
        canvas.fill("#fff3f0")
        glyphs.place(canvas, glyph, x + 62, 176, 50, "#f4617c", weight=2.1)
        canvas.text(x + 36, 246, title, 32, 500, "#b07a8c")
        canvas.text(x + 36, 296, value, 44, 700, ROSE_INK, tracking=-0.02)
    return canvas


def best():
    """The label over the best day."""
    width, height, margin = 168, 80, 40
    canvas = Canvas(width + 2 * margin, height + 2 * margin)

    def outline(target):
        target.rounded(margin, margin, width, height, 36)

    canvas.shadow(outline, "#8a1f48", 0.35, 14, 12)
    outline(canvas)
    canvas.fill(ROSE_INK)
    canvas.text(margin + width / 2, margin + 53, "3 h 10", 38, 600, WHITE, align="center")
    return canvas


def button():
    width, height, margin = 640, 136, 80
    canvas = Canvas(width + 2 * margin, height + 2 * margin)

    def outline(target):
        target.rounded(margin, margin, width, height, 68)

    canvas.shadow(outline, "#0b7a5a", 0.45, 28, 26)
    outline(canvas)
    canvas.fill(gradient(0, margin, 0, margin + height, "#1fb587", "#0c8a66"))
    canvas.rounded(margin + 1.5, margin + 1.5, width - 3, height - 3, 66.5)
    canvas.pen.set_source(gradient(0, margin, 0, margin + height, (WHITE, 0.6), (WHITE, 0.0)))
    canvas.pen.set_line_width(3)
    canvas.pen.stroke()
    canvas.text(margin + width / 2 - 34, margin + height / 2 + 17, "Start your first day", 48, 600, WHITE,
                align="center", tracking=-0.01)
    glyphs.place(canvas, glyphs.arrow, margin + width - 82, margin + height / 2, 50, WHITE, weight=2.3)
    return canvas


def leaf():
    side = 200
    canvas = Canvas(side, side)
    p = canvas.pen
    p.translate(side / 2, side / 2)
    p.rotate(math.radians(-38))
    p.move_to(-76, 0)
    p.curve_to(-40, -52, 36, -50, 78, 0)
    p.curve_to(36, 50, -40, 52, -76, 0)
    p.close_path()
    canvas.fill(gradient(0, -44, 0, 44, "#7fe8b8", "#1fae7c"))
    p.move_to(-76, 0)
    p.curve_to(-30, 7, 36, 7, 78, 0)
    p.curve_to(36, 50, -40, 52, -76, 0)
    p.close_path()
    canvas.fill("#0c8a64", 0.35)
    p.move_to(-92, 3)
    p.curve_to(-30, 7, 30, 6, 62, 1)
    canvas.stroke("#d6fff0", 3, 0.8)
    return canvas


def meadow_photo():
    canvas = Canvas(840, 380)
    glyphs.landscape(canvas, 0, 0, 840, 380, sun_x=0.74, sun_y=0.40, sun_radius=0.15)
    return canvas


def write_all(folder):
    for name in LINES:
        canvas, color = line(name)
        save_flat(canvas, folder / f"{name}.png", color)
    drawings = {
        "icon": icon, "planner": planner, "done": done, "dial": dial, "arc": arc, "week": week,
        "week-floor": week_floor, "best": best, "button": button, "leaf": leaf,
        "chip-quiet": lambda: chip(glyphs.bell, "Notifications are asleep"),
        "chip-sound": lambda: chip(glyphs.rain, "Rain on leaves"),
    }
    drawings |= {name: (lambda n=name: row(n)) for name in ROWS}
    for name, draw in drawings.items():
        save_webp(draw(), folder / f"{name}.webp")
    meadow_photo().image().convert("RGB").save(folder / "meadow.jpg", quality=92, subsampling=0)
