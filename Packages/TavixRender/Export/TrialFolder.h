// A folder for what is written only to see how it comes out: it goes with its content.
#pragma once

#include <filesystem>

namespace tavix {

class TrialFolder {
public:
    TrialFolder();   // throws `Failure` where no folder can be made
    ~TrialFolder();
    TrialFolder(const TrialFolder&) = delete;
    TrialFolder& operator=(const TrialFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

}   // namespace tavix
