// Where fonts lie, and the configurations of Fontconfig that are made of it. Inside the library only.
#pragma once

#include "TavixPlatform/Text/Owned.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tavix::text {

// Where fonts lie, for fontconfig to read: folders, and where what was read of them is kept.
struct FontPlaces {
    std::string folders, caches;   // elements of its XML

    static const FontPlaces& ofThisMachine();   // read once for the whole process
    static FontPlaces of(const std::vector<std::filesystem::path>& folders);

    // Both throw std::bad_alloc where memory fails.
    Owned<FcConfig> config() const;
    // Of these files alone. One that Fontconfig finds by another road than its folder is missing.
    Owned<FcConfig> configOf(std::span<const std::string> files) const;
};

}   // namespace tavix::text
