#include "TavixPlatform/Media/PlainFile.h"

#include "TavixPlatform/Media/MediaError.h"
#include "TavixPlatform/Media/MediaFault.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace tavix::media {
namespace {

// What the path is to blame for; every other reason is the machine's.
constexpr std::array reasonsOfPaths{ENOENT, ENOTDIR, EACCES, EPERM, ELOOP, ENAMETOOLONG, ENXIO, ENODEV};

[[noreturn]] void failToOpen(const std::string& failure, int error) {
    if (error == ENOENT) throw MediaError(failure + "There is no such file.");
    const std::string sentence = failure + "It cannot be opened: " + PlainFile::reasonOf(error) + ".";
    if (std::ranges::find(reasonsOfPaths, error) != reasonsOfPaths.end()) throw MediaError(sentence);
    throw MediaFault(sentence);
}

}   // namespace

PlainFile::PlainFile(const std::filesystem::path& path, const std::string& failure) {
    // Without waiting, so that a pipe without a writer does not hold us up.
    do descriptor_ = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    while (descriptor_ < 0 && errno == EINTR);
    if (descriptor_ < 0) failToOpen(failure, errno);
    struct stat status {};
    const bool isPlain = ::fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    sizeBytes_ = status.st_size;
    if (isPlain) return;
    ::close(descriptor_);
    throw MediaError(failure + "It is not a file.");
}

PlainFile::~PlainFile() { ::close(descriptor_); }

std::ptrdiff_t PlainFile::read(std::span<std::byte> to, std::int64_t at) const {
    for (;;) {
        const ssize_t got = ::pread(descriptor_, to.data(), to.size(), at);
        if (got >= 0) return got;
        if (errno != EINTR) return -errno;
    }
}

std::string PlainFile::reasonOf(int errorNumber) { return std::generic_category().message(errorNumber); }

}   // namespace tavix::media
