// How much exporting a clip, alone or as a reel, costs beyond decoding and encoding it.
#pragma once

namespace tavix::benchmarks {

// Exports a document with one full-frame clip of 1920 x 1080, a flat reel of the same size that it is the
// recording of, and lets the command ffmpeg transcode the same clip with the same encoder settings, in turn.
// Prints a line for each of the two.
void measureClip(int rounds);

}   // namespace tavix::benchmarks
