// How much exporting a clip costs beyond decoding and encoding it.
#pragma once

namespace tavix::benchmarks {

// Exports a document with one full-frame clip of 1920 x 1080, and lets the command ffmpeg transcode the same
// clip with the same encoder settings, in turn. Prints a line.
void measureClip(int rounds);

}   // namespace tavix::benchmarks
