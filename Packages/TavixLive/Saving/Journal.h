// What was changed and not saved, on disk beside the other state of the user, so that it outlives a crash.
#pragma once

#include "TavixCore/Project/BundleLock.h"
#include "TavixCore/Support/Json.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct UnsavedWork {
    using Time = std::chrono::sys_seconds;

    std::filesystem::path assetRoot;          // the bundle, where there is one
    std::optional<std::string> writtenText;   // what stood in the bundle's file; none: it was never saved
    std::function<Json()> document;           // in its written form; asked for where it is written
    Time at{};
};

// Of one open document, in a folder of its own that is locked as long as this lives: so a journal whose lock
// is free is of a session that crashed. A healthy end takes it away. Blocks; used by one thread at a time.
class Journal {
public:
    // Throws a `Failure` when the folder cannot be made.
    explicit Journal(const std::filesystem::path& journals);
    ~Journal();
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    // In the place of what was written before, whole or not at all. Throws a `Failure`.
    void write(const UnsavedWork& work) const;
    void clear() const noexcept;   // everything is saved

private:
    std::filesystem::path folder_;
    std::optional<BundleLock> lock_;
};

// What a session that crashed has left. Claimed as long as this lives; then another program may find it.
class LostWork {
public:
    // The latest first. What is damaged is left where it lies; journals without anything go.
    static std::vector<LostWork> find(const std::filesystem::path& journals);

    const std::filesystem::path& assetRoot() const { return assetRoot_; }
    UnsavedWork::Time at() const { return at_; }
    UnsavedWork read() const;       // throws a `Failure`
    void forget() const noexcept;   // it is never found again

private:
    LostWork(std::filesystem::path folder, std::shared_ptr<BundleLock> lock, const UnsavedWork& work)
        : folder_(std::move(folder)), lock_(std::move(lock)), assetRoot_(work.assetRoot), at_(work.at) {}

    std::filesystem::path folder_;
    std::shared_ptr<BundleLock> lock_;   // shared by copies of this; the last one lets go of it
    std::filesystem::path assetRoot_;
    UnsavedWork::Time at_;
};

}   // namespace tavix
