#include "TavixCore/Support/FileBytes.h"

#include "TavixCore/Support/Failure.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& verb, const fs::path& file, const std::string& reason) {
    throw Failure("Cannot " + verb + " \"" + file.string() + "\": " + reason + ".");
}

std::string systemReason() { return std::generic_category().message(errno); }

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor() {
        if (isOpen()) ::close(number_);
    }
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    bool close() { return ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

// A fresh file beside another one, removed again unless it takes that one's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const fs::path& beside) : descriptor_(open(beside)) {}
    ~TemporaryFile() {
        if (!path_.empty()) ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    Descriptor& descriptor() { return descriptor_; }
    bool renameTo(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) return false;
        path_.clear();
        return true;
    }

private:
    Descriptor open(const fs::path& beside) {
        for (int attempt = 0; attempt < 100; ++attempt) {
            path_ =
                beside.string() + "." + std::to_string(::getpid()) + "-" + std::to_string(attempt) + ".tmp";
            Descriptor opened(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
            if (opened.isOpen()) return opened;
            if (errno != EEXIST) break;
        }
        path_.clear();
        return Descriptor(-1);
    }

    std::string path_;
    Descriptor descriptor_;
};

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool keepPermissions(int descriptor, const fs::path& of) {
    struct stat there {};
    return ::stat(of.c_str(), &there) != 0 || ::fchmod(descriptor, there.st_mode & 07777) == 0;
}

// Makes the rename itself survive a power cut. Some file systems cannot do this for folders; the file is
// complete in any case, so there is nothing to report.
void flushFolder(const fs::path& folder) {
    const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (descriptor.isOpen()) ::fsync(descriptor.number());
}

}   // namespace

std::string readBytes(const fs::path& file, std::size_t maxBytes) {
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC));
    if (!descriptor.isOpen()) fail("read", file, systemReason());
    std::string bytes;
    std::size_t size = 0;
    for (;;) {
        if (size == bytes.size()) bytes.resize(size + std::max(size, std::size_t{1} << 18));
        const ssize_t count = ::read(descriptor.number(), bytes.data() + size, bytes.size() - size);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail("read", file, systemReason());
        size += static_cast<std::size_t>(count);
        if (size > maxBytes) fail("read", file, "it has more than " + std::to_string(maxBytes) + " bytes");
        if (count == 0) break;
    }
    bytes.resize(size);
    return bytes;
}

void writeBytesAtomically(std::string_view bytes, const fs::path& file) {
    std::error_code ignored;
    const fs::path target = fs::is_symlink(file, ignored) ? fs::weakly_canonical(file, ignored) : file;
    TemporaryFile temporary(target);
    Descriptor& descriptor = temporary.descriptor();
    const bool isDone = descriptor.isOpen() && keepPermissions(descriptor.number(), target) &&
                        writeAll(descriptor.number(), bytes) && ::fsync(descriptor.number()) == 0 &&
                        descriptor.close() && temporary.renameTo(target);
    if (!isDone) fail("write", file, systemReason());
    flushFolder(target.has_parent_path() ? target.parent_path() : fs::path("."));
}

}   // namespace tavix
