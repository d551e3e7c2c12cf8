#include "TavixRender/Encoding/SafePictures.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/DiskSync.h"

#include <system_error>

namespace tavix {

SafePictures::SafePictures(const std::filesystem::path& pattern)
    : names_(FrameNames::required(pattern)), output_(names_.of(0)),
      unfinished_(output_.partial().parent_path() / pattern.filename()) {}

void SafePictures::commit(std::int64_t count) {
    const FrameNames hidden = *FrameNames::parsed(unfinished_);
    std::error_code error;
    for (std::int64_t i = 1; i < count && !error; ++i) {
        error = syncToDisk(hidden.of(i));
        if (!error) std::filesystem::rename(hidden.of(i), names_.of(i), error);
    }
    if (!error && hidden.of(0) != output_.partial())
        std::filesystem::rename(hidden.of(0), output_.partial(), error);
    if (error)
        throw Failure("Cannot write the pictures of \"" + output_.target().parent_path().string() +
                      "\": " + error.message() + ".");
    output_.commit();
}

std::int64_t SafePictures::olderPast(std::int64_t count) const {
    std::int64_t left = 0;
    std::error_code ignored;
    while (std::filesystem::exists(names_.of(count + left), ignored)) ++left;
    return left;
}

}   // namespace tavix
