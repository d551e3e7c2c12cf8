"""The document: five scenes in thirteen seconds. Places are pixels of a frame of 1080 by 1920."""

import json

from PIL import Image

from assets import CHART_FLOOR, WHITE
from draw import rgb

WIDTH, HEIGHT, FPS = 1080, 1920, 30


def lean(number, digits):
    """Rounded, and a whole number without a fraction."""
    number = round(number, digits)
    return int(number) if number == int(number) else number


def color(text, alpha=1):
    r, g, b = (lean(c, 4) for c in rgb(text))
    return {"r": r, "g": g, "b": b, "a": alpha}


def bezier(x1, y1, x2, y2):
    return {"kind": "bezier", "x1": x1, "y1": y1, "x2": x2, "y2": y2}


def spring(response, damping):
    return {"kind": "spring", "response": response, "damping": damping}


GLIDE = bezier(0.22, 1, 0.36, 1)       # leaves at once, arrives slowly
SWAY = bezier(0.42, 0, 0.58, 1)        # there and back
CUT = bezier(0.62, 0, 0.24, 1)         # transitions: rests at both ends
SETTLE = spring(0.75, 0.86)            # large things
POP = spring(0.52, 0.74)               # small things, with a little too much of it


# Makes a petal of the green leaf: lighter first, since a tint keeps luminance.
PETAL = [{"kind": "colorControls", "brightness": 0.3, "contrast": 0.8, "saturation": 1},
         {"kind": "tint", "color": color("#ff6f90"), "intensity": 0.95}]


def fraction(pixels):
    return lean(pixels / HEIGHT, 5)


def phase(seconds, curve, dx=0, dy=0, opacity=0, scale=1, turn=0, blur=0):
    """Where a layer comes from, in pixels and degrees relative to its rest."""
    result = {"durationSec": seconds, "curve": curve, "opacity": opacity}
    if dx or dy:
        result["offset"] = {"x": fraction(dx), "y": fraction(dy)}
    if scale != 1:
        result["scale"] = scale
    if turn:
        result["rotationDeg"] = {"x": 0, "y": 0, "z": turn}
    if blur:
        result["blurRadiusFraction"] = fraction(blur)
    return result


def track(what, *keys):
    """Keys are (seconds, value) or (seconds, value, the curve that arrives there)."""
    return {"property": what, "keyframes": [
        {"t": k[0], "value": k[1]} | ({"ease": k[2]} if len(k) > 2 else {}) for k in keys]}


def layer(kind, payload, x, y, start=0, seconds=None, name=None, **more):
    result = {"kind": kind, kind: payload, "position": {"x": x, "y": y}}
    if name:
        result["id"] = name
    if start:
        result["fromSec"] = start
    if seconds:
        result["durationSec"] = seconds
    return result | more


def ellipse(diameter, fill, x, y, blur=0, **more):
    payload = {"shape": "ellipse", "fill": fill, "widthFraction": round(diameter / WIDTH, 5),
               "heightFraction": fraction(diameter)}
    if blur:
        payload["blurRadiusFraction"] = fraction(blur)
    return layer("shape", payload, x, y, **more)


def solid(text, alpha=1):
    return {"kind": "solid", "color": color(text, alpha)}


def gradient(angle, *colors):
    stops = [{"color": color(c), "location": lean(i / (len(colors) - 1), 4)} for i, c in enumerate(colors)]
    return {"kind": "gradient", "gradient": {"angleDegrees": angle, "stops": stops}}


def bundled(name):
    return {"kind": "image", "image": {"bundledID": name}}


def crossing(style, seconds, curve=CUT):
    return {"style": style, "durationSec": seconds, "curve": curve}


