"""The gallery of device motions in space, for the documentation: motion_gallery.py TAVIX SCREEN.png OUT.jpg

Each of 24 motions is drawn once with two fainter, earlier copies of itself, through the command TAVIX (`tavix still`);
ffmpeg joins the pictures."""

import json
import pathlib
import subprocess
import sys
import tempfile

COLUMNS, ROWS = 6, 4
WIDTH, HEIGHT = 320, 400
# How far back the copies are, in fractions of the motion, and how clear.
COPIES = ((0.26, 0.22), (0.13, 0.45), (0, 1))
# When motions begin: their titles have come by then.
START_SEC = 1.5
# The moment that tells most of a motion, in fractions of it.
MOMENTS = {"entrance": 0.55, "exit": 0.5, "move": 0.5, "showcase": 0.45}


def chosen(motions):
    """As many of each kind as it has of all motions in space, in the order of the list."""
    count = COLUMNS * ROWS
    return [motions[round(i * (len(motions) - 1) / (count - 1))] for i in range(count)]


def device(motion, screen, delay, opacity):
    params = {"startAtSec": delay}
    preset = {"preset": motion["id"], "params": params}
    content = {"basePaddingPx": 50, "motionPreset": preset, "screen": {"kind": "still", "path": screen}}
    return {"kind": "device", "device": content, "opacity": opacity, "position": {"x": WIDTH / 2, "y": HEIGHT / 2}}


def title(motion):
    text = {"text": motion["title"], "sizeFraction": 0.042,
            "color": {"r": 0.16, "g": 0.18, "b": 0.24, "a": 1}}
    return {"kind": "text", "text": text, "position": {"x": WIDTH / 2, "y": HEIGHT * 0.955}}


def document(motion, screen):
    length = motion["naturalDurationSec"]
    layers = [device(motion, screen, START_SEC + back * length, opacity) for back, opacity in COPIES]
    stops = [{"location": 0, "color": {"r": 0.80, "g": 0.82, "b": 0.87, "a": 1}},
             {"location": 1, "color": {"r": 0.96, "g": 0.96, "b": 0.98, "a": 1}}]
    return {"output": {"widthPx": WIDTH, "heightPx": HEIGHT, "fps": 60},
            "background": {"kind": "gradient", "gradient": {"angleDegrees": 0, "stops": stops}},
            "scenes": [{"durationSec": START_SEC + 2 * length, "layers": layers + [title(motion)]}]}


def main(tavix, screen, out):
    listed = subprocess.run([tavix, "presets", "motions", "--json"], check=True, capture_output=True).stdout
    motions = chosen([motion for motion in json.loads(listed) if motion["uses3D"]])
    with tempfile.TemporaryDirectory() as folder:
        for i, motion in enumerate(motions):
            file = pathlib.Path(folder, f"{i:02}.json")
            file.write_text(json.dumps(document(motion, str(pathlib.Path(screen).resolve()))))
            moment = START_SEC + MOMENTS[motion["category"]] * motion["naturalDurationSec"]
            subprocess.run([tavix, "still", "--quiet", file, "--at", str(moment), "-o", file.with_suffix(".png")],
                           check=True)
        subprocess.run(["ffmpeg", "-loglevel", "error", "-y", "-i", f"{folder}/%02d.png", "-vf",
                        f"tile={COLUMNS}x{ROWS}:margin=12:padding=12:color=white", "-frames:v", "1", "-q:v", "3",
                        "-update", "1", out], check=True)


main(*sys.argv[1:])
