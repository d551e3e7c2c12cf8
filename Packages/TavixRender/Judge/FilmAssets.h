// What the heads of a document's files tell: sizes, and whether they are there at all. No picture is decoded.
#pragma once

#include "TavixPlatform/Media/StillHeader.h"

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace tavix {

namespace text {
class FontBook;
}

// Each file is looked at once. Used by one thread at a time.
class FilmAssets {
public:
    explicit FilmAssets(std::optional<std::filesystem::path> root);
    ~FilmAssets();

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

    // Made when the first text asks for it.
    const text::FontBook& fonts();

    std::filesystem::path resolved(const std::string& path) const;
    const std::optional<std::filesystem::path>& root() const { return root_; }

private:
    std::optional<std::filesystem::path> root_;
    std::map<std::filesystem::path, Still> stills_;
    std::map<std::filesystem::path, Clip> clips_;
    std::unique_ptr<const text::FontBook> fonts_;
};

}   // namespace tavix
