#!/usr/bin/env python3
"""What it costs that a film is encoded in pieces.

    Benchmarks/piece_cost.py TAVIX FILM.tavixcomp [--codec h264|hevc|vp9|av1] [--rates usual,1M,300k] [--fps 10]

Renders the film nearly without loss, so that both sides begin with the same conversion of colors, then in pieces at
each rate, and encodes the first in one go by FFmpeg with the same encoder and the same settings, as fine at most, at a
constant quality in several steps. Its groups of pictures are closed and begin at most two seconds apart, as those of
any film in which one can seek, and wherever else the encoder wants one; and in one go again, with the key frames where
the pieces begin. The brightness of all is compared with the first by SSIM and PSNR. Tells, for each rate:

    took     the rate of the pictures
    price    bits of the pieces against the film in one go at the same quality, by SSIM and by PSNR
    forced   the same against the film in one go with the key frames of the pieces: what is not the price of those
    step     the most that SSIM differs between the last frame before a join and the first after it, and elsewhere
    joins    the least SSIM of the two frames on each side of a join, beside that of the others and the mean
    jump     the frame after the key frame at a join against the mean of its piece, in bits: the highest of all

Needs ffmpeg and ffprobe with the encoders."""

import argparse
import json
import math
import re
import statistics
import subprocess
import sys
import tempfile
from pathlib import Path

ENCODERS = {
    "h264": (["libx264", "-preset", "veryfast", "-profile:v", "high", "-x264-params",
              "rc-lookahead=4:qpmin=10:open-gop=0"], "mp4"),
    "hevc": (["libx265", "-preset", "ultrafast", "-x265-params",
              "log-level=none:b-pyramid=1:open-gop=0:qpmin=10"], "mp4"),
    "vp9": (["libvpx-vp9", "-deadline", "good", "-cpu-used", "6", "-row-mt", "1", "-lag-in-frames", "16",
             "-b:v", "0"], "webm"),
    "av1": (["libsvtav1", "-preset", "10"], "mp4"),
}
LOSSLESS = "150M"   # nearly: the finest steps that the encoder is allowed
FINE, COARSE = (10, 13, 16, 19, 23, 28, 34, 41), (10, 22, 34, 46, 58)
STEPS = {"h264": FINE, "hevc": FINE, "vp9": COARSE, "av1": COARSE}


def run(*words):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True)
    if done.returncode != 0:
        sys.exit(f"{words[0]} failed: {done.stderr.strip()[-500:]}")
    return done.stdout


class Encoded:
    """The bytes of a film's pictures and how far each lies from the source."""

    def __init__(self, film, source, fps):
        shown = run("ffprobe", "-v", "error", "-select_streams", "v", "-show_entries", "packet=pts,size", "-of",
                    "csv=p=0", film)
        packets = sorted(tuple(int(word) for word in line.split(",")[:2]) for line in shown.split())
        self.sizes = [size for _, size in packets]
        log = Path(str(film) + ".log")
        both = (f"[0:v]setpts=PTS-STARTPTS,format=yuv420p,split[a][b];"
                f"[1:v]setpts=PTS-STARTPTS,format=yuv420p,split[c][d];"
                f"[a][c]ssim=f={log}.ssim[x];[b][d]psnr=f={log}.psnr[y]")
        run("ffmpeg", "-v", "error", "-r", fps, "-i", film, "-r", fps, "-i", source, "-lavfi", both, "-map", "[x]",
            "-f", "null", "-", "-map", "[y]", "-f", "null", "-")
        self.ssim = [float(found) for found in re.findall(r"Y:([\d.]+)", Path(f"{log}.ssim").read_text())]
        squares = [float(found) for found in re.findall(r"mse_y:([\d.]+)", Path(f"{log}.psnr").read_text())]
        self.byte_count = sum(self.sizes)
        # Both in decibels, so that quality is nearly straight over the logarithm of the bytes.
        self.by_ssim = -10 * math.log10(max(1 - statistics.mean(self.ssim), 1e-9))
        self.by_psnr = -10 * math.log10(max(statistics.mean(squares) / 255**2, 1e-12))


