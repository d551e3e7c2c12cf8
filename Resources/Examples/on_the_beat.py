"""Writes Examples/on-the-beat.tavixcomp: a film whose every cut and pulse is told in beats of its music.

    build/release/bin/tavix_sounds out on-the-beat
    python3 Resources/Examples/on_the_beat.py out/on-the-beat.wav
"""

import json
import pathlib
import shutil
import subprocess
import sys

WIDTH, HEIGHT, FPS = 1080, 1920, 30
BPM, FIRST_BEAT_SEC = 120, 0.2
DROP, LAST = 8, 32          # beats of the drop and of the last chord
BUNDLE = pathlib.Path(__file__).resolve().parents[2] / "Examples" / "on-the-beat.tavixcomp"

NIGHT, INK, PAPER = "#0b0a1a", "#171430", "#fff6e9"
CORAL, AMBER, MINT, SKY, VIOLET = "#ff5a5f", "#ffb238", "#27dba6", "#3f9cff", "#8a6bff"
OUT = {"kind": "bezier", "x1": 0.16, "y1": 1, "x2": 0.3, "y2": 1}
SWAY = {"kind": "bezier", "x1": 0.45, "y1": 0, "x2": 0.55, "y2": 1}


def color(text, alpha=1):
    return {**{c: round(int(text[i:i + 2], 16) / 255, 4) for c, i in zip("rgb", (1, 3, 5))}, "a": alpha}


def gradient(top, bottom):
    return {"kind": "gradient", "gradient": {"angleDegrees": 165, "stops": [
        {"color": color(top), "location": 0}, {"color": color(bottom), "location": 1}]}}


def away(pixels):
    """Displacements are fractions of the height."""
    return round(pixels / HEIGHT, 5)


def track(name, *keys):
    """Keys are (beat, value) or (beat, value, curve)."""
    return {"property": name, "keyframes": [
        {"atBeat": k[0], "value": k[1], **({"ease": k[2]} if len(k) > 2 else {})} for k in keys]}


def pulses(beats, rest, peak):
    """The keys of a value that jumps on every beat and settles until the next. The first beat begins the layer."""
    gap = beats[1] - beats[0] if len(beats) > 1 else 1
    keys = []
    for beat in beats:
        if keys:
            keys.append((beat - 0.08 * gap, rest))
        keys += [(beat, peak, OUT), (beat + 0.8 * gap, rest, SWAY)]
    return keys


def pulse(beats, rest, peak, name="scale"):
    return track(name, *pulses(beats, rest, peak))


def shape(kind, width, height, fill, x=WIDTH / 2, y=HEIGHT / 2, corner=0, **layer):
    """Sizes in pixels."""
    paint = fill if isinstance(fill, dict) else {"kind": "solid", "color": color(fill)}
    content = {"shape": kind, "widthFraction": round(width / WIDTH, 5),
               "heightFraction": round(height / HEIGHT, 5), "fill": paint}
    if corner:
        content["cornerRadiusFraction"] = corner
    return {"kind": "shape", "shape": content, "position": {"x": x, "y": y}, **layer}


def text(words, preset, size, ink=PAPER, y=HEIGHT / 2, weight="black", **layer):
    kinetic = {"preset": preset[0], "speed": preset[1], "intensity": preset[2]}
    return {"kind": "text", "position": {"x": WIDTH / 2, "y": y}, **layer,
            "text": {"text": words, "sizeFraction": size, "fontWeight": weight, "color": color(ink),
                     "kinetic": kinetic, "maxWidthFraction": 0.9}}


def scene(name, beats, background, *layers, transition=None):
    fill = background if isinstance(background, dict) else {"kind": "solid", "color": color(background)}
    result = {"id": name, "durationBeats": beats, "background": fill, "layers": list(layers)}
    if transition:
        result["transition"] = transition
    return result


