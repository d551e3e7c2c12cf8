"""A desktop that nobody sees, with one program on it: what a screen reader is told of it, a mouse and a keyboard."""

import json
import os
import shutil
import subprocess
import time
from pathlib import Path


class Lost(Exception):
    """What somebody would look for is not there."""


class Node:
    def __init__(self, raw, scale, parents=()):
        self.name, self.role, self.about = raw["name"], raw["role"], raw["about"]
        self.states, self.text, self.value = set(raw["states"]), raw.get("text", ""), raw.get("value")
        self.box = [side * scale for side in raw["box"]] or [0, 0, 0, 0]
        self.parents = parents
        self.children = [Node(child, scale, parents + (self,)) for child in raw["children"]]

    def all(self):
        yield self
        for child in self.children:
            yield from child.all()

    def at(self, across=0.5, down=0.5):
        x, y, width, height = self.box
        return x + width * across, y + height * down

    def __repr__(self):
        return f"{self.role} {self.name!r} {self.box}"


def desk_environment(home):
    """That of programs whose files all lie in a home of their own."""
    home = Path(home)
    kept = {name: value for name, value in os.environ.items() if name not in ("QT_QPA_PLATFORMTHEME", "DISPLAY")}
    return dict(kept, HOME=str(home), XDG_RUNTIME_DIR=str(home / "run"), XDG_CONFIG_HOME=str(home / "config"),
                XDG_STATE_HOME=str(home / "state"), XDG_CACHE_HOME=str(home / "cache"),
                XDG_DATA_HOME=str(home / "data"), TMPDIR=str(home), QT_QPA_PLATFORM="xcb",
                QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", LC_ALL="C.UTF-8")


class Desk:
    """Everything that the program keeps lies in a home of its own; the bus of screen readers must be there."""

    def __init__(self, home, screen_size, programs, theme="dark", scale=1):
        self.home, self.scale, self.programs = Path(home), scale, Path(programs)
        (self.home / "run").mkdir(mode=0o700)
        (self.home / "config/tavix").mkdir(parents=True)
        (self.home / "config/tavix/defaults.json").write_text(json.dumps({"editorTheme": theme}))
        self.display = self._free_display()
        self.env = dict(desk_environment(home), DISPLAY=self.display, QT_SCALE_FACTOR=str(scale))
        self.server = subprocess.Popen(["Xvfb", self.display, "-screen", "0", f"{screen_size[0]}x{screen_size[1]}x24"],
                                       stderr=subprocess.DEVNULL)
        self.eyes = None
        self.program = None
        time.sleep(0.5)
        # Without a manager of windows no dialog gets the keyboard.
        self.manager = subprocess.Popen(["openbox", "--sm-disable"], env=self.env, stderr=subprocess.DEVNULL)
        time.sleep(0.5)

    @staticmethod
    def _free_display():
        number = 90
        while Path(f"/tmp/.X11-unix/X{number}").exists():
            number += 1
        return f":{number}"

    def close(self):
        for process in (self.program, self.eyes, self.manager, self.server):
            if process and process.poll() is None:
                process.terminate()
                process.wait()

    # The program.

    def start(self, *arguments):
        self.log = open(self.home / "editor.log", "ab")
        self.program = subprocess.Popen([self.programs / "tavix-editor", *arguments], env=self.env, stdout=self.log,
                                        stderr=self.log)

    def kill(self):
        self.program.kill()
        self.program.wait()

    # Looking.

    def windows(self):
        if not self.eyes:
            self.eyes = subprocess.Popen([self.programs / "tavix_accessible_tree"], env=self.env, text=True,
                                         stdin=subprocess.PIPE, stdout=subprocess.PIPE)
        self.eyes.stdin.write("tavix-editor\n")
        self.eyes.stdin.flush()
        line = self.eyes.stdout.readline()
        if not line:
            raise Lost("The bus of screen readers is not there: install at-spi2-core.")
        return [Node(raw, self.scale) for raw in json.loads(line)]

    def nodes(self, role=None, name=None, within=None, starts=None):
        found = []
        for window in self.windows():
            for node in window.all():
                if "showing" not in node.states:
                    continue
                if (role in (None, node.role) and name in (None, node.name)
                        and (starts is None or node.name.startswith(starts))
                        and (within is None or any(parent.name == within for parent in node.parents))):
                    found.append(node)
        return found

    def find(self, role=None, name=None, within=None, starts=None, patience=15):
        until = time.time() + patience
        while True:
            found = self.nodes(role, name, within, starts)
            if found:
                return found[0]
            if self.program.poll() is not None:
                raise Lost(f"The program ended with {self.program.returncode}: " + self.said())
            if time.time() > until:
                raise Lost(f"There is no {role or 'thing'} called {name or starts!r}"
                           + (f" in {within!r}." if within else "."))
            time.sleep(0.2)

    def gone(self, role=None, name=None, patience=15):
        until = time.time() + patience
        while self.nodes(role, name):
            if time.time() > until:
                raise Lost(f"{name!r} does not go away.")
            time.sleep(0.2)

    def said(self):
        return (self.home / "editor.log").read_text(errors="replace")[-2000:]

    def picture(self, path):
        subprocess.run(["import", "-window", "root", str(path)], env=self.env, check=True)

    # Hands.

    def hand(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.env, check=True, stdout=subprocess.DEVNULL)

    def move(self, point):
        self.hand("mousemove", round(point[0]), round(point[1]))

    def click(self, where, button=1, times=1):
        self.move(where.at() if isinstance(where, Node) else where)
        time.sleep(0.1)
        self.hand("click", "--repeat", times, "--delay", 60, button)
        time.sleep(0.3)

    def drag(self, start, end, steps=12):
        self.move(start)
        time.sleep(0.15)
        self.hand("mousedown", 1)
        for i in range(1, steps + 1):
            self.move([a + (b - a) * i / steps for a, b in zip(start, end)])
            time.sleep(0.03)
        time.sleep(0.15)
        self.hand("mouseup", 1)
        time.sleep(0.3)

    def keys(self, *names):
        for name in names:
            self.hand("key", name)
            time.sleep(0.12)

    def type(self, words):
        self.hand("type", "--delay", 25, words)
        time.sleep(0.2)


def tools_missing():
    return [tool for tool in ("Xvfb", "openbox", "xdotool", "import", "ffprobe", "dbus-run-session") if not shutil.which(tool)]
