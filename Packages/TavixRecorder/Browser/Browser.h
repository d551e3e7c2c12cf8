// A browser without a screen, started for one recording and ended with it.
#pragma once

#include "TavixPlatform/System/ChildProcess.h"
#include "TavixRecorder/Browser/DevTools.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix::recorder {

// The program named by the environment variable TAVIX_BROWSER, or the first of the usual names along $PATH.
std::optional<std::filesystem::path> findBrowser();

// A folder that is the browser's home, with its profile and its temporary files. Gone at the end, or, where
// we are killed, at the next start.
class ProfileFolder {
public:
    ProfileFolder();   // throws `Failure` when there is no place for it
    ~ProfileFolder();
    ProfileFolder(const ProfileFolder&) = delete;
    ProfileFolder& operator=(const ProfileFolder&) = delete;
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    int lock_ = -1;   // held as long as the folder is in use
};

class Browser {
public:
    struct Settings {
        std::filesystem::path program;
        double pixelsPerPoint = 1;
        // Hosts that may be reached; every other name and address is unknown to the browser.
        std::vector<std::string> hosts;
        double startBoundSec = DevTools::usualBoundSec;
    };

    // Throws `Failure` when the browser does not start, and std::system_error when there is none.
    Browser(const Settings& settings, std::stop_token stop);
    ~Browser();

    DevTools& devTools() { return devTools_; }
    // Root has no sandbox to run a browser in.
    static bool runsWithoutSandbox();

private:
    static system::ChildSettings childSettings(const Settings& settings, const std::filesystem::path& home);

    ProfileFolder profile_;
    system::ChildProcess process_;
    DevTools devTools_;
};

}   // namespace tavix::recorder
