// A file that only the work on another one needs: it lies beside it under a hidden name and is gone when the
// work ends, however it ends.
#pragma once

#include <filesystem>
#include <string>

namespace tavix {

class HiddenFile {
public:
    // Nothing is created; what an earlier, killed run left under that name is removed.
    HiddenFile(std::filesystem::path beside, const std::string& name);
    ~HiddenFile();
    HiddenFile(const HiddenFile&) = delete;
    HiddenFile& operator=(const HiddenFile&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // A sentence with the name of the file that is worked on instead of this one's.
    std::string unnamed(std::string sentence) const;

private:
    std::filesystem::path beside_, path_;
};

}   // namespace tavix
