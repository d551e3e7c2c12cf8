// A plain file opened for reading. Inside the library only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace tavix::media {

class PlainFile {
public:
    // Throws MediaError when there is no such file, it may not be read, or it is none, as a pipe that might
    // never end; MediaFault when the machine cannot open it now. `failure` begins the sentence.
    PlainFile(const std::filesystem::path& path, const std::string& failure);
    ~PlainFile();
    PlainFile(const PlainFile&) = delete;
    PlainFile& operator=(const PlainFile&) = delete;

    std::int64_t sizeBytes() const { return sizeBytes_; }
    // How many bytes came, 0 at the end; or a negative error number of the system.
    std::ptrdiff_t read(std::span<std::byte> to, std::int64_t at) const;

    static std::string reasonOf(int errorNumber);

private:
    int descriptor_;
    std::int64_t sizeBytes_ = 0;
};

}   // namespace tavix::media
