#!/usr/bin/env bash
# Renders a film on a Slurm cluster: an array job makes one segment in each task, and a job that waits for it
# joins them. The document, the folder of segments and the film lie where all nodes see them.
#
#     render.sh FILM.tavixcomp FILM.mp4 [OPTIONS OF tavix render...]
set -euo pipefail

if [ -z "${SLURM_JOB_ID:-}" ]; then
    [ $# -ge 2 ] || { sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 2; }
    document=$(realpath "$1") film=$(realpath -m "$2")
    shift 2
    parts=$film.segments
    mkdir -p "$parts"
    count=$(tavix render "$document" "$@" --plan --json | grep -c '"segment"')
    say() { sbatch --parsable --job-name=tavix --output="$parts/%x-%A-%a.log" --export=ALL "$@"; }
    made=$(say --array="0-$((count - 1))" --cpus-per-task=2 --mem="${TAVIX_SEGMENT_MEMORY:-1500M}" \
        "$0" segment "$document" "$parts" "$@")
    say --dependency="afterok:$made" --kill-on-invalid-dep=yes "$0" join "$document" "$parts" "$film" "$@"
    exit
fi

task=$1 document=$2 parts=$3
shift 3
case $task in
segment)
    # A node that fails may do better the next time; what is finished is not made again.
    for try in 1 2 3; do
        tavix render "$document" "$@" --segment "$SLURM_ARRAY_TASK_ID" -o "$parts" --quiet && exit
        echo "try $try failed" >&2
    done
    exit 1
    ;;
join)
    film=$1
    shift
    tavix join "$document" "$@" --from "$parts" -o "$film"
    rm -rf "$parts"
    ;;
esac
