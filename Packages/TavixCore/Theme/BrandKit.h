// The look of an application: its colours and fonts, as they are found in its bundle.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct BrandKit {
    enum class AppMode { light, dark };
    struct BrandFont {
        std::string name;   // its PostScript name
        std::string path;
        bool operator==(const BrandFont&) const = default;
    };

    RGBAColor accent;
    std::optional<RGBAColor> secondary;
    std::vector<RGBAColor> palette;   // the most frequent first
    std::optional<std::string> primaryFontName, primaryFontPath;
    std::vector<BrandFont> fonts;   // all of the bundle, the primary one among them
    AppMode appMode = AppMode::light;
    std::optional<std::string> sourceBundlePath;
    bool operator==(const BrandKit&) const = default;
};

const Names<BrandKit::AppMode>& namesOf(std::type_identity<BrandKit::AppMode>);
const Fields<BrandKit::BrandFont>& fieldsOf(std::type_identity<BrandKit::BrandFont>);
const Fields<BrandKit>& fieldsOf(std::type_identity<BrandKit>);

}   // namespace tavix
