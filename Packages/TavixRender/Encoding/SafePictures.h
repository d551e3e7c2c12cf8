// Numbered pictures that take their names when all of them are there, as a file does behind a `SafeOutput`.
#pragma once

#include "TavixCore/Support/SafeOutput.h"
#include "TavixRender/Encoding/FrameNames.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavix {

class SafePictures {
public:
    // Of names as `FrameNames` takes them. Throws as `SafeOutput` does, and `Failure` for one without a place
    // for the number.
    explicit SafePictures(const std::filesystem::path& pattern);

    // Where to write: as the names are, in a hidden folder.
    const std::filesystem::path& unfinished() const { return unfinished_; }
    std::string unnamed(std::string sentence) const { return output_.unnamed(std::move(sentence)); }

    // Brings them to the disk and gives them their names, replacing what was there. Throws `Failure`.
    void commit(std::int64_t count);
    // The folder's pictures past the last one, which an earlier film left there.
    std::int64_t olderPast(std::int64_t count) const;

private:
    FrameNames names_;
    SafeOutput output_;   // of the first one
    std::filesystem::path unfinished_;
};

}   // namespace tavix