def intro():
    rings = [shape("ellipse", 180 + 190 * i, 180 + 190 * i, VIOLET, opacity=0.17 - 0.03 * i,
                   tracks=[pulse(range(DROP), 1, 1.05 + 0.03 * i)]) for i in range(5)]
    burst = (DROP, 14, {"kind": "bezier", "x1": 0.9, "y1": 0, "x2": 1, "y2": 0.4})
    heart = shape("ellipse", 150, 150, CORAL, effects=[{"kind": "glow", "intensity": 0.5, "radiusFraction": 0.03}],
                  tracks=[track("scale", *pulses(range(DROP), 1, 1.22), burst)])
    return scene("intro", DROP, gradient("#1a1440", NIGHT), *rings, heart,
                 text("Find the beat.", ("fade-up", "smooth", "medium"), 0.05, y=1500, weight="semibold", toBeat=3.8),
                 text("Then cut on it.", ("fade-up", "smooth", "medium"), 0.05, y=1500, weight="semibold", fromBeat=4))


def bars(start, beats):
    """A level meter: columns that leap with the beat, the outer ones less."""
    result = []
    for i in range(7):
        height = 520 - 110 * abs(i - 3)
        result.append(shape("rect", 96, height, INK, x=WIDTH / 2 + (i - 3) * 132, y=HEIGHT / 2, corner=0.5,
                            tracks=[pulse([start + b / 2 for b in range(beats * 2)], 0.55, 1.15 - 0.05 * (i % 3),
                                          "scaleY")]))
    return result


def spinner(start):
    return [shape("rect", 620 - 120 * i, 620 - 120 * i, paint, corner=0.12, y=HEIGHT / 2, tracks=[
        track("rotationDeg", (start, 0), (start + 0.9, 90 if i % 2 else -90, OUT),
              (start + 1, 90 if i % 2 else -90), (start + 1.9, 180 if i % 2 else -180, OUT)),
        track("scale", (start + 0.92, 1), (start + 1, 1.12, OUT), (start + 1.8, 1, SWAY))]) for i, paint in enumerate((INK, PAPER, INK, PAPER))]


def stripes(start):
    result = []
    for i in range(9):
        side = -1 if i % 2 else 1
        result.append(shape("rect", WIDTH * 1.2, 130, INK if i % 2 else PAPER, y=HEIGHT / 2 + (i - 4) * 210, tracks=[
            track("x", (start, side * away(1300)), (start + 0.6, 0, OUT),
                  (start + 1, 0), (start + 1.7, -side * away(1300), OUT))]))
    return result


# Two a beat: more would flash more than three times a second.
def ripples(start):
    return [shape("ellipse", 700, 700, [PAPER, CORAL][i % 2], tracks=[
        track("scale", (start + i * 0.5, 0.01), (start + i * 0.5 + 1.6, 3.2, OUT))],
        fromBeat=start + i * 0.5) for i in range(4)]


def confetti(start):
    result = []
    paints = (CORAL, AMBER, MINT, SKY, PAPER)
    for i in range(20):
        column, row = i % 4, i // 4
        x, y = 180 + column * 240, 300 + row * 330
        beat = start + ((i * 7) % 16) / 8
        result.append(shape("ellipse" if i % 3 else "rect", 120, 120, paints[i % 5], x=x, y=y, corner=0.2, fromBeat=beat,
                            tracks=[track("scale", (beat, 0.01), (beat + 0.35, 1, OUT))]))
    return result


def words():
    """Two beats a word, one picture each."""
    rows = [("CUT", CORAL, stripes), ("MOVE", AMBER, lambda b: bars(b, 2)), ("TURN", MINT, spinner),
            ("SPREAD", SKY, ripples), ("SCATTER", VIOLET, confetti), ("AGAIN", CORAL, lambda b: bars(b, 2))]
    result = []
    for i, (word, paint, picture) in enumerate(rows):
        start = DROP + 2 * i
        plate = shape("rect", 960, 250, INK, y=1640, corner=0.5)
        result.append(scene(word.lower(), 2, paint, *picture(start), plate,
                            text(word, ("slam", "snap", "high"), 0.075, y=1640, ink=PAPER)))
    return result


