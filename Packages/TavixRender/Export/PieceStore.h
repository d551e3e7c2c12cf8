// Finished pieces of films in a folder, by their keys, for the next render of the same frames.
#pragma once

#include "TavixBase/Digest.h"

#include <cstdint>
#include <filesystem>
#include <system_error>

namespace tavix {

// Several programs may use one folder at once. Nothing here fails a render: what cannot be kept is not kept.
class PieceStore {
public:
    static constexpr std::int64_t mostBytes = 2'000'000'000;   // of all pieces together

    explicit PieceStore(std::filesystem::path folder);

    // Puts the piece at `to`, as a link where the file system can; false when there is none, or a damaged
    // one, which is removed. A `frameCount` that it does not have is damage.
    bool fetch(const Digest& key, std::int64_t frameCount, const std::filesystem::path& to) const;
    // Takes a finished piece in and leaves the file where it is. Gives the reason where it could not.
    std::error_code keep(const Digest& key, const std::filesystem::path& piece) const;
    // Removes those that were not used for the longest until the rest take no more than that.
    void trim(std::int64_t toBytes = mostBytes) const;

    struct Usage {
        std::int64_t pieces = 0, bytes = 0;
    };
    Usage usage() const;
    Usage clear() const;   // removes all, and says what there was

    // `tavix` in the folder for what can be had again (XDG Base Directory Specification): XDG_CACHE_HOME, or
    // ~/.cache; empty where there is neither.
    static std::filesystem::path usualFolder();

private:
    std::filesystem::path fileOf(const Digest& key) const;

    std::filesystem::path folder_;
};

}   // namespace tavix