def bytes_at(curve, quality, of):
    """Of the film in one go, at a quality between two of its steps or a little beyond."""
    points = sorted((of(film), math.log(film.byte_count)) for film in curve)
    for (low, from_), (high, to) in zip(points, points[1:]):
        if quality <= high:
            break
    return math.exp(from_ + (to - from_) * (quality - low) / (high - low))


def in_one_go(codec, source, fps, folder, key_frames=()):
    words, suffix = ENCODERS[codec]
    if key_frames:
        times = ",".join(f"{(frame - 0.5) / float(fps):.4f}" for frame in key_frames)
        words = [*words, "-force_key_frames", times]
    for step in STEPS[codec]:
        film = folder / f"one-{step}.{suffix}"
        run("ffmpeg", "-v", "error", "-y", "-i", source, "-an", "-pix_fmt", "yuv420p", "-threads", 2, "-g",
            round(2 * float(fps)), "-c:v", *words, "-crf", step, film)
        yield Encoded(film, source, fps)


def price(film, curve):
    by_ssim = film.byte_count / bytes_at(curve, film.by_ssim, lambda one: one.by_ssim) - 1
    by_psnr = film.byte_count / bytes_at(curve, film.by_psnr, lambda one: one.by_psnr) - 1
    return f"{by_ssim:+.1%} {by_psnr:+.1%}"


def tell(rate, film, curve, forced, joins, fps):
    near = {i for join in joins for i in (join - 2, join - 1, join, join + 1)}
    at_joins = min((film.ssim[i] for i in near), default=1)
    elsewhere = min((ssim for i, ssim in enumerate(film.ssim) if i not in near), default=1)
    jumps = [film.sizes[start + 1] / max(statistics.mean(film.sizes[start + 1:end]), 1)
             for start, end in zip(joins, joins[1:] + [len(film.sizes)]) if end - start > 2]
    steps = {i: abs(film.ssim[i] - film.ssim[i - 1]) for i in range(1, len(film.ssim))}
    step = max((steps[i] for i in joins), default=0)
    other_step = max((value for i, value in steps.items() if i not in joins), default=0)
    took = film.byte_count * 8 / len(film.sizes) * float(fps)
    print(f"{rate:>8}  took {took / 1e6:.3f} Mbit/s  price {price(film, curve)}  forced {price(film, forced)}  "
          f"joins {at_joins:.4f} others {elsewhere:.4f} mean {statistics.mean(film.ssim):.4f}  "
          f"step {step:.4f} others {other_step:.4f}  jump {max(jumps, default=0):.1f}", flush=True)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("tavix")
    parser.add_argument("film")
    parser.add_argument("--codec", choices=ENCODERS, default="h264")
    parser.add_argument("--rates", default="usual,1M,300k")
    parser.add_argument("--fps", default="10")
    asked = parser.parse_args()
    with tempfile.TemporaryDirectory() as name:
        folder = Path(name)
        source = folder / "source.mp4"
        render = [asked.tavix, "render", asked.film, "--fps", asked.fps, "-q"]
        run(*render, "--no-cache", "--rate", LOSSLESS, "-o", source)
        plan = json.loads(run(asked.tavix, "render", asked.film, "--fps", asked.fps, "--plan", "--json"))
        joins = [segment["firstFrame"] for segment in plan["segments"]][1:]
        curve = list(in_one_go(asked.codec, source, asked.fps, folder))
        forced = list(in_one_go(asked.codec, source, asked.fps, folder, joins))
        print(f"{Path(asked.film).stem}, {asked.codec}, {len(joins) + 1} pieces")
        for rate in asked.rates.split(","):
            film = folder / f"pieces-{rate}.{ENCODERS[asked.codec][1]}"
            wanted = [] if rate == "usual" else ["--rate", rate]
            run(*render, "--codec", asked.codec, "--no-cache", "-o", film, *wanted)
            tell(rate, Encoded(film, source, asked.fps), curve, forced, joins, asked.fps)


main()
