#!/usr/bin/env python3
"""Makes the system fail under the command, call by call, and holds it to one law: either the result is the very
one of an undisturbed run, or the command says why not in a finished sentence, with status 3, and everything is as
it was before. Nothing hidden stays either way.

usage: faults.py TAVIX SHIM [NAME...]      the named cases only
"""
import errno
import json
import os
import pathlib
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time

TAVIX, SHIM = (os.path.abspath(path) for path in sys.argv[1:3])
CHOSEN = sys.argv[3:]
SENTENCE = re.compile(r"^tavix: .+[.]$")
UNFIT = re.compile(r"bad_alloc|terminate called|std::|Segmentation|Trace/breakpoint|Aborted")
TIMEOUT_S = 120

failures = []


def run(folder, words, fault=None, count=None, limit=None, **options):
    # Nothing is kept from one run to the next: each draws all of its film.
    environment = dict(os.environ, LC_ALL="C", XDG_CACHE_HOME="/dev/null")
    if fault is not None:
        environment.update(LD_PRELOAD=SHIM, TAVIX_FAULT=fault)
    if count is not None:
        environment["TAVIX_FAULT_COUNT"] = str(count)

    def prepare():
        if limit is not None:
            resource.setrlimit(limit[0], (limit[1], limit[1]))

    return subprocess.run([TAVIX, *words], cwd=folder, env=environment, preexec_fn=prepare, timeout=TIMEOUT_S,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)


def check(name, holds, what):
    if not holds:
        failures.append(f"{name}: {what}")
        print(f"  FAILED  {name}: {what}", flush=True)


def hidden(folder):
    return [str(path.relative_to(folder)) for path in folder.rglob(".*")]


def told(outcome):
    return outcome.stderr.decode("utf-8", "replace").strip().splitlines()


def check_sentence(name, outcome):
    lines = told(outcome)
    check(name, bool(lines) and SENTENCE.match(lines[-1]), f"no finished sentence, but {lines[-2:]}")
    check(name, not UNFIT.search("\n".join(lines)), f"words of a library: {lines[-2:]}")


class Work:
    """A verb with what it makes: a file, or what it prints."""

    def __init__(self, folder, words, output=None):
        self.folder, self.words, self.output = folder, words, output
        undisturbed = run(folder, words)
        self.expected, self.status = self.result(undisturbed), undisturbed.returncode

    def result(self, outcome):
        return (self.folder / self.output).read_bytes() if self.output else outcome.stdout

    def hold(self, name, allowed=(3,), **faults):
        """Runs under a fault, over an older output, and checks the law. Answers whether the fault was felt."""
        old = b"the older one"
        if self.output:
            (self.folder / self.output).write_bytes(old)
        try:
            outcome = run(self.folder, self.words, **faults)
        except subprocess.TimeoutExpired:
            check(name, False, "did not end")
            return True
        check(name, not hidden(self.folder), f"left {hidden(self.folder)}")
        if outcome.returncode == self.status:
            check(name, self.result(outcome) == self.expected, f"another result with status {self.status}")
            return False
        check(name, outcome.returncode in allowed, f"status {outcome.returncode}: {told(outcome)[-2:]}")
        check_sentence(name, outcome)
        if self.output:
            # What fails after the output has taken its name, as printing that, leaves the new one.
            check(name, self.result(outcome) in (old, self.expected), "the older output is gone")
        return True


def spread(first, count, most=14):
    """Some of first to count, dense at the beginning."""
    if count - first < most:
        return list(range(first, count + 1))
    return sorted({first + round((count - first) * (i / (most - 1)) ** 2) for i in range(most)})


def each_call(name, work, call, error, filter_text="", most=14):
    """Fails some of the calls of a kind, once each and from there on."""
    counter = work.folder.parent / "count"
    kind = f"{call}:0:{error}" + (f":{filter_text}" if filter_text else "")
    run(work.folder, work.words, fault=kind, count=counter)
    count = int(counter.read_text())
    # Before the program begins, the libraries that it is loaded with are at work, and nothing can be told.
    run(work.folder, ["--version"], fault=kind, count=counter)
    first = int(counter.read_text()) + 1
    felt = 0
    # Nothing is interrupted without end.
    forms = ("{}",) if error == errno.EINTR else ("{}", "{}+")
    for n in spread(first, count, most):
        for form in (form.format(n) for form in forms):
            fault = f"{call}:{form}:{error}" + (f":{filter_text}" if filter_text else "")
            felt += work.hold(f"{name} {fault}", fault=fault)
    print(f"  {name}: {call} {errno.errorcode[error]} {filter_text or ''}: {count} calls, {felt} felt", flush=True)
    check(name, count > 0, f"makes no call of {call} {filter_text}")
    return felt


