// What the head of a still image tells, without decoding its pixels.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MediaError.h"

#include <filesystem>

namespace tavix::media {

struct StillHeader {
    imaging::Size size;      // upright, as `loadStillImage` gives it
    bool isOpaque = false;   // false also where the head does not tell
    bool operator==(const StillHeader&) const = default;
};

// Of the formats that `loadStillImage` reads, told by content. Reads little of the file but for HEIC and
// AVIF. Throws MediaError with the reason when there is no image to be recognised; what comes after the head
// may still be damaged.
StillHeader readStillHeader(const std::filesystem::path& path);

}   // namespace tavix::media
