// Writes a picture as a JPEG file: 4:4:4, so that chroma keeps its own smooth gradients, and in sRGB, which
// readers assume of a JFIF file without a profile.
#pragma once

#include "Backgrounds/Painter.h"

#include <filesystem>

namespace tavix::backgrounds {

// Writes to a temporary file beside the target and renames it, so that a build that is cut off leaves nothing
// half-written. Throws std::runtime_error with a finished sentence when the file cannot be made; a fault
// while writing ends the program with libjpeg's own message, which is what a build step wants.
void writeJpeg(const Picture& picture, const std::filesystem::path& target);

}   // namespace tavix::backgrounds
