// Decoded picture files. A file that many layers show is decoded once and shared; one that cannot be read is
// named in the log once and draws nothing.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Assets/RenderLog.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

namespace tavix {

// Used by one thread at a time. What it handed out stays valid after it is gone.
class StillImageCache {
public:
    explicit StillImageCache(RenderLog log) : log_(std::move(log)) {}

    // The picture with its bottom-left corner at the origin, or nothing.
    std::optional<imaging::Image> image(const std::filesystem::path& path);
    // The same for who needs it but once: it is not kept on that account.
    std::optional<imaging::Image> imageOnce(const std::filesystem::path& path) const;
    // How large the picture is, for who does not draw it, or nothing.
    std::optional<imaging::Size> size(const std::filesystem::path& path);
    // Reads those that are not known yet on all cores at once, as many as that memory holds. One that cannot
    // be read is left to `image`.
    void readAhead(const std::set<std::filesystem::path>& paths, std::size_t mostBytes);
    // For who goes on with it: forgets pictures whose file has changed, and then those that have not been
    // asked for the longest, until the others take no more memory than that.
    void renew(std::size_t mostBytes);

private:
    struct Entry {
        std::optional<FileIdentity> file;
        std::optional<imaging::Image> image;
        std::uint64_t lastAsked;
    };
    std::optional<imaging::Image> load(const std::filesystem::path& path) const;

    struct Measured {
        std::optional<FileIdentity> file;
        std::optional<imaging::Size> size;
    };

    RenderLog log_;
    std::map<std::filesystem::path, Entry> byPath_;
    std::map<std::filesystem::path, Measured> sizes_;
    std::uint64_t renewals_ = 0;
};

}   // namespace tavix
