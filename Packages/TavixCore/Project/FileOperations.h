// What saving and packing do to the disk, one method a kind of operation, so that a test can stop them at any
// one of them.
#pragma once

#include <filesystem>
#include <string_view>

namespace tavix {

// Each throws a `Failure` that names the file and the system's reason.
class FileOperations {
public:
    using Path = std::filesystem::path;

    virtual ~FileOperations() = default;
    // Both make a file that was not there, and never write into one that was.
    virtual void write(std::string_view bytes, const Path& file) = 0;
    virtual void copy(const Path& source, const Path& file) = 0;
    virtual void rename(const Path& from, const Path& to) = 0;
    // Waits until a file, or the names in a folder, are on the disk.
    virtual void sync(const Path& path) = 0;
    // With those above it; one that is there already is kept.
    virtual void makeFolder(const Path& folder) = 0;
    // A file, a link (not what it points at) or a folder with all in it. Nothing there is nothing to do.
    virtual void remove(const Path& path) = 0;
};

class DiskOperations final : public FileOperations {
public:
    void write(std::string_view bytes, const Path& file) override;
    void copy(const Path& source, const Path& file) override;
    void rename(const Path& from, const Path& to) override;
    void sync(const Path& path) override;
    void makeFolder(const Path& folder) override;
    void remove(const Path& path) override;
};

}   // namespace tavix
