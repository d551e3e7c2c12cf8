// Tells when another program, or our own, changes something in a folder.
#pragma once

#include "TavixPlatform/System/Executor.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace tavix::system {

class FolderWatcher {
public:
    // The name in the folder that was written, moved or removed; empty where anything may have changed, or
    // the folder itself is another one now.
    using Told = std::function<void(const std::string& name)>;
    // Leaving its scope ends the watching; ended on the executor that is told, nothing is told any more.
    using Watch = std::shared_ptr<void>;

    virtual ~FolderWatcher() = default;
    // The folder alone, not those in it. `told` is posted to the executor, which outlives the watch. Throws
    // std::system_error when the folder cannot be watched.
    [[nodiscard]] virtual Watch watch(const std::filesystem::path& folder, Executor& on, Told told) = 0;
};

}   // namespace tavix::system
