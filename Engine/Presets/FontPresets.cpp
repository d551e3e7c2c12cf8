#include "Engine/Presets/FontPresets.h"

#include "TavixCore/Theme/FontCatalog.h"
#include "TavixPlatform/Text/FontBook.h"

namespace tavix::engine::FontPresets {

namespace {

constexpr double anySizePx = 16;

text::FoundFont faceOf(const FontOption& option) {
    const text::FontBook fonts;
    return option.postScriptName ? fonts.named(*option.postScriptName, anySizePx)
                                 : text::FoundFont{fonts.interfaceFont(anySizePx), false};
}

}   // namespace

std::vector<Preset> all() {
    std::vector<Preset> presets;
    for (const FontOption& option : FontCatalog::standardOptions()) {
        const text::FoundFont found = faceOf(option);
        const std::string face = found.font.familyName() + " (" + found.font.postScriptName() + ")";
        Preset preset{
            option.id, option.displayName + ": " + (found.isStandIn ? face + " stands in" : face), {}};
        preset.details = {{"displayName", option.displayName}, {"family", found.font.familyName()},
            {"face", found.font.postScriptName()}, {"isStandIn", found.isStandIn}};
        if (option.postScriptName) preset.details.set("postScriptName", *option.postScriptName);
        presets.push_back(std::move(preset));
    }
    return presets;
}

}   // namespace tavix::engine::FontPresets
