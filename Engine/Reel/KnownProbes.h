// What the pixels of recordings told, kept for the next command: to look through a recording takes as long as
// to decode all of it.
#pragma once

#include "TavixReel/Recording/VideoProbe.h"

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tavix::engine {

// Nothing here fails a command: what cannot be kept is not kept, and what cannot be read is not known.
class KnownProbes {
public:
    static constexpr std::size_t mostProbes = 200;   // those that were used last

    // In that folder of the user's cache; an empty path: nothing is kept.
    explicit KnownProbes(std::filesystem::path folder) : folder_(std::move(folder)) {}
    static KnownProbes usual();

    // Of a file that is the same as it was then.
    std::optional<VideoProbe> find(const std::filesystem::path& video) const;
    void keep(const std::filesystem::path& video, const VideoProbe& probe) const;
    void clear() const;

private:
    std::optional<std::filesystem::path> fileOf(const std::filesystem::path& video) const;
    void trim() const;

    std::filesystem::path folder_;
};

}   // namespace tavix::engine