def make_material(folder):
    def ffmpeg(*words):
        subprocess.run(["ffmpeg", "-v", "error", "-y", *words], cwd=folder, check=True)

    ffmpeg("-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=2", "-pix_fmt", "yuv420p", "-g", "5", "clip.mp4")
    ffmpeg("-f", "lavfi", "-i", "testsrc=size=160x120:rate=10:duration=2", "-pix_fmt", "yuv420p", "-g", "5", "-b:v",
           "800k", "clip.mkv")
    ffmpeg("-f", "lavfi", "-i", "testsrc2=size=80x60", "-frames:v", "1", "picture.png")
    ffmpeg("-f", "lavfi", "-i", "sine=frequency=440:duration=2", "tone.wav")
    ffmpeg("-f", "lavfi", "-i", "sine=frequency=1000:beep_factor=4:duration=12", "beeps.flac")
    def layer(kind, content, x=80):
        return {"kind": kind, "position": {"x": x, "y": 60}, kind: content}

    film = {
        "output": {"widthPx": 160, "heightPx": 120, "fps": 10},
        "background": {"kind": "solid", "color": {"r": 0.1, "g": 0.2, "b": 0.4, "a": 1}},
        "scenes": [{"id": "only", "durationSec": 1, "layers": [
            layer("video", {"path": "clip.mp4"}), layer("image", {"path": "picture.png", "heightFraction": 0.4}, 40),
            layer("text", {"text": "Ready"})]}],
        "audio": {"music": {"path": "tone.wav"}, "cues": [{"atSec": 0.5, "sound": "ding"}]}}
    (folder / "film.json").write_text(json.dumps(film))
    film["scenes"][0]["durationSec"] = 600
    (folder / "long.json").write_text(json.dumps(film))
    del film["audio"]
    film["output"] = {"widthPx": 4096, "heightPx": 4096, "fps": 30}
    for one in film["scenes"][0]["layers"]:
        one["effects"] = [{"kind": "glow"}, {"kind": "blur", "radiusFraction": 0.05}] * 8
    (folder / "heavy.json").write_text(json.dumps(film))


def case_reading(folder):
    film = Work(folder, ["render", "--no-lint", "film.json", "-o", "film.mp4"], "film.mp4")
    for file in ("film.json", "clip.mp4", "picture.png", "tone.wav"):
        check("reading", each_call("reading", film, "read", errno.EIO, file, 6) > 0, f"no fault of {file} is felt")
        each_call("reading", film, "read", errno.EINTR, file, 3)
        each_call("reading", film, "open", errno.EMFILE, file, 3)
    each_call("reading", film, "read", errno.EIO, ".tavix", 10)   # picture and sound, read back
    beats = Work(folder, ["beats", "beeps.flac", "--json"])
    check("reading", each_call("reading", beats, "read", errno.EIO, "beeps.flac", 6) > 0, "beats feels no fault")
    still = Work(folder, ["still", "film.json", "--at", "0.5", "-o", "still.png"], "still.png")
    each_call("reading", still, "read", errno.EIO, "clip.mp4", 6)


def case_writing(folder):
    for output in ("film.mp4", "film.mov", "film.gif"):
        film = Work(folder, ["render", "--no-lint", "film.json", "-o", output], output)
        for error in (errno.ENOSPC, errno.EIO):
            check("writing", each_call("writing", film, "write", error, ".tavix", 6) > 0, f"{output}: no fault is felt")
        each_call("writing", film, "sync", errno.EIO, ".tavix", 3)
        each_call("writing", film, "open", errno.EACCES, ".tavix", 4)
    still = Work(folder, ["still", "film.json", "--at", "0.5", "-o", "still.png"], "still.png")
    each_call("writing", still, "write", errno.ENOSPC, ".tavix", 4)
    film = Work(folder, ["render", "--no-lint", "film.json", "-o", "film.mp4"], "film.mp4")
    for limit in (0, 1000, 4096):
        check("writing", film.hold(f"file size limit {limit}", limit=(resource.RLIMIT_FSIZE, limit)), "no limit is felt")


def case_memory(folder):
    film = Work(folder, ["render", "--no-lint", "film.json", "-o", "film.mp4"], "film.mp4")
    each_call("memory", film, "memory", errno.ENOMEM, "", 40)
    each_call("memory", film, "memory", errno.ENOMEM, "65536", 12)
    each_call("memory", Work(folder, ["lint", "film.json", "--json"]), "memory", errno.ENOMEM, "", 20)
    for megabytes in (200, 260, 320, 400, 600, 900):
        film.hold(f"memory limit {megabytes} MB", limit=(resource.RLIMIT_AS, megabytes << 20), allowed=(3, 127))


