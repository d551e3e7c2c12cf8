#!/usr/bin/env python3
"""clang-tidy over every source of a build, each looked at once: what a file and all that it includes held when it was
found clean is remembered in the user's cache folder. What changed last comes first, so that a bound on the time
(--within SECONDS) leaves out what has stood the longest; how much was left out is told."""

import argparse
import concurrent.futures
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import time


def arguments():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("build", type=pathlib.Path, help="a folder that has been built")
    parser.add_argument("--within", type=float, help="start no file after that many seconds")
    parser.add_argument("files", nargs="*", help="only these, as they are told from the root")
    return parser.parse_args()


def included(build):
    """Object file to all the files that it was compiled from, as the compiler told them."""
    told = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=True).stdout
    objects, current = {}, None
    for line in told.splitlines():
        if line.startswith("    "):
            current.append(os.path.normpath(os.path.join(build, line.strip())))
        elif ": #deps" in line:
            current = objects.setdefault(line.split(": #deps")[0], [])
    return objects


class Digests:
    def __init__(self):
        self.known = {}

    def of(self, path):
        if path not in self.known:
            try:
                self.known[path] = hashlib.sha256(pathlib.Path(path).read_bytes()).digest()
            except OSError:
                self.known[path] = b"gone"
        return self.known[path]


def commit_times():
    """When each file was last changed by a commit, in seconds since 1970."""
    log = subprocess.run(["git", "log", "--format=%ct", "--name-only", "-n", "400"], capture_output=True, text=True)
    times, now = {}, 0
    for line in log.stdout.splitlines():
        if line.isdigit():
            now = int(line)
        elif line:
            times.setdefault(line, now)
    return times


def main():
    asked = arguments()
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True, check=True).stdout
    base = hashlib.sha256((version + pathlib.Path(".clang-tidy").read_text()).encode())
    cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "tavix-tidy"
    cache.mkdir(parents=True, exist_ok=True)
    digests, objects, times, here = Digests(), included(asked.build), commit_times(), os.getcwd()
    waiting, clean = {}, 0
    for entry in json.loads((asked.build / "compile_commands.json").read_text()):
        name = os.path.relpath(entry["file"], here)
        if name.startswith(("build/", "..")) or (asked.files and name not in asked.files):
            continue
        key = base.copy()
        key.update(entry["command"].replace(here, "").encode())
        output = re.search(r" -o (\S+)", entry["command"])
        for path in objects.get(output and output.group(1), []) or [entry["file"]]:
            key.update(digests.of(path))
        stamp = cache / key.hexdigest()
        if stamp.exists():
            os.utime(stamp)
            clean += 1
        else:
            waiting[name] = stamp
    order = sorted(waiting, key=lambda name: -times.get(name, os.stat(name).st_mtime))
    until = time.monotonic() + asked.within if asked.within else None

    def look(name):
        if until and time.monotonic() > until:
            return name, None, ""
        ran = subprocess.run(["clang-tidy", "-p", asked.build, "--quiet",
                              "--extra-arg=-Wno-error", name], capture_output=True, text=True)
        return name, ran.returncode, ran.stdout

    faulty, left = 0, 0
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for name, code, told in pool.map(look, order):
            if code is None:
                left += 1
            elif code == 0:
                waiting[name].touch()
                clean += 1
            else:
                faulty += 1
                print(told or f"{name}: clang-tidy ended with {code}.", flush=True)
    print(f"clang-tidy: {clean} files are clean, {faulty} are not" + (f", {left} wait for a longer run." if left else "."),
          file=sys.stderr)
    return 1 if faulty else 0


if __name__ == "__main__":
    sys.exit(main())
