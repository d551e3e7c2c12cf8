#!/usr/bin/env python3
"""A person's first ten minutes with the application, by mouse and keys alone, on a screen that nobody sees: from a
template to exported films, over undo, a crash and its recovery. After each step the document or the film is read and
judged; a picture of the screen is kept to be looked at.

usage: first_ten_minutes.py PROGRAMS OUT [--theme dark|light] [--scale 1|2]
"""

import argparse
import json
import subprocess
import sys
import tempfile
import time
from pathlib import Path

from desk import Desk, Lost, desk_environment, tools_missing

BEAT = 0.5   # the template's music has 120 in a minute


def sure(holds, what):
    if not holds:
        raise Lost(what)


class Walk:
    def __init__(self, desk, out):
        self.desk, self.out, self.count = desk, out, 0
        self.bundle = desk.home / "film.tavixcomp"
        self.saved = []   # the document after each step of undo, the first one as it was made

    def step(self, name):
        self.count += 1
        self.desk.picture(self.out / f"{self.count:02}-{name}.png")
        print(f"  {self.count:02} {name}", flush=True)

    # The document.

    def text(self):
        return (self.bundle / "composition.json").read_text()

    def save(self):
        """Saves by key, and gives what then lies in the bundle."""
        self.desk.keys("ctrl+s")
        until = time.time() + 15
        while "enabled" in self.desk.find("push button", "Save").states:
            sure(time.time() < until, "What is saved stays edited.")
            time.sleep(0.2)
        return json.loads(self.text())

    def meaning(self):
        """The document as the renderer sees it: a file keeps what it can of how it was written, beats or seconds."""
        return subprocess.run([self.desk.programs / "tavix", "resolve", self.bundle], env=self.desk.env, check=True,
                              capture_output=True, text=True).stdout

    def scene(self, document, name):
        return next(scene for scene in document["scenes"] if scene.get("id") == name)

    def layer(self, document, scene, name):
        return next(layer for layer in self.scene(document, scene)["layers"] if layer.get("id") == name)

    # Hands on the timeline.

    def timeline(self, name, role="list item"):
        return self.desk.find(role, name, within="Timeline")

    def x_of(self, sec):
        """Where a time of the film lies on the ruler, by where the first and the last scene are said to stand."""
        first, last = self.timeline("Scene ready"), self.timeline("Scene end")
        total = float(self.desk.find("slider", "Playhead", within="Timeline").about.split(" of ")[1].split()[0])
        left, right = first.box[0], last.box[0] + last.box[2]
        return left + (right - left) * sec / total

    def seek(self, sec):
        playhead = self.desk.find("slider", "Playhead", within="Timeline")
        self.desk.click((self.x_of(sec), playhead.at()[1]))
        now = self.desk.find("slider", "Playhead", within="Timeline").value
        sure(abs(now - sec) < 0.02, f"The playhead stands at {now} s after a click on the ruler at {sec} s.")

    # The steps.

    def launch(self):
        self.desk.windows()   # the bus is there before the program looks for it
        self.desk.start()
        self.desk.find("push button", "Open Project")
        self.step("launch")

    def make(self):
        desk = self.desk
        desk.click(desk.find("push button", "New from Template"))
        desk.click(desk.find("list item", starts="on-the-beat"))
        self.step("templates")
        desk.click(desk.find("push button", "Create…"))
        desk.find("dialog", "New Project")
        time.sleep(0.5)
        desk.keys("ctrl+a")
        desk.type(str(self.bundle))
        self.step("name")
        desk.keys("Return")
        self.timeline("Scene phone")
        time.sleep(1.5)
        document = json.loads(self.text())
        sure(len(document["scenes"]) == 7, "The template has not its seven scenes.")
        self.step("made")

    def change_headline(self):
        desk = self.desk
        desk.click(self.timeline("line-1"))
        self.seek(7)
        desk.click(desk.find("text", "Text", within="Inspector"))
        desk.keys("ctrl+a")
        desk.type("Made by hand")
        time.sleep(0.5)
        self.step("headline")
        document = self.save()
        sure(self.layer(document, "phone", "line-1")["text"]["text"] == "Made by hand", "The headline is another one.")

    def drag_phone(self):
        desk, before = self.desk, self.phone(json.loads(self.text()))
        box = self.stage("phone").box
        start, by = (box[0] + box[2] * 0.5, box[1] + box[3] * 0.85), (-40 * desk.scale, 30 * desk.scale)
        desk.drag(start, (start[0] + by[0], start[1] + by[1]))
        time.sleep(1)
        self.step("dragged")
        after = self.phone(self.save())
        sure(len(self.times(after)) == len(self.times(before)) + 1, "The drag has set no keyframe.")
        # It comes along with the hand, and is as large as before.
        now = self.stage("phone").box
        for axis in (0, 1):
            moved = now[axis] + now[axis + 2] / 2 - box[axis] - box[axis + 2] / 2
            sure(abs(moved - by[axis]) < 6 * desk.scale, f"The phone went {moved} pixels along axis {axis}, not {by[axis]}.")
        sure(abs(now[3] / box[3] - 1) < 0.03, f"The phone was {box[3]} high, and is {now[3]} after a drag.")

    def add_keyframe(self):
        before = self.times(self.phone(json.loads(self.text())))
        self.desk.click(self.timeline("phone"))
        self.seek(8.7)
        self.desk.keys("k")
        self.desk.find("push button", within="Timeline", starts="Keyframe of Device at 8.7")
        self.step("keyframe")
        after = self.times(self.phone(self.save()))
        added = [sec for sec in after if sec not in before]
        sure(len(added) == 1 and abs(added[0] - 2.7) < 0.03, f"Keyframes stand at {after}.")

    def choose_motion(self):
        desk = self.desk
        desk.click(desk.find("push button", "Choose Motion…"))
        desk.find("text", "Search motions")
        desk.type("hero")
        time.sleep(1.5)
        self.step("gallery")
        desk.click(desk.find("list item", within="Motions"))
        self.step("question")
        desk.click(desk.find("push button", "Replace"))
        time.sleep(0.5)
        desk.keys("Escape")
        desk.gone("dialog", "Motions")
        time.sleep(1)
        self.step("motion")
        phone = self.phone(self.save())
        # It rises lying on its back, and turns once about itself.
        tilts = [keyframe["tiltDegrees"] for keyframe in phone["device"]["scene3D"]["poseTrack"]]
        sure(tilts[0]["x"] > 60 and tilts[-1]["y"] == 360, f"The motion is {tilts}.")
        sure(2.7 not in self.times(phone), "The old keyframes are still there.")

    def cut_on_a_beat(self):
        desk = self.desk
        band = self.timeline("Scene lace")
        edge = band.box[0] + band.box[2]
        # Let go a little beyond the beat, where it is to stick.
        desk.drag((edge - 2 * desk.scale, band.at()[1]), (self.x_of(3 + BEAT) + desk.scale, band.at()[1]))
        time.sleep(0.5)
        self.step("cut")
        lace = self.scene(self.save(), "lace")
        length = lace.get("durationSec", lace.get("durationBeats", 0) * BEAT)
        sure(length == 3 * BEAT, f"The scene is {length} s long, and its end on no beat.")

    def undo_and_redo(self):
        for keys, left in ((["ctrl+z"] * 5, 0), (["ctrl+shift+z"] * 2, 2), (["ctrl+y"] * 3, 5)):
            self.desk.keys(*keys)
            time.sleep(0.5)
            self.save()
            self.step(f"at-step-{left}")
            sure(self.meaning() == self.saved[left], f"After {len(keys)} times {keys[0]} the document is not that of step {left}.")

    def crash(self):
        desk = self.desk
        desk.click(self.timeline("line-1"))
        desk.click(desk.find("text", "Text", within="Inspector"))
        desk.keys("ctrl+a")
        desk.type("Brought back")
        desk.click(self.timeline("Scene end"))
        time.sleep(7)   # unsaved work is kept every five seconds
        desk.kill()
        sure("Brought back" not in self.text(), "What was never saved is in the bundle.")
        desk.start()
        self.desk.find("push button", "Open Project")
        time.sleep(1)
        self.step("after-the-crash")
        desk.click(desk.find("push button", "Bring Them Back"))
        self.timeline("Scene phone")
        time.sleep(1)
        self.step("recovered")
        document = self.save()
        sure(self.layer(document, "phone", "line-1")["text"]["text"] == "Brought back", "The lost words did not come back.")

    def export(self, choose_gif):
        desk = self.desk
        film = desk.home / ("film.gif" if choose_gif else "film.mp4")
        desk.click(desk.find("push button", "Export…"))
        desk.find("dialog", "Export")
        if choose_gif:
            desk.click(desk.find("combo box", within="Export"))
            time.sleep(0.3)
            desk.keys("Home", "Down", "Return")
        self.step("export-gif" if choose_gif else "export-film")
        desk.click(desk.find("push button", "Export…", within="Export"))
        time.sleep(1)
        desk.keys("ctrl+a")
        desk.type(str(film))
        desk.keys("Return")
        time.sleep(2)
        self.step("exporting")
        desk.find("label", f"Exported {film.name}.", patience=900)
        self.step("exported")
        probe = json.loads(subprocess.run(
            ["ffprobe", "-v", "error", "-count_frames", "-show_streams", "-show_format", "-of", "json", film],
            check=True, capture_output=True, text=True).stdout)
        picture = next(stream for stream in probe["streams"] if stream["codec_type"] == "video")
        seconds = 12 + BEAT   # the film as it was cut
        sure(abs(float(probe["format"]["duration"]) - seconds) < 0.1, f"The film is {probe['format']['duration']} s long.")
        sure(picture["width"] * 16 == picture["height"] * 9, "The film has another shape.")
        frames = int(picture["nb_read_frames"])
        if choose_gif:
            sure(picture["codec_name"] == "gif" and frames > 5 * seconds, f"The GIF has {frames} frames.")
        else:
            sure(picture["codec_name"] == "h264" and frames == 30 * seconds, f"The film has {frames} frames.")
            sure((picture["width"], picture["height"]) == (1080, 1920), "The film is not of the canvas's size.")
            sure(any(stream["codec_type"] == "audio" for stream in probe["streams"]), "The film is silent.")

    def stage(self, name):
        found = self.desk.nodes(name=name, within="Stage")
        sure(found, f"{name!r} is not on the stage.")
        return found[0]

    def phone(self, document):
        return self.layer(document, "phone", "phone")

    @staticmethod
    def times(phone):
        """Where the device has keyframes, as one row shows them."""
        device = phone["device"]
        tracks = [device.get("placement", {}).get("track", []), device.get("scene3D", {}).get("poseTrack", []),
                  device.get("scene3D", {}).get("depthTrack", [])]
        return sorted({round(keyframe["tSec"], 2) for track in tracks for keyframe in track})

    def go(self):
        self.launch()
        self.make()
        self.saved.append(self.meaning())
        for step in (self.change_headline, self.drag_phone, self.add_keyframe, self.choose_motion, self.cut_on_a_beat):
            step()
            self.saved.append(self.meaning())
        self.undo_and_redo()
        self.crash()
        self.export(choose_gif=False)
        self.export(choose_gif=True)


