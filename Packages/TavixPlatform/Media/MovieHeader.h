// What the head of an ordinary MP4 or QuickTime film tells. FFmpeg would tell the same, but loading its
// libraries takes twenty times as long as reading the few hundred bytes. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>
#include <optional>

namespace tavix::media {

struct MovieHeader {
    imaging::Size shownSize;   // upright and with square pixels
    double durationSec = 0;    // of the longest track, in whole microseconds
    bool operator==(const MovieHeader&) const = default;
};

// The same as `probeMedia` tells, or nothing: where there is no such file, where it is damaged, and where
// anything about it is out of the ordinary, FFmpeg has to be asked. Ordinary is one track of H.264, HEVC, VP9
// or AV1, upright or turned by quarters, with pixels that are said to be square, and any tracks of sound; all
// boxes lie within the file, and it has no fragments. What the coded pictures say of their own size is not
// looked at: whoever writes a film copies it to its head.
std::optional<MovieHeader> readMovieHeader(const std::filesystem::path& path);

}   // namespace tavix::media
