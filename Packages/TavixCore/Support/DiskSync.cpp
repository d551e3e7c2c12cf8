#include "TavixCore/Support/DiskSync.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace tavix {

std::error_code syncToDisk(const std::filesystem::path& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return {errno, std::generic_category()};
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return {error, std::generic_category()};
}

}   // namespace tavix
