// How a text moves, worked out anew for other words: what is too long to move letter by letter moves in
// larger pieces.
#pragma once

#include "TavixCore/Typography/KineticPresetCatalog.h"

#include <string_view>

namespace tavix {

inline KineticStyle kineticOfText(const KineticPresetRef& preset, std::string_view text) {
    return KineticPresetCatalog::resolve({.preset = preset, .text = text, .seed = 0, .accent = {}}).style;
}

// One that was written by hand stays as it is.
inline KineticStyle kineticOfText(const KineticStyle& style, std::string_view text) {
    if (style.presetID == KineticStyle{}.presetID) return style;
    return kineticOfText(KineticPresetRef{style.presetID, style.speed, style.weight, style.intensity}, text);
}

}   // namespace tavix
