#include "TavixCore/Project/FileOperations.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/DiskSync.h"

#include <cerrno>
#include <cstdio>
#include <memory>
#include <string>
#include <system_error>

namespace tavix {

namespace {

namespace fs = std::filesystem;

void require(const std::error_code& error, const char* verb, const fs::path& path) {
    if (error)
        throw Failure(std::string("Cannot ") + verb + " \"" + path.string() + "\": " + error.message() + ".");
}

std::error_code systemError() { return {errno, std::generic_category()}; }

}   // namespace

void DiskOperations::write(std::string_view bytes, const Path& file) {
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> stream(std::fopen(file.c_str(), "wbxe"), std::fclose);
    bool isDone = stream && std::fwrite(bytes.data(), 1, bytes.size(), stream.get()) == bytes.size();
    isDone = isDone && std::fclose(stream.release()) == 0;
    if (!isDone) require(systemError(), "write", file);
}

void DiskOperations::copy(const Path& source, const Path& file) {
    std::error_code error;
    fs::copy_file(source, file, error);
    require(error, "copy", source);
    // The permissions came along; a copy that nobody may write could not be replaced later.
    fs::permissions(file, fs::perms::owner_write, fs::perm_options::add, error);
    require(error, "copy", source);
}

void DiskOperations::rename(const Path& from, const Path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    require(error, "write", to);
}

void DiskOperations::sync(const Path& path) {
    const std::error_code error = syncToDisk(path);
    if (error != std::errc::invalid_argument) require(error, "write", path);
}

void DiskOperations::makeFolder(const Path& folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    require(error, "make", folder);
}

void DiskOperations::remove(const Path& path) {
    std::error_code error;
    fs::remove_all(path, error);
    require(error, "remove", path);
}

}   // namespace tavix
