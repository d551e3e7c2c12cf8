// The projects that were open lately, the newest first.
#pragma once

#include "TavixLive/Files/UserDefaults.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix {

class RecentProjects {
public:
    using Date = std::chrono::sys_seconds;
    struct Item {
        std::filesystem::path path;
        Date date;   // the beginning of 1970 where it cannot be read
        std::string name() const { return path.stem().string(); }
    };

    explicit RecentProjects(UserDefaults defaults) : defaults_(std::move(defaults)) {}

    // Throws a `Failure` when it cannot be remembered.
    void add(const std::filesystem::path& path, Date now) const;
    // The newest five of those that are still there.
    std::vector<Item> list() const;

    static constexpr std::size_t mostKept = 10, mostListed = 5;

private:
    UserDefaults defaults_;
};

}   // namespace tavix
