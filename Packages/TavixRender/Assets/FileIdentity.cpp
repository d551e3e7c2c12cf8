#include "TavixRender/Assets/FileIdentity.h"

#include <sys/stat.h>

namespace tavix {

std::optional<FileIdentity> FileIdentity::of(const std::filesystem::path& path) {
    struct stat told {};
    if (::stat(path.c_str(), &told) != 0) return std::nullopt;
    constexpr std::int64_t nsPerSec = 1'000'000'000;
    return FileIdentity{path, told.st_dev, told.st_ino, told.st_size,
        std::int64_t(told.st_ctim.tv_sec) * nsPerSec + told.st_ctim.tv_nsec};
}

}   // namespace tavix
