// A file that appears whole or not at all. The work is done in a hidden file beside the target, which takes
// the target's name in the end; whatever else happens, the hidden file is gone.
#pragma once

#include <filesystem>

namespace tavix {

class SafeOutput {
public:
    // Creates the target's folder when it is missing and removes what an earlier, killed run left behind.
    explicit SafeOutput(std::filesystem::path target);
    ~SafeOutput();
    SafeOutput(const SafeOutput&) = delete;
    SafeOutput& operator=(const SafeOutput&) = delete;

    const std::filesystem::path& target() const { return target_; }
    // ".tavix-partial-<name>": the name keeps its extension, which tells writers the file type.
    const std::filesystem::path& partial() const { return partial_; }

    // Brings the file to the disk and gives it the target's name, replacing what was there. Throws `Failure`.
    void commit();

private:
    std::filesystem::path target_, partial_;
    bool isCommitted_ = false;
};

}   // namespace tavix
