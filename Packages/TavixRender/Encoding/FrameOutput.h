// What every writer of frames asks of its size and its place.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>

namespace tavix::FrameOutput {

// Throws `Failure` with a sentence when no frame of that size can be drawn.
void requireDrawableSize(imaging::Size size);

// Creates the folder of a file and removes a file of that name. What stands in the way of either shows when
// the file is opened.
void makeRoomFor(const std::filesystem::path& file);

}   // namespace tavix::FrameOutput
