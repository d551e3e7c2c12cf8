// Joins a silent movie and a sound into one file without decoding either: packets and their times are copied.
#pragma once

#include "TavixPlatform/Media/MediaError.h"
#include "TavixPlatform/Media/MovieWriter.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace tavix::media {

// How long the first video track plays; nothing when the file has none. Throws MediaError when it cannot be
// read.
std::optional<double> pictureDurationSec(const std::filesystem::path& movie);

struct RemuxSettings {
    std::filesystem::path picture;   // its first video track is copied; other tracks are left out
    std::filesystem::path sound;     // its first audio track, up to the end of the picture, if it has one
    std::filesystem::path output;    // replaced when it exists; its folder must exist
    MovieContainer container = MovieContainer::mp4;
};

// `checkpoint` is called now and then and may throw to end the work. Throws MediaError when the picture has
// no track, or something cannot be read or written. Unless it comes to its end the output is removed.
void remux(const RemuxSettings& settings, const std::function<void()>& checkpoint = {});

}   // namespace tavix::media
