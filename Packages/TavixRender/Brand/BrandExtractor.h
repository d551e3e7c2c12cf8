// The look of an application, from its bundle or any folder of its parts: an accent colour and others, fonts,
// and whether it is light or dark.
#pragma once

#include "TavixCore/Theme/BrandKit.h"

#include <filesystem>
#include <string>
#include <vector>

namespace tavix::BrandExtractor {

struct Report {
    BrandKit brand;
    std::vector<std::string> notes;   // what was found where, in plain words
};

// Throws a `Failure` when there is nothing at the path; whatever cannot be read there is passed over for the
// next source, down to a neutral blue.
Report extract(const std::filesystem::path& bundle);

}   // namespace tavix::BrandExtractor
