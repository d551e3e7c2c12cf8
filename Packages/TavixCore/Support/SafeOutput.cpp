#include "TavixCore/Support/SafeOutput.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/DiskSync.h"
#include "TavixCore/Support/UnfinishedFolders.h"

#include <cerrno>
#include <fcntl.h>
#include <functional>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view prefix = ".tavix-partial-";
// Names may have 255 bytes; the file and its companions have prefixes of their own.
constexpr std::size_t longestName = 200;
constexpr int mostLinks = 40;   // as many as the system follows

[[noreturn]] void fail(const fs::path& target, const std::error_code& error) {
    throw Failure("Cannot write \"" + target.string() + "\": " + error.message() + ".");
}

std::error_code systemError() { return {errno, std::generic_category()}; }

fs::path folderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

fs::path throughLinks(const fs::path& path) {
    std::error_code error;
    fs::path target = path;
    for (int links = 0; fs::is_symlink(target, error); ++links) {
        if (links == mostLinks) fail(path, std::make_error_code(std::errc::too_many_symbolic_link_levels));
        const fs::path next = fs::read_symlink(target, error);
        if (error) fail(path, error);
        target = folderOf(target) / next;   // an absolute one stands alone
    }
    return target;
}

std::string hiddenName(const fs::path& target) {
    const std::string name = target.filename().string();
    if (name.size() <= longestName) return std::string(prefix) + name;
    return std::string(prefix) + name.substr(0, longestName) + "-" +
           std::to_string(std::hash<std::string>{}(name));
}

fs::path partialName(const fs::path& target) {
    if (target.filename().native().size() <= longestName) return target.filename();
    return fs::path("output").concat(target.extension().string());
}

int openFolder(const fs::path& folder) {
    return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
}

// Whether the folder that was opened still bears the name.
bool isStill(int folder, const fs::path& named) {
    struct stat opened {
    }, there{};
    return ::fstat(folder, &opened) == 0 && ::lstat(named.c_str(), &there) == 0 &&
           opened.st_dev == there.st_dev && opened.st_ino == there.st_ino;
}

void empty(const fs::path& folder) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) fs::remove_all(entry.path(), ignored);
}

// Whoever works in such a folder holds a lock on it, until the end of its program at the latest. Where the
// file system knows no locks, nothing is removed.
void sweep(const fs::path& folder) {
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(folder, ignored)) {
        if (!entry.path().filename().native().starts_with(prefix)) continue;
        const int opened = openFolder(entry.path());
        if (opened < 0) continue;
        if (::flock(opened, LOCK_EX | LOCK_NB) == 0 && isStill(opened, entry.path()))
            fs::remove_all(entry.path(), ignored);
        ::close(opened);
    }
}

}   // namespace

SafeOutput::SafeOutput(const fs::path& target, IfTaken ifTaken)
    : target_(throughLinks(target)), folder_(folderOf(target_) / hiddenName(target_)),
      partial_(folder_ / partialName(target_)) {
    // A folder that cannot be made shows when the hidden one is.
    std::error_code ignored;
    fs::create_directories(folderOf(target_), ignored);
    sweep(folderOf(target_));
    claim(ifTaken);
    slot_ = UnfinishedFolders::remember(fs::absolute(folder_, ignored));
    empty(folder_);
}

void SafeOutput::claim(IfTaken ifTaken) {
    for (;;) {
        const bool isOurs = ::mkdir(folder_.c_str(), 0700) == 0;
        if (!isOurs && errno != EEXIST) fail(target_, systemError());
        lock_ = openFolder(folder_);
        if (lock_ < 0 && errno == ENOENT) continue;   // its owner has just finished
        if (lock_ < 0) {
            const std::error_code error = systemError();
            if (isOurs) ::rmdir(folder_.c_str());
            fail(target_, error);
        }
        const bool isFree = ::flock(lock_, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
        if (!isFree && ifTaken == IfTaken::wait) ::flock(lock_, LOCK_EX);
        if (!isFree && ifTaken == IfTaken::refuse) {
            ::close(std::exchange(lock_, -1));
            throw Failure(std::string("\"").append(target_) +
                          "\" is being written by another program; wait for that one, or name another file.");
        }
        if (isStill(lock_, folder_)) return;
        ::close(lock_);
    }
}

SafeOutput::~SafeOutput() {
    // Also where there is no more memory; the other way is for what the first cannot hold.
    UnfinishedFolders::remove(slot_);
    std::error_code ignored;
    if (slot_ < 0) fs::remove_all(folder_, ignored);
    // And where no folder can be opened to look inside; by now the name may be another program's.
    if (isStill(lock_, folder_)) {
        ::unlink(partial_.c_str());
        ::rmdir(folder_.c_str());
    }
    ::close(lock_);
}

std::string SafeOutput::unnamed(std::string sentence) const {
    const auto shown = [&](const std::string& hidden, const std::string& name) {
        for (auto at = sentence.find(hidden); at != std::string::npos;
             at = sentence.find(hidden, at + name.size()))
            sentence.replace(at, hidden.size(), name);
    };
    shown(partial_.string(), target_.string());
    shown((partial_.parent_path() / "").string(), (target_.parent_path() / "").string());
    return sentence;
}

void SafeOutput::commit() {
    if (const std::error_code error = syncToDisk(partial_)) fail(target_, error);
    struct stat earlier {};
    const bool isReplaced = ::stat(target_.c_str(), &earlier) == 0 && S_ISREG(earlier.st_mode);
    if (isReplaced && ::chmod(partial_.c_str(), earlier.st_mode & 07777) != 0) fail(target_, systemError());
    std::error_code error;
    fs::rename(partial_, target_, error);
    if (error) fail(target_, error);
    // Some file systems cannot sync a folder; the file is complete all the same.
    syncToDisk(folderOf(target_));
}

}   // namespace tavix
