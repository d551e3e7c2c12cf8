// Watches folders by the system's own notification. Changes that other machines make to a shared folder are
// not told by it.
#pragma once

#include "TavixPlatform/System/FolderWatcher.h"

#include <thread>

namespace tavix::system {

// May be used from any thread. It has a thread of its own, which sleeps until something changes.
class InotifyWatcher final : public FolderWatcher {
public:
    // Throws std::system_error when the system lets the user have no more of them.
    InotifyWatcher();
    ~InotifyWatcher() override;
    InotifyWatcher(const InotifyWatcher&) = delete;
    InotifyWatcher& operator=(const InotifyWatcher&) = delete;

    Watch watch(const std::filesystem::path& folder, Executor& on, Told told) override;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
    std::thread thread_;
};

}   // namespace tavix::system