def walk(options):
    desk = Desk(options.home, (1600 * options.scale, 1000 * options.scale), options.programs.resolve(), options.theme,
                options.scale)
    film = Walk(desk, options.out)
    try:
        film.go()
    except Lost as lost:
        desk.picture(options.out / "lost.png")
        for i, text in enumerate(film.saved + [film.meaning()] if film.saved else []):
            (options.out / f"lost-{i}.json").write_text(text)
        sys.exit(f"{lost} The screen is in {options.out}/lost.png.\n{desk.said()}")
    finally:
        desk.close()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("programs", type=Path, help="where tavix-editor is")
    parser.add_argument("out", type=Path, help="where the pictures go")
    parser.add_argument("--theme", choices=("dark", "light"), default="dark")
    parser.add_argument("--scale", type=int, choices=(1, 2), default=1)
    parser.add_argument("--home", help=argparse.SUPPRESS)   # set where a bus of its own is there
    options = parser.parse_args()
    if missing := tools_missing():
        sys.exit(f"The walk needs {', '.join(missing)}: install xvfb, openbox, xdotool, imagemagick, ffmpeg and dbus.")
    if options.home:
        return walk(options)
    options.out.mkdir(parents=True, exist_ok=True)
    print(f"{options.theme}, scale {options.scale}", flush=True)
    with tempfile.TemporaryDirectory(prefix="tavix-walk-") as home:
        ended = subprocess.run(["dbus-run-session", "--", sys.executable, *sys.argv, "--home", home],
                               env=desk_environment(home), stderr=open(options.out / "bus.log", "w"))
    if ended.returncode:
        sys.exit((options.out / "bus.log").read_text().splitlines()[-1])


if __name__ == "__main__":
    main()
