#include "TavixReel/Captions/NamedCaptionPalette.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Theme/BrandKit.h"

#include <algorithm>

namespace tavix::NamedCaptionPalette {

std::optional<RGBAColor> resolve(std::string_view name, const BrandKit* brand) {
    const std::string wanted = lowered(trimmed(name));
    if (wanted == "brandprimary") return brand ? std::optional(brand->accent) : std::nullopt;
    if (wanted == "brandaccent")
        return brand ? std::optional(brand->secondary.value_or(brand->accent)) : std::nullopt;
    const auto* found = std::ranges::find(colors, wanted, &std::pair<std::string_view, RGBAColor>::first);
    return found == colors.end() ? std::nullopt : std::optional(found->second);
}

}   // namespace tavix::NamedCaptionPalette
