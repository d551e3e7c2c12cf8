#include "TavixCore/Project/BundleLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tavix {

BundleLock::BundleLock(const std::filesystem::path& bundle)
    : folder_(::open(bundle.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)),
      isHeld_(::flock(folder_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK) {}

BundleLock::~BundleLock() {
    if (folder_ >= 0) ::close(folder_);
}

}   // namespace tavix
