#include "TavixRender/Export/SafeOutput.h"

#include "TavixCore/Support/Failure.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <system_error>
#include <unistd.h>

namespace tavix {

namespace {

std::string reasonOf(int error) { return std::generic_category().message(error); }

// Returns 0 or what went wrong. A folder can be synced like a file; that makes the rename itself last.
int syncToDisk(const std::filesystem::path& path, int flags) {
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC);
    if (descriptor < 0) return errno;
    const int error = ::fsync(descriptor) == 0 ? 0 : errno;
    ::close(descriptor);
    return error;
}

std::filesystem::path folderOf(const std::filesystem::path& file) {
    return file.has_parent_path() ? file.parent_path() : std::filesystem::path(".");
}

}   // namespace

SafeOutput::SafeOutput(std::filesystem::path target)
    : target_(std::move(target)),
      partial_(folderOf(target_) / (".tavix-partial-" + target_.filename().string())) {
    // A folder that cannot be made shows when the file is opened, with a better message.
    std::error_code ignored;
    std::filesystem::create_directories(folderOf(target_), ignored);
    std::filesystem::remove(partial_, ignored);
}

SafeOutput::~SafeOutput() {
    std::error_code ignored;
    if (!isCommitted_) std::filesystem::remove(partial_, ignored);
}

void SafeOutput::commit() {
    if (const int error = syncToDisk(partial_, O_RDONLY))
        throw Failure("Could not bring " + partial_.string() + " to the disk: " + reasonOf(error) + ".");
    std::error_code error;
    std::filesystem::rename(partial_, target_, error);
    if (error) throw Failure("Could not write " + target_.string() + ": " + error.message() + ".");
    isCommitted_ = true;
    // Some file systems cannot sync a folder; the picture is complete all the same.
    syncToDisk(folderOf(target_), O_RDONLY | O_DIRECTORY);
}

}   // namespace tavix
