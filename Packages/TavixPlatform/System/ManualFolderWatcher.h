// Tells of changes when a test says so.
#pragma once

#include "TavixPlatform/System/FolderWatcher.h"

#include <utility>
#include <vector>

namespace tavix::system {

class ManualFolderWatcher final : public FolderWatcher {
public:
    Watch watch(const std::filesystem::path& folder, Executor& on, Told told) override {
        auto handle = std::make_shared<int>();
        watched_.push_back({folder, handle, &on, std::move(told)});
        return handle;
    }
    void change(const std::filesystem::path& folder, const std::string& name) const {
        for (const Watched& one : watched_)
            if (one.folder == folder && !one.alive.expired())
                one.on->post([one, name] {
                    if (!one.alive.expired()) one.told(name);
                });
    }
    bool isWatched(const std::filesystem::path& folder) const {
        for (const Watched& one : watched_)
            if (one.folder == folder && !one.alive.expired()) return true;
        return false;
    }

private:
    struct Watched {
        std::filesystem::path folder;
        std::weak_ptr<void> alive;
        Executor* on;
        Told told;
    };
    std::vector<Watched> watched_;
};

}   // namespace tavix::system
