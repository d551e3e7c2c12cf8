// The frame at the playhead as it is exported, for the clipboard.
#pragma once

namespace tavix::editor {

class Studio;

// Drawn in the size of the canvas, off the main thread, with its clear parts clear; the status tells when it
// is there, and the model's error when it cannot be had.
void copyFrame(Studio& studio);

}   // namespace tavix::editor
