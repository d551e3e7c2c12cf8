#!/usr/bin/env bash
# Makes docs/images/steep.jpg anew: the film of this example at a glance. Needs a browser and ffmpeg; TAVIX names the
# program, otherwise the one that was built.
set -euo pipefail
cd "$(dirname "$0")/../.."
tavix=${TAVIX:-build/release/bin/tavix}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$tavix" run Examples/steep/flow.json --url Examples/steep --size 780x1688 --scale 2 --fps 30 -o "$work/steep.tavixproj"
"$tavix" reel author "$work/steep.tavixproj" --captions --format vertical --background aurora
"$tavix" reel sheet "$work/steep.tavixproj" --columns 9 --every 2 --width 1400 -o "$work/steep.png"
ffmpeg -nostdin -loglevel error -y -i "$work/steep.png" -q:v 4 docs/images/steep.jpg
