#!/usr/bin/env python3
"""Runs the benchmarks and compares what they take with a baseline.

usage: compare.py FOLDER BASELINE [--accept] [REGEX]

FOLDER holds the programs. Times are processor time of all threads, the least of some runs, in multiples of what
the reference workload takes, which runs before and after every program, so that a machine that is busy for a while
does not change them. With --accept the figures go into the baseline; figures of benchmarks that did not run stay.
Ends with 1 when one takes more than it may.
"""
import json
import pathlib
import subprocess
import sys

ALLOWED = 1.25  # of the baseline
RUNS = 3
UNITS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def seconds(program, pattern=None):
    """The least processor time of each benchmark of a program, by name."""
    words = [str(program), "--benchmark_format=json", "--benchmark_min_time=0.1",
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


def ratios(folder, pattern):
    reference = folder / "tavix_reference_benchmark"
    found = {}
    for program in sorted(folder.glob("*_benchmark")):
        if program == reference:
            continue
        before = seconds(reference)["reference/process_time"]
        times = seconds(program, pattern)
        if not times:
            continue
        unit = min(before, seconds(reference)["reference/process_time"])
        group = program.name.removeprefix("tavix_").removesuffix("_benchmark")
        for name, took in times.items():
            found[f"{group}: {name}"] = took / unit
    return found


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
    found = ratios(folder, words[2] if len(words) > 2 else None)
    if not found:
        sys.exit("No benchmark ran; is the pattern right, and are they built?")
    worse = compare(found, baseline)
    if accepts:
        baseline.update({name: float(f"{ratio:.4g}") for name, ratio in found.items()})
        path.write_text(json.dumps(dict(sorted(baseline.items())), indent=1) + "\n")
        return 0
    return 1 if worse else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
