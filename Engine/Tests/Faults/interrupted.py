#!/usr/bin/env python3
"""Kills renders at random moments, damages and fills up the cache of finished pieces, and renders side by side: the film
is the same, byte by byte, what was finished is not made again, and nothing hidden stays.

usage: interrupted.py TAVIX
"""
import json
import os
import pathlib
import random
import subprocess
import sys
import tempfile
import time

KILLS = 20
SEED = 3
SCENES = 4

TAVIX = os.path.abspath(sys.argv[1]) if len(sys.argv) == 2 else sys.exit(__doc__)


def make_film(folder):
    film = folder / "film.json"
    scenes = [{"id": f"scene{i}", "durationSec": 1.5, "layers": [
        {"kind": "text", "position": {"x": 160, "y": 160}, "text": {"text": f"Word {i}"}}]} for i in range(SCENES)]
    film.write_text(json.dumps({"output": {"widthPx": 320, "heightPx": 320, "fps": 24}, "scenes": scenes,
                                "background": {"kind": "solid", "color": {"r": 0.1, "g": 0.2, "b": 0.4, "a": 1}}}))
    return film


def start(film, output, cache, *options):
    return subprocess.Popen([TAVIX, "render", str(film), "-o", str(output), "--json", *options], text=True,
                            env=dict(os.environ, XDG_CACHE_HOME=str(cache)), stdout=subprocess.PIPE,
                            stderr=subprocess.PIPE)


def rendered(film, output, cache, *options):
    """What the render says; it must have come to its end."""
    program = start(film, output, cache, *options)
    said, wrong = program.communicate()
    assert program.returncode == 0, wrong
    return json.loads(said)


def hidden(folder):
    return sorted(path.name for path in folder.glob(".*"))


def main():
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        film = make_film(folder)
        begun = time.monotonic()
        rendered(film, folder / "whole.mp4", folder / "first")
        took = time.monotonic() - begun
        whole = (folder / "whole.mp4").read_bytes()

        def check(output, what):
            assert output.read_bytes() == whole, f"{what}: another film"
            assert not hidden(folder), f"{what}: {hidden(folder)} stays"

        random.seed(SEED)
        reused = 0
        for kill in range(KILLS):
            cache, output = folder / f"cache{kill}", folder / "killed.mp4"
            program = start(film, output, cache)
            time.sleep(random.random() * took)
            program.kill()
            program.communicate()
            finished = len(list(cache.glob("tavix/*.piece")))
            found = rendered(film, output, cache)["segments"]["reused"]
            assert found == finished, f"{finished} pieces were finished, {found} of them were found"
            check(output, f"kill {kill}")
            output.unlink()
            reused += found
        print(f"{KILLS} kills: {reused} of {KILLS * SCENES} pieces were there already")

        damaged = sorted((folder / "first" / "tavix").glob("*.piece"))[0]
        content = bytearray(damaged.read_bytes())
        content[len(content) // 2] ^= 255
        damaged.unlink()   # the film's own piece may be the same file
        damaged.write_bytes(content)
        segments = rendered(film, folder / "again.mp4", folder / "first")["segments"]
        assert segments["reused"] == segments["count"] - 1, segments
        check(folder / "again.mp4", "a damaged piece")
        print("a damaged piece was made again")

        outputs = [folder / f"shared{i}.mp4" for i in range(3)]
        programs = [start(film, output, folder / "shared") for output in outputs]
        assert all([program.communicate() and program.returncode == 0 for program in programs])
        for output in outputs:
            check(output, "side by side")
        print("three renders side by side made the same film with one cache")

        programs = [start(film, folder / "one.mp4", folder / "shared", "--no-cache") for _ in range(3)]
        ends = sorted((program.communicate(), program.returncode)[1] for program in programs)
        assert ends[0] == 0 and set(ends) <= {0, 3}, ends
        check(folder / "one.mp4", "one output")
        print(f"three renders of one output ended with {ends}")

        (folder / "file").write_text("no folder")
        rendered(film, folder / "nowhere.mp4", folder / "file")
        check(folder / "nowhere.mp4", "a cache that is a file")
        print("a cache that cannot be written changes nothing")


if __name__ == "__main__":
    main()
