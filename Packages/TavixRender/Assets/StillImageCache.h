// Decoded picture files. A file that many layers show is decoded once and shared; one that cannot be read is
// named in the log once and draws nothing.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>
#include <map>
#include <optional>

namespace tavix {

// Used by one thread at a time. What it handed out stays valid after it is gone.
class StillImageCache {
public:
    explicit StillImageCache(RenderLog log) : log_(std::move(log)) {}

    // The picture with its bottom-left corner at the origin, or nothing.
    std::optional<imaging::Image> image(const std::filesystem::path& path);

private:
    std::optional<imaging::Image> load(const std::filesystem::path& path) const;

    RenderLog log_;
    std::map<std::filesystem::path, std::optional<imaging::Image>> byPath_;
};

}   // namespace tavix
