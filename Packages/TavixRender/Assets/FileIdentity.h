// Which content a file has, as far as the file system tells: what was decoded of a file may be kept for as
// long as this stays the same.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>

namespace tavix {

// A file that was written to or put in the place of another is another one, also with the old time and size.
struct FileIdentity {
    std::filesystem::path path;
    std::uint64_t device = 0, node = 0;
    std::int64_t sizeBytes = 0, changedNs = 0;   // since 1970; not the time that copies may bring along

    // Nothing where there is no such file.
    static std::optional<FileIdentity> of(const std::filesystem::path& path);
    bool operator==(const FileIdentity&) const = default;
};

}   // namespace tavix