class Document:
    def __init__(self, assets):
        self.assets = assets

    def picture(self, asset, x, y, size=1, corner=0, **more):
        """An asset at its own size, or a part of it; given as a fraction of the frame, so that it scales along."""
        path = next(self.assets.glob(asset + ".*"))
        with Image.open(path) as image:
            height = image.height * size
        payload = {"path": f"assets/{path.name}", "heightFraction": fraction(height)}
        if corner:
            payload["cornerRadiusFraction"] = corner
        more.setdefault("name", asset)
        return layer("image", payload, x, y, **more)

    def line(self, name, y, start):
        """A line of a headline: rises into focus."""
        return self.picture(name, WIDTH // 2, y, start=start, enter=phase(0.9, GLIDE, dy=70, blur=14))

    def drifting_leaf(self, name, x, y, size, turn, drift, sharp=True, start=0, **more):
        """A leaf that falls slowly through the scene."""
        tracks = [track("rotationDeg", (0, turn), (4, turn + drift[2])),
                  track("x", (0, 0), (4, fraction(drift[0]))), track("y", (0, 0), (4, fraction(drift[1])))]
        if not sharp:
            tracks.append(track("blur", (0, fraction(9))))
        return self.picture("leaf", x, y, size, name=name, start=start, tracks=tracks,
                            enter=phase(0.8, GLIDE, dy=-90, scale=0.6), **more)

    # Scenes

    def hello(self):
        return {"id": "hello", "durationSec": 2.7, "background": bundled("mint"), "layers": [
            ellipse(620, solid("#fff3c4"), 540, 740, blur=110, name="sunlight", opacity=0.9,
                    tracks=[track("scale", (0, 0.7), (2.7, 1.12, GLIDE))]),
            self.drifting_leaf("leaf-far", 236, 500, 0.5, -20, (50, 120, 60), start=0.5),
            self.drifting_leaf("leaf-middle", 886, 850, 0.72, 40, (-30, 100, -80), start=0.35),
            self.picture("icon", 540, 740, enter=phase(1.2, POP, dy=120, scale=0.4, turn=-18),
                         tracks=[track("scale", (0, 1), (2.7, 1.045, SWAY))]),
            self.line("wordmark", 1090, 0.45),
            self.line("tagline", 1226, 0.65),
            self.drifting_leaf("leaf-near", 196, 1560, 1.5, 115, (90, 150, 45), sharp=False, start=0.2),
        ], "transition": crossing("crossZoom", 0.6)}

    def day(self):
        rows = [self.picture(f"row-{i + 1}", 540, 1220 + 184 * i, start=0.7 + 0.11 * i,
                             enter=phase(1.1, SETTLE, dx=240, scale=0.94)) for i in range(4)]
        # The second plan is the one that the story follows: it lifts a little once the first is done.
        rows[1]["tracks"] = [track("scale", (0, 1), (1.45, 1), (2.0, 1.045, POP))]
        slide = phase(1.5, SETTLE, dy=760, opacity=1)
        return {"id": "day", "durationSec": 3.4,
                "background": gradient(162, "#fff6e4", "#eafaf0", "#bff0da"), "layers": [
                    ellipse(560, solid("#ffd9a0"), 300, 420, blur=120, name="warmth", opacity=0.55,
                            tracks=[track("scale", (0, 0.9), (3.4, 1.3, SWAY))]),
                    self.line("day-1", 262, 0.3),
                    self.line("day-2", 396, 0.42),
                    self.picture("planner", 540, 1260, start=0.3, enter=slide),
                    self.picture("meadow", 540, 750, corner=0.13, start=0.3, enter=slide),
                    *rows,
                    self.picture("done", 212, 1220, start=1.95, enter=phase(0.7, POP, scale=0.3, turn=-30)),
                ], "transition": crossing("wipe", 0.7)}

    def focus(self):
        fireflies = [
            ellipse(size, solid("#c9ffe9"), x, y, blur=5, name=f"firefly-{i + 1}",
                    tracks=[track("opacity", (0, 0), (0.9 + 0.2 * i, 0.9, SWAY), (2.3, 0.25, SWAY), (3.4, 0.8, SWAY)),
                            track("x", (0, 0), (3.4, fraction(dx), SWAY)),
                            track("y", (0, 0), (3.4, fraction(dy), SWAY))])
            for i, (x, y, size, dx, dy) in enumerate((
                (160, 720, 20, 40, -90), (930, 610, 14, -50, -60),
                (880, 1330, 24, 30, -120), (210, 1400, 16, -30, -100)))]
        blink = phase(0.18, GLIDE, dy=-16, opacity=0.2)
        return {"id": "focus", "durationSec": 3.4, "background": solid("#06121f"), "layers": [
            layer("fill", bundled("aurora"), 540, 960, name="night",
                  effects=[{"kind": "vignette", "intensity": 0.9, "radius": 1.6},
                           {"kind": "noise", "amount": 0.03, "seed": 7}],
                  tracks=[track("scale", (0, 1.12), (3.4, 1, GLIDE))]),
            ellipse(620, solid("#22d3a0"), 540, 1000, blur=100, name="breath", opacity=0.42,
                    tracks=[track("scale", (0, 0.6), (1.4, 1.12, SWAY), (2.4, 0.94, SWAY), (3.4, 1.12, SWAY))]),
            *fireflies,
            ellipse(600, solid(WHITE, 0.06), 540, 1000, name="glass", enter=phase(0.9, SETTLE, scale=0.8)),
            self.picture("dial", 540, 1000, start=0.2, enter=phase(1.0, SETTLE, scale=0.82, turn=-40)),
            self.picture("arc", 540, 1000, start=0.35, enter=phase(0.6, GLIDE),
                         effects=[{"kind": "glow", "intensity": 0.55, "radiusFraction": 0.010}],
                         tracks=[track("rotationDeg", (0, -250), (1.7, 0, GLIDE))]),
            self.line("focus-1", 290, 0.3),
            self.line("focus-2", 432, 0.5),
            self.picture("time-2500", 540, 984, start=0.5, seconds=0.8, enter=phase(0.7, GLIDE, scale=1.25, blur=16)),
            self.picture("time-2500", 540, 984, start=0.5, seconds=0.6, name="time-shimmer", opacity=0.5,
                         effects=[{"kind": "chromaticAberration", "offsetFraction": 0.002}],
                         enter=phase(0.6, GLIDE, scale=1.25, blur=16), exit=phase(0.4, SWAY)),
            self.picture("time-2459", 540, 984, start=1.3, seconds=1, enter=blink),
            self.picture("time-2458", 540, 984, start=2.3, enter=blink),
            self.picture("chip-quiet", 540, 1520, start=1.15, enter=phase(0.8, SETTLE, dy=60, scale=0.9)),
            self.picture("chip-sound", 540, 1650, start=1.3, enter=phase(0.8, SETTLE, dy=60, scale=0.9)),
        ], "transition": crossing("push", 0.8)}

    def week(self):
        card_top, card_height, left = 560, 1140, 80
        floor_top = card_top + card_height - CHART_FLOOR
        tuck = 40   # the part of a bar that stays below the line, so that a spring may overshoot
        bars = []
        for i, height in enumerate((170, 250, 215, 300, 352, 130, 90)):
            best = i == 4
            fill = gradient(0, "#ff9a76", "#ff9a76", "#f4517c", "#f4517c") if best else solid("#ffd3c8")
            payload = {"shape": "rect", "fill": fill, "widthFraction": round(72 / WIDTH, 5),
                       "heightFraction": fraction(height + tuck), "cornerRadiusFraction": 0.34}
            if best:
                # A shape's gradient spans the frame; these stops put its ends at the bar's own.
                for stop, y in zip(fill["gradient"]["stops"], (HEIGHT, floor_top, floor_top - height, 0)):
                    stop["location"] = lean(1 - y / HEIGHT, 4)
            middle = lean(floor_top + tuck - (height + tuck) / 2, 1)
            bars.append(layer("shape", payload, round(left + 104 + i * 118.6), middle,
                              start=round(1.1 + 0.07 * i, 2), name=f"bar-{i + 1}",
                              enter=phase(0.9, POP, dy=height, opacity=1)))
        slide = phase(1.3, SETTLE, dy=620, opacity=1)
        return {"id": "week", "durationSec": 3.5, "background": bundled("coral"), "layers": [
            ellipse(560, solid("#fff0d8"), 740, 420, blur=120, name="warmth", opacity=0.6,
                    tracks=[track("scale", (0, 0.9), (3.5, 1.3, SWAY))]),
            self.drifting_leaf("petal-far", 930, 480, 0.5, 30, (-40, 100, 70), start=0.6,
                               effects=PETAL),
            self.line("week-1", 262, 0.3),
            self.line("week-2", 396, 0.42),
            self.picture("week", 540, card_top + card_height // 2, start=0.2, enter=slide),
            *bars,
            self.picture("week-floor", 540, floor_top + CHART_FLOOR // 2, start=0.2, enter=slide),
            self.picture("best", round(left + 104 + 4 * 118.6), floor_top - 352 - 66, start=2.0,
                         enter=phase(0.7, POP, dy=40, scale=0.4)),
            self.drifting_leaf("petal-near", 120, 1730, 1.4, -60, (90, 60, 60), sharp=False, start=0.5,
                               effects=PETAL),
        ], "transition": crossing("crosswarp", 0.8)}

    def begin(self):
        def floating(name, x, y, size, turn, drift, blur, start):
            return self.picture(name, x, y, size, start=start, enter=phase(1.1, SETTLE, dy=drift * 5, scale=0.8),
                                tracks=[track("rotationDeg", (0, turn), (3.4, turn * 0.7)),
                                        track("y", (0, 0), (3.4, fraction(-drift))),
                                        track("blur", (0, fraction(blur)))])
        return {"id": "begin", "durationSec": 3.4, "background": bundled("mint"), "layers": [
            ellipse(700, solid("#fff3c4"), 540, 720, blur=120, name="sunlight", opacity=0.9,
                    tracks=[track("scale", (0, 0.8), (3.4, 1.12, GLIDE))]),
            floating("row-4", 230, 290, 0.58, -9, 40, 6, 0.3),
            floating("row-3", 880, 400, 0.46, 8, 26, 9, 0.4),
            floating("row-1", 200, 1700, 0.52, 8, 30, 8, 0.5),
            floating("row-2", 830, 1640, 0.66, -7, 50, 4, 0.35),
            self.drifting_leaf("leaf-far", 900, 640, 0.5, 15, (-30, 90, 70), start=0.5),
            self.picture("icon", 540, 720, start=0.15, enter=phase(1.2, POP, dy=100, scale=0.5, turn=14),
                         tracks=[track("scale", (0, 1), (3.3, 1.04, SWAY))]),
            self.line("wordmark", 1066, 0.45),
            self.line("note", 1190, 0.62),
            self.picture("button", 540, 1370, start=0.85, enter=phase(0.9, POP, dy=80, scale=0.7),
                         tracks=[track("scale", (0, 1), (1.35, 1), (1.5, 0.94, SWAY), (2.1, 1, spring(0.4, 0.72)))]),
            self.drifting_leaf("leaf-near", 120, 1410, 1.3, 100, (50, 130, 40), sharp=False, start=0.3),
        ]}

    def text(self):
        spec = {"schemaVersion": 1, "output": {"widthPx": WIDTH, "heightPx": HEIGHT, "fps": FPS},
                "background": solid("#eafaf0"),
                "scenes": [self.hello(), self.day(), self.focus(), self.week(), self.begin()]}
        return json.dumps(spec, indent=2, sort_keys=True, separators=(",", " : ")) + "\n"
