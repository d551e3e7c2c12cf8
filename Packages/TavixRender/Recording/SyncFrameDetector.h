// Finds the marks that a recorded app puts into its picture: flashes of the whole screen at the go and at the
// end, and a small square in the bottom-left corner at each step's action and at the end of its motion.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixReel/Recording/VideoProbe.h"

#include <filesystem>

namespace tavix::SyncFrameDetector {

// A flash that begins later than this is not the one at the go.
inline constexpr double usualScanLimitSec = 60;

// Of a frame as it is seen, on a few of its pixels.
bool isSyncFrame(const imaging::ConstBitmapView& frame);
bool isMarkBlipFrame(const imaging::ConstBitmapView& frame);

// The side of the square in the corner, in pixels.
int markSidePx(int frameWidthPx);

// Decodes the whole recording once. Throws a `Failure` when it cannot be read.
VideoProbe probe(const std::filesystem::path& rawVideo, double scanLimitSec = usualScanLimitSec);

// Throws as that does for a file that is no film. Looks at its head alone.
void requirePictures(const std::filesystem::path& rawVideo);

}   // namespace tavix::SyncFrameDetector
