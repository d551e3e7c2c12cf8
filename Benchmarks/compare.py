#!/usr/bin/env python3
"""Runs the benchmarks and compares what they take with a baseline.

usage: compare.py FOLDER BASELINE [--accept] [REGEX]

FOLDER holds the programs. Times are processor time of all threads, in multiples of what the reference workload
takes, which runs before and after every program. There are some rounds over all programs, minutes apart; each gives
the least of a few runs, and the median of the rounds counts, so that neither a machine that is busy for a while nor one
lucky run decides. With --accept the figures go into the baseline, where all rounds agree: what differs between
them by more than a change may is named and left as it was, as are figures of benchmarks that did not run. Ends with 1
when one takes more than it may.
"""
import json
import pathlib
import statistics
import subprocess
import sys
import time

ALLOWED = 1.25  # of the baseline, and between the rounds of what is accepted
ROUNDS = 3
RUNS = 2  # of each round
MIN_SECONDS = 0.02  # of a run: long enough for ratios, and short enough for all benchmarks in minutes
UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def seconds(program, pattern=None):
    """The least processor time of each benchmark of a program, by name."""
    words = [str(program), "--benchmark_format=json", f"--benchmark_min_time={MIN_SECONDS}",
             f"--benchmark_repetitions={RUNS}"]
    if pattern:
        words.append(f"--benchmark_filter={pattern}")
    done = subprocess.run(words, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
    if not done.stdout.strip():
        return {}
    least = {}
    for run in json.loads(done.stdout)["benchmarks"]:
        if run.get("run_type") == "aggregate" or "error_occurred" in run:
            continue
        took = run["cpu_time"] * UNITS[run["time_unit"]]
        name = run["run_name"]
        least[name] = min(took, least.get(name, took))
    return least


def one_round(folder, pattern):
    """Ratios by name, of every program once."""
    reference = folder / "tavix_reference_benchmark"
    found = {}
    before = seconds(reference)["reference/process_time"]
    for program in sorted(folder.glob("*_benchmark")):
        if program == reference:
            continue
        times = seconds(program, pattern)
        if not times:
            continue
        after = seconds(reference)["reference/process_time"]
        group = program.name.removeprefix("tavix_").removesuffix("_benchmark")
        for name, took in times.items():
            found[f"{group}: {name}"] = took / min(before, after)
        before = after
    return found


def ratios(folder, pattern):
    """The median of the rounds, and how far they lie apart, by name."""
    rounds = []
    for number in range(ROUNDS):
        start = time.monotonic()
        rounds.append(one_round(folder, pattern))
        print(f"round {number + 1} of {ROUNDS}: {time.monotonic() - start:.0f} s", flush=True)
    found, spread = {}, {}
    for name in rounds[0]:
        values = [figures[name] for figures in rounds if name in figures]
        found[name] = statistics.median(values)
        spread[name] = max(values) / min(values)
    return found, spread


def compare(found, baseline):
    """Prints every figure that is not as it was; gives how many are worse than they may be."""
    worse = 0
    for name, ratio in found.items():
        if name not in baseline:
            print(f"new     {ratio:9.3f}            {name}")
            continue
        change = ratio / baseline[name]
        if change > ALLOWED:
            worse += 1
            print(f"SLOWER  {ratio:9.3f}  {change:6.2f} ×  {name}")
        elif change < 1 / ALLOWED:
            print(f"faster  {ratio:9.3f}  {change:6.2f} ×  {name}")
    print(f"{len(found)} benchmarks, {worse} of them slower than they may be")
    return worse


def main(words):
    accepts = "--accept" in words
    words = [word for word in words if word != "--accept"]
    if len(words) not in (2, 3):
        sys.exit(__doc__)
    folder, path = pathlib.Path(words[0]), pathlib.Path(words[1])
    baseline = json.loads(path.read_text()) if path.exists() else {}
    found, spread = ratios(folder, words[2] if len(words) > 2 else None)
    if not found:
        sys.exit("No benchmark ran; is the pattern right, and are they built?")
    worse = compare(found, baseline)
    if accepts:
        for name, ratio in found.items():
            # One that has no figure yet takes this one.
            if spread[name] > ALLOWED and name in baseline:
                print(f"unsure  {ratio:9.3f}  {spread[name]:6.2f} × between rounds, not accepted: {name}")
            else:
                baseline[name] = float(f"{ratio:.4g}")
        path.write_text(json.dumps(dict(sorted(baseline.items())), indent=1) + "\n")
        return 0
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
