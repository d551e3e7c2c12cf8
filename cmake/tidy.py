#!/usr/bin/env python3
"""clang-tidy over every source of a build, each looked at once: what a file and all that it includes held when it was
found clean is remembered in the user's cache folder. What changed last comes first, so that a bound on the time
(--within SECONDS) leaves out what has stood the longest; how much was left out is told.

Nearly all of its time goes into headers, so sources that are compiled alike are looked at together, a dozen behind one
another as one source, which is five times as quick. Those that define the same name at file level are kept apart; where
some do not get along all the same, their batch is halved."""

import argparse
import concurrent.futures
import dataclasses
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import tempfile
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


def compiled(build, here):
    """Each source of ours by its name from the root, with the command that compiles it: by itself or, where the build
    puts sources of a folder behind one another, those."""
    for entry in json.loads((build / "compile_commands.json").read_text()):
        name = os.path.relpath(entry["file"], here)
        if "/together/" in name:
            for included in re.findall(r'#include "(.+)"', pathlib.Path(name).read_text()):
                own = f"Packages/{included}"
                yield own, {**entry, "command": entry["command"].replace(entry["file"], os.path.abspath(own))}
        elif not name.startswith(("build/", "..")):
            yield name, entry


@dataclasses.dataclass
class Source:
    name: str       # from the root
    command: str    # how it is compiled, without its own name and that of its object
    directory: str
    stamp: pathlib.Path
    names: frozenset    # that it defines at file level, as far as its lines tell


# A function, a type, or a constant at the first column: the word before the bracket, the brace or the equals sign.
DEFINED = re.compile(r"^(?=\w)(?!namespace\b|TEST|TYPED_TEST|INSTANTIATE|using namespace)[\w:<>,&* \[\]\"]*?"
                     r"\b(\w+) ?(?:[({=;]|final\b|: public)", re.MULTILINE)
MOST_IN_BATCH = 12


def batches(sources):
    """Sources of a folder that are compiled alike and share no name, in the order of the first of each batch."""
    made = []
    for source in sources:
        alike = (source.command, os.path.dirname(source.name))
        for key, batch, names in made:
            if key == alike and len(batch) < MOST_IN_BATCH and not names & source.names:
                batch.append(source)
                names |= source.names
                break
        else:
            made.append((alike, [source], set(source.names)))
    return [batch for _, batch, _ in made]


def told_of(batch, build):
    """What clang-tidy prints of a batch and whether it is content; the settings are those of the build's folder."""
    with tempfile.TemporaryDirectory(dir=build, prefix="tidy-") as folder:
        unit = pathlib.Path(folder).resolve() / "unit.cpp"
        unit.write_text("".join(f'#include "{os.path.abspath(source.name)}"\n' for source in batch))
        command = {"directory": batch[0].directory, "file": str(unit), "command": f"{batch[0].command} -c {unit}"}
        (unit.parent / "compile_commands.json").write_text(json.dumps([command]))
        ran = subprocess.run(["clang-tidy", "-p", folder, "--quiet", "--checks=-bugprone-suspicious-include",
                              "--extra-arg=-Wno-error", unit], capture_output=True, text=True)
        return ran.stdout, ran.returncode == 0


def main():
    asked = arguments()
    version = subprocess.run(["clang-tidy", "--version"], capture_output=True, text=True, check=True).stdout
    base = hashlib.sha256((version + pathlib.Path(".clang-tidy").read_text()).encode())
    cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "tavix-tidy"
    cache.mkdir(parents=True, exist_ok=True)
    digests, objects, times, here = Digests(), included(asked.build), commit_times(), os.getcwd()
    waiting, clean = [], 0
    for name, entry in compiled(asked.build, here):
        if asked.files and name not in asked.files:
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
            command = re.sub(r"^\S*ccache | -o \S+| -c \S+", "", entry["command"])
            names = frozenset(DEFINED.findall(pathlib.Path(name).read_text()))
            waiting.append(Source(name, command, entry["directory"], stamp, names))
    waiting.sort(key=lambda source: -times.get(source.name, os.stat(source.name).st_mtime))
    until = time.monotonic() + asked.within if asked.within else None
    faulty, left, said = set(), 0, set()

    def look(batch):
        """The batch, and what is wrong with it; None where the time is over."""
        if until and time.monotonic() > until:
            return [(batch, None)]
        told, is_content = told_of(batch, asked.build)
        if not is_content and "clang-diagnostic-error" in told and len(batch) > 1:
            half = len(batch) // 2
            return look(batch[:half]) + look(batch[half:])
        return [(batch, "" if is_content else told or "clang-tidy ended badly.")]

    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for parts in pool.map(look, batches(waiting)):
            for batch, told in parts:
                if told is None:
                    left += len(batch)
                    continue
                wrong = set(re.findall(r"^(\S+?):\d+:\d+: error", told, re.MULTILINE))
                own = {source.name for source in batch if os.path.abspath(source.name) in wrong}
                for source in batch:
                    # What a header has wrong is wrong with all that include it.
                    if not told or (own and source.name not in own and len(own) == len(wrong)):
                        source.stamp.touch()
                        clean += 1
                    else:
                        faulty.add(source.name)
                if told and told not in said:
                    said.add(told)
                    print(told, flush=True)
    print(f"clang-tidy: {clean} files are clean, {len(faulty)} are not" + (f", {left} wait for a longer run." if left else "."),
          file=sys.stderr)
    return 1 if faulty else 0


if __name__ == "__main__":
    sys.exit(main())
