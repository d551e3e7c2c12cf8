// The one folder that a server reads and writes.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavix {

class RootFolder {
public:
    // Throws `Failure` when there is no such folder.
    explicit RootFolder(const std::filesystem::path& folder);

    const std::filesystem::path& path() const { return path_; }   // absolute, with no link in it
    // The path that a name in the folder leads to once all links are followed, whether it is there yet or
    // not. Throws `UsageError` for what lies outside, and for what is no path.
    std::filesystem::path resolved(std::string_view given) const;
    bool holds(const std::filesystem::path& path) const;   // the same as a question

private:
    std::filesystem::path path_;
};

}   // namespace tavix