def count():
    """One beat each; the last one is pushed out over half a beat more."""
    result = []
    for i, (word, paint) in enumerate((("ONE", NIGHT), ("TWO", CORAL), ("THREE", NIGHT), ("FOUR", MINT))):
        beat = DROP + 12 + i
        dot = shape("ellipse", 760, 760, INK if paint != NIGHT else VIOLET, tracks=[pulse([beat], 1, 1.18)])
        result.append(scene(word.lower(), 1, paint, dot, text(word, ("slam", "snap", "medium"), 0.1)))
    result[-1]["durationBeats"] = 1.5
    result[-1]["transition"] = {"style": "push", "durationBeats": 0.5, "curve": OUT}
    return result


def grid():
    """Sixteen lamps, two a beat, and a line of progress."""
    start = DROP + 16
    lamps = []
    for i in range(16):
        x, y = 210 + (i % 4) * 220, 520 + (i // 4) * 220
        beat = start + i / 2
        lamps.append(shape("rect", 170, 170, INK, x=x, y=y, corner=0.24))
        lamps.append(shape("rect", 170, 170, (CORAL, AMBER, MINT, SKY)[i // 4], x=x, y=y, corner=0.24, fromBeat=beat,
                           tracks=[track("scale", (beat, 1.25), (beat + 0.45, 1, OUT))]))
    rail = shape("rect", 830, 20, INK, y=1450, corner=0.5)
    line = shape("rect", 830, 20, PAPER, y=1450, corner=0.5, tracks=[
        track("scaleX", *((start + i / 2, max(i / 16, 0.01)) for i in range(17))),
        track("x", (start, -away(415)), (LAST, 0))])
    return scene("grid", LAST - start, gradient("#15122e", NIGHT), *lamps, rail, line,
                 text("Every cut, in beats.", ("word-pop", "smooth", "medium"), 0.042, y=1610, weight="bold",
                      fromBeat=start))


def title():
    ring = shape("ellipse", 760, 760, CORAL, y=860, tracks=[
        track("scale", (LAST, 0.4), (LAST + 1.5, 1, {"kind": "spring", "response": 0.55, "damping": 0.7})),
        track("opacity", (LAST + 4.5, 1), (LAST + 6, 0, SWAY))])
    return scene("title", 6, gradient("#241a4d", NIGHT), ring,
                 text("On the beat", ("line-rise", "smooth", "medium"), 0.062, y=860, toBeat=LAST + 5.6),
                 text("120 beats a minute", ("fade-up", "smooth", "low"), 0.026, y=1390, weight="medium",
                      fromBeat=LAST + 1, toBeat=LAST + 5.6))


def cues():
    return [{"atBeat": 3.6, "sound": "whoosh", "gain": 0.5}, {"atBeat": DROP - 0.26, "sound": "whip", "gain": 0.9},
            {"atBeat": DROP + 16, "sound": "whoosh", "gain": 0.7}, {"atBeat": LAST, "sound": "ding", "gain": 0.8}]


def document():
    return {"id": "on-the-beat", "output": {"widthPx": WIDTH, "heightPx": HEIGHT, "fps": FPS},
            "audio": {"music": {"path": "assets/on-the-beat.m4a", "gain": 0.8, "bpm": BPM,
                                "startAtSec": FIRST_BEAT_SEC, "firstBeatSec": FIRST_BEAT_SEC, "fadeOutSec": 1},
                      "cues": cues()},
            "scenes": [intro(), *words(), *count(), grid(), title()]}


def main(wav):
    shutil.rmtree(BUNDLE, ignore_errors=True)
    (BUNDLE / "assets").mkdir(parents=True)
    subprocess.run(["ffmpeg", "-v", "error", "-i", wav, "-c:a", "aac", "-b:a", "128k", "-fflags", "+bitexact",
                    "-flags:a", "+bitexact", "-y", BUNDLE / "assets" / "on-the-beat.m4a"], check=True)
    (BUNDLE / "composition.json").write_text(json.dumps(document(), indent=1, sort_keys=True) + "\n")


if __name__ == "__main__":
    main(sys.argv[1])
