#include "TavixCore/Support/FileBytes.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/SafeOutput.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
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
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    bool isOpen() const { return number_ >= 0; }
    int number() const { return number_; }
    bool close() { return ::close(std::exchange(number_, -1)) == 0; }

private:
    int number_;
};

bool writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR) return false;
        if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

// Anything but a file might never end, or never begin.
void requireFile(int descriptor, const fs::path& file) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0) fail("read", file, systemReason());
    if (S_ISREG(status.st_mode)) return;
    if (S_ISDIR(status.st_mode)) fail("read", file, "it is a folder");
    fail("read", file,
        std::string("it is a ") + (S_ISFIFO(status.st_mode) ? "pipe" : "device") +
            "; save what it holds to a file and name that");
}

}   // namespace

bool isFile(const fs::path& path) noexcept {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

std::string readBytes(const fs::path& file, std::size_t maxBytes) try {
    // Without waiting for the other end of a pipe.
    const Descriptor descriptor(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!descriptor.isOpen()) fail("read", file, systemReason());
    requireFile(descriptor.number(), file);
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
} catch (const std::bad_alloc&) {
    fail("read", file, "there is not enough memory for it");
}

void writeBytesAtomically(std::string_view bytes, const fs::path& file) {
    std::error_code ignored;
    if (file.has_parent_path() && !fs::exists(file.parent_path(), ignored))
        fail("write", file, "there is no folder \"" + file.parent_path().string() + "\"");
    SafeOutput output(file, SafeOutput::IfTaken::wait);
    Descriptor descriptor(::open(output.partial().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!descriptor.isOpen() || !writeAll(descriptor.number(), bytes) || !descriptor.close())
        fail("write", file, systemReason());
    output.commit();
}

}   // namespace tavix
