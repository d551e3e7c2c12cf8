#!/usr/bin/env python3
"""Runs the Kubernetes recipe without a cluster: checks the two jobs, then lets the shell play their pods, one for each
index and one of them killed once, and compares the film with the one that a single render makes.

usage: kubernetes.py TAVIX FILM.tavixcomp

Needs python3-yaml.
"""
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

import yaml

RECIPE = pathlib.Path(__file__).resolve().parents[3] / "integrations" / "kubernetes"


def job(name):
    """The job of a file, when a cluster would take it: the fields that a pod of a job must have."""
    (found,) = list(yaml.safe_load_all((RECIPE / name).read_text()))
    assert (found["apiVersion"], found["kind"]) == ("batch/v1", "Job"), name
    unknown = set(found["spec"]) - {"completionMode", "completions", "parallelism", "backoffLimit", "template"}
    assert not unknown, f"{name}: {unknown} are no fields of a job here"
    pod = found["spec"]["template"]["spec"]
    assert pod["restartPolicy"] in ("Never", "OnFailure"), f"{name}: a job's pods never restart Always"
    volumes = {volume["name"] for volume in pod["volumes"]}
    for container in pod["containers"]:
        assert {mount["name"] for mount in container["volumeMounts"]} <= volumes, f"{name}: a volume is missing"
        assert all(isinstance(word, str) for word in container["command"] + container.get("args", [])), name
    return found


def words(found, films):
    (container,) = found["spec"]["template"]["spec"]["containers"]
    return [word.replace("/films", str(films)) for word in container["command"] + container.get("args", [])]


def main(tavix, document):
    segments, join = job("segments.yaml"), job("join.yaml")
    spec = segments["spec"]
    assert spec["completionMode"] == "Indexed" and spec["parallelism"] <= spec["completions"]
    assert spec["backoffLimit"] >= spec["completions"], "each segment may be tried again"
    with tempfile.TemporaryDirectory() as folder:
        films = pathlib.Path(folder) / "films"
        films.mkdir()
        shutil.copytree(document, films / "launch.tavixcomp")
        (films / "bin").mkdir()
        (films / "bin" / "tavix").symlink_to(os.path.abspath(tavix))
        environment = dict(os.environ, PATH=f"{films / 'bin'}:{os.environ['PATH']}", XDG_CACHE_HOME="/dev/null")

        def run(command, **more):
            return subprocess.run(command, env=dict(environment, **more), check=False, text=True,
                                  stdout=subprocess.PIPE, stderr=subprocess.STDOUT)

        plan = run(["tavix", "render", str(films / "launch.tavixcomp"), "--plan", "--json"])
        count = len(json.loads(plan.stdout)["segments"])
        # The pod of the last index is gone before it has done anything, as on a node that is taken away.
        for index in range(count - 1):
            made = run(words(segments, films), JOB_COMPLETION_INDEX=str(index))
            assert made.returncode == 0, made.stdout
        early = run(words(join, films))
        assert early.returncode != 0 and f"Segment {count - 1} is not there" in early.stdout, early.stdout
        for index in (count - 1, 0):   # an index may run twice
            assert run(words(segments, films), JOB_COMPLETION_INDEX=str(index)).returncode == 0
        beyond = run(words(segments, films), JOB_COMPLETION_INDEX=str(count))
        assert beyond.returncode != 0 and "there is no segment" in beyond.stdout, beyond.stdout
        joined = run(words(join, films))
        assert joined.returncode == 0, joined.stdout
        alone = run(["tavix", "render", str(films / "launch.tavixcomp"), "-o", str(films / "alone.mp4"), "--no-cache"])
        assert alone.returncode == 0, alone.stdout
        assert (films / "launch.mp4").read_bytes() == (films / "alone.mp4").read_bytes(), "another film"
        print(f"{count} segments, joined to the film of one render")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        sys.exit(__doc__)
    main(sys.argv[1], sys.argv[2])
