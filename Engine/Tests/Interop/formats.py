#!/usr/bin/env python3
"""Renders documents in every format that the command writes and has others decode them, FFmpeg and ImageMagick: each
shows the pictures of the same render as PNG files, in the same colours, and films have the document's sound.

usage: formats.py TAVIX DOCUMENT...
"""
import bisect
import itertools
import json
import pathlib
import re
import subprocess
import sys
import tempfile

TAVIX, DOCUMENTS = sys.argv[1], sys.argv[2:]
FPS = "2"   # few frames; what moves looks the same in all of them
# Of a file, with the mean distance of a channel that its kind of coding leaves, in 255ths.
FORMATS = {
    "h264.mp4": (["--codec", "h264"], 2), "h264.mov": (["--codec", "h264"], 2), "hevc.mp4": (["--codec", "hevc"], 2),
    "av1.mp4": (["--codec", "av1"], 3), "av1.webm": (["--codec", "av1"], 3), "vp9.webm": (["--codec", "vp9"], 3),
    "vp9.mp4": (["--codec", "vp9"], 3), "alpha.webm": (["--codec", "vp9-alpha"], 3),
    "422.mov": (["--codec", "prores422hq"], 1), "4444.mov": (["--codec", "prores4444"], 0.5),
    "film.gif": ([], 6), "film.webp": ([], 3),
}
SAMPLE = 4 * 13   # bytes from one pixel that is looked at to the next
failures = []


def check(name, holds, what):
    if not holds:
        failures.append(name)
        print(f"  FAILED  {name}: {what}", flush=True)


def run(*words, data=None):
    done = subprocess.run(words, input=data, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
    if done.returncode != 0:
        sys.exit(f"{' '.join(map(str, words))}: {done.stderr.decode()}")
    return done


def rendered(document, output, *options):
    return json.loads(run(TAVIX, "render", document, "-o", str(output), "--fps", FPS, "--no-cache", "--json",
                          *options).stdout)


def webp_frame(path, frame):
    """As a file of its own. Frames that look the same are one in WebP, which is shown for longer."""
    shown_for = [int(ticks) for ticks in run("identify", "-format", "%T ", str(path)).stdout.split()]
    ends = list(itertools.accumulate(shown_for))   # in hundredths of a second
    index = bisect.bisect_right(ends, frame * 100 / float(FPS) + 1)
    whole = path.with_suffix(".png")
    run("convert", f"{path}[0-{index}]", "-coalesce", *(["-delete", f"0-{index - 1}"] if index else []), str(whole))
    return whole


def pixels(path, frame, size):
    """Of a frame over black: straight colour of 8 bits."""
    if path.suffix == ".webp":
        path, frame = webp_frame(path, frame), 0
    decoder = ["-c:v", "libvpx-vp9"] if path.name == "alpha.webm" else []   # FFmpeg's own passes alpha over
    matrix = "in_color_matrix=bt709:" if path.suffix in (".mp4", ".mov", ".webm") else ""
    scale = f"scale={size[0]}:{size[1]}:{matrix}flags=area+accurate_rnd+full_chroma_int"
    return run("ffmpeg", "-v", "error", *decoder, "-i", str(path), "-vf", f"select=eq(n\\,{frame}),{scale},format=rgba",
               "-frames:v", "1", "-f", "rawvideo", "-").stdout


def distance(a, b):
    if len(a) != len(b) or not a:
        return 255.0
    total = sum(abs(a[i + c] * a[i + 3] - b[i + c] * b[i + 3]) for i in range(0, len(a), SAMPLE) for c in range(3))
    return total / 255 / 3 / len(range(0, len(a), SAMPLE))


def levels(path):
    """Peak and mean level of the sound in decibels; None without one."""
    told = run("ffmpeg", "-hide_banner", "-i", str(path), "-map", "0:a?", "-af", "astats=measure_perchannel=none", "-f",
               "null", "-").stderr.decode()
    found = re.findall(r"(?:Peak|RMS) level dB: (\S+)", told)
    return tuple(float(level) for level in found[:2]) if found else None


def main():
    for document in DOCUMENTS:
        name = pathlib.Path(document).stem
        has_sound = bool(json.loads(run(TAVIX, "resolve", document).stdout).get("audio"))
        with tempfile.TemporaryDirectory() as folder:
            place = pathlib.Path(folder)
            frames = rendered(document, place / "%05d.png")["frames"]
            looked_at = sorted({frames // 5, frames // 2, frames - 2} & set(range(1, frames)))
            heard = {}
            for file, (options, most) in FORMATS.items():
                film = rendered(document, place / file, *options)
                size = film["widthPx"], film["heightPx"]
                check(f"{name} {file}", film["frames"] == frames, f"{film['frames']} frames and not {frames}")
                far = [distance(pixels(place / file, i, size), pixels(place / f"{i + 1:05d}.png", 0, size))
                       for i in looked_at]
                check(f"{name} {file}", max(far) <= most, f"{far} from its pictures")
                if place.joinpath(file).suffix not in (".gif", ".webp"):
                    heard[file] = levels(place / file)
                print(f"  {name} {file}: {' '.join(f'{d:.2f}' for d in far)}  {heard.get(file, '')}", flush=True)
            check(name, all((level is not None) == has_sound for level in heard.values()), f"sound: {heard}")
            for level in heard.values() if has_sound else []:
                off = max(abs(a - b) for a, b in zip(level, heard["h264.mp4"]))
                check(name, off < 1 and level[0] <= 0, f"levels of its sound: {heard}")
    print(f"{len(failures)} failures" if failures else "Every format shows the same.")
    sys.exit(1 if failures else 0)


main()