def case_threads(folder):
    film = Work(folder, ["render", "--no-lint", "film.json", "-o", "film.mp4"], "film.mp4")
    each_call("threads", film, "thread", errno.EAGAIN, "", 12)


def case_streams(folder):
    for words in (["presets", "effects"], ["lint", "film.json", "--json"], ["--version"], ["probe", "clip.mp4"],
                  ["beats", "beeps.flac"], ["resolve", "film.json"], ["schema"]):
        name = "streams " + " ".join(words)
        outcome = subprocess.run(["sh", "-c", 'exec "$0" "$@" >&-', TAVIX, *words], cwd=folder,
                                 stderr=subprocess.PIPE, timeout=TIMEOUT_S)
        check(name, outcome.returncode == 3, f"status {outcome.returncode} with standard output closed")
        check_sentence(name, outcome)
        with open("/dev/full", "w") as full:
            outcome = subprocess.run([TAVIX, *words], cwd=folder, stdout=full, stderr=subprocess.PIPE,
                                     timeout=TIMEOUT_S)
        check(name, outcome.returncode == 3, f"status {outcome.returncode} with standard output full")
    words = ["render", "--no-lint", "film.json", "-o", "film.mp4"]
    film = Work(folder, words, "film.mp4")
    for closed in (">&-", "2>&-", "<&-", "<&- >&- 2>&-"):
        (folder / "film.mp4").unlink()
        subprocess.run(["sh", "-c", f'exec "$0" "$@" {closed}', TAVIX, *words], cwd=folder, timeout=TIMEOUT_S,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        check(f"streams {closed}", (folder / "film.mp4").read_bytes() == film.expected, "another film")


def case_documents(folder):
    os.mkfifo(folder / "pipe.json")
    text = json.loads((folder / "film.json").read_text())
    text["scenes"][0]["layers"][2]["text"]["text"] = "word " * 10_000_000
    (folder / "novel.json").write_text(json.dumps(text))
    for given in ("pipe.json", ".", "/dev/zero", "/dev/null", "novel.json", "gone.json"):
        begin = time.monotonic()
        outcome = run(folder, ["render", given, "-o", "film.mp4"])
        check(f"documents {given}", outcome.returncode in (1, 3), f"status {outcome.returncode}")
        check_sentence(f"documents {given}", outcome)
        check(f"documents {given}", time.monotonic() - begin < 20, "is not told soon")
    check("documents", not hidden(folder), f"left {hidden(folder)}")


def started(folder, words, until, **environment):
    process = subprocess.Popen([TAVIX, *words], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                               env=dict(os.environ, **environment))
    deadline = time.monotonic() + 60
    while not until() and process.poll() is None and time.monotonic() < deadline:
        time.sleep(0.01)
    return process


def case_signals(folder):
    """However the work is made of: a signal ends it between two tiles, lines or pictures."""
    for name, words, output in endless_works(folder):
        if output:
            (folder / output).write_bytes(b"the older one")
        waits = []
        for number, after_s in zip((signal.SIGTERM, signal.SIGINT) * 3, (0, 0.05, 0.2, 0.5, 1, 1.5)):
            case = f"signals {name} {number.name} after {after_s} s"
            process = started(folder, words, lambda: hidden(folder) or not output)
            time.sleep(after_s if output else after_s + 0.3)
            begin = time.monotonic()
            process.send_signal(number)
            _, err = process.communicate(timeout=TIMEOUT_S)
            waits.append(time.monotonic() - begin)
            check(case, waits[-1] < 5, "does not end soon")
            check_stopped(case, folder, output, number, process, err)
        print(f"  {name}: ended after {' '.join(f'{wait:.2f}' for wait in waits)} s", flush=True)


def check_stopped(case, folder, output, number, process, err):
    check(case, process.returncode == 128 + number, f"status {process.returncode}")
    check(case, err.decode().endswith("tavix: Stopped; nothing was written.\n"), err.decode())
    check(case, not hidden(folder), f"left {hidden(folder)}")
    if output:
        check(case, (folder / output).read_bytes() == b"the older one", "the older output is gone")


def case_moments(folder):
    """Work that is soon done is held at chosen calls, so that the signal meets it there and nowhere else."""
    for _ in endless_works(folder):
        pass   # for their documents
    counter, held = folder.parent / "count", folder.parent / "held"
    short = {"sheet": (["sheet", "space.json", "-o", "sheet.png"], "sheet.png"),
             "still": (["still", "space.json", "--at", "1", "-o", "still.png"], "still.png"),
             "film": (["render", "--no-lint", "film.json", "-o", "film.mp4", "--no-cache"], "film.mp4")}
    for name, (words, output) in short.items():
        for call, part in (("read", "clip.mp4"), ("write", ".tavix")):
            run(folder, words, fault=f"{call}:0:5:{part}", count=counter)
            count = int(counter.read_text())
            check(f"moments {name}", count > 0, f"makes no call of {call} {part}")
            for n in spread(1, count, 4):
                case = f"moments {name}, {call} {n} of {count}"
                (folder / output).write_bytes(b"the older one")
                process = started(folder, words, held.exists, LD_PRELOAD=SHIM, TAVIX_FAULT=f"{call}:{n}:5:{part}",
                                  TAVIX_FAULT_HOLD=str(held), XDG_CACHE_HOME="/dev/null")
                check(case, held.exists(), "ended before that call")
                process.send_signal(signal.SIGTERM)
                held.unlink(missing_ok=True)
                _, err = process.communicate(timeout=TIMEOUT_S)
                check_stopped(case, folder, output, signal.SIGTERM, process, err)
            print(f"  {name}: {call} of {part}: held at {spread(1, count, 4)} of {count}", flush=True)


def case_exits(folder):
    """Some libraries end the program by themselves where they get no memory."""
    film = Work(folder, ["render", "--no-lint", "film.json", "-o", "film.mp4"], "film.mp4")
    for call, error, part in (("write", errno.ENOSPC, ".tavix"), ("memory", errno.ENOMEM, "65536")):
        os.environ["TAVIX_FAULT_EXITS"] = "1"
        felt = [film.hold(f"exits {call} {n}", fault=f"{call}:{n}:{error}:{part}") for n in (2, 5, 9)]
        del os.environ["TAVIX_FAULT_EXITS"]
        check("exits", all(felt), f"{call}: the program went on")


def endless_works(folder):
    film = json.loads((folder / "long.json").read_text())
    del film["audio"]
    film["output"] = {"widthPx": 2160, "heightPx": 3840, "fps": 30}
    scene = film["scenes"][0]
    scene["layers"] = [{"kind": "text", "position": {"x": 1080, "y": 1920}, "text": {
        "text": "so many words " * 1400, "sizeFraction": 0.01, "kinetic": {"preset": "char-cascade"}}}] * 8
    (folder / "prose.json").write_text(json.dumps(film))
    scene["layers"] = [{"kind": "device", "device": {
        "screen": {"kind": "video", "path": "clip.mp4"}, "choreographyPreset": {"preset": "depthWave"}}}]
    (folder / "space.json").write_text(json.dumps(film))
    film["output"] = {"widthPx": 640, "heightPx": 360, "fps": 30}
    (folder / "watched.json").write_text(json.dumps(film))
    for document in ("long", "heavy", "prose", "space"):
        yield f"render {document}", ["render", "--no-lint", f"{document}.json", "-o", "film.mp4"], "film.mp4"
    yield "render long.gif", ["render", "--no-lint", "long.json", "-o", "film.gif"], "film.gif"
    yield "still heavy", ["still", "heavy.json", "--at", "30", "-o", "still.png"], "still.png"
    yield "lint watched", ["lint", "--frames", "watched.json"], None


def case_together(folder):
    words = ["render", "--no-lint", "long.json", "-o", "film.mp4"]
    first = started(folder, words, lambda: hidden(folder))
    second = run(folder, words)
    check("together", second.returncode == 3 and b"being written by another program" in second.stderr,
          f"status {second.returncode}: {told(second)}")
    check("together", bool(hidden(folder)), "the second one took the first one's work away")
    first.kill()
    first.communicate()
    check("together", bool(hidden(folder)), "a killed render cannot tidy up")
    short = ["render", "--no-lint", "film.json", "-o", "other.mp4"]
    check("together", run(folder, short).returncode == 0, "cannot render after one was killed")
    check("together", not hidden(folder), f"what the killed one left is still there: {hidden(folder)}")


def main():
    cases = {name[5:]: function for name, function in globals().items() if name.startswith("case_")}
    for name in CHOSEN or cases:
        print(name, flush=True)
        with tempfile.TemporaryDirectory(prefix="tavix-faults-") as place:
            folder = pathlib.Path(place) / "work"
            folder.mkdir()
            make_material(folder)
            cases[name](folder)
    print(f"{len(failures)} failures" if failures else "Every fault was met.")
    sys.exit(1 if failures else 0)


main()
