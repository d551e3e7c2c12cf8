// What the heads of a document's files tell: sizes, and whether they are there at all. No picture is decoded.
#pragma once

#include "TavixPlatform/Media/StillHeader.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace tavix {

// Each file is looked at once. Used by one thread at a time.
class FilmAssets {
public:
    explicit FilmAssets(std::optional<std::filesystem::path> root) : root_(std::move(root)) {}

    struct Still {
        std::optional<media::StillHeader> header;
        std::string fault;   // a finished sentence when there is none
    };
    struct Clip {
        std::optional<imaging::Size> size;
        std::string fault;
    };
    const Still& still(const std::string& path);
    const Clip& clip(const std::string& path);

    std::filesystem::path resolved(const std::string& path) const;
    const std::optional<std::filesystem::path>& root() const { return root_; }

private:
    std::optional<std::filesystem::path> root_;
    std::map<std::filesystem::path, Still> stills_;
    std::map<std::filesystem::path, Clip> clips_;
};

}   // namespace tavix
