// What a text layer shows.
#pragma once

#include "TavixCore/Typography/EmphasisSpan.h"
#include "TavixCore/Typography/KineticSelector.h"
#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/TextShadow.h"

#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct TextContent {
    std::string text;
    std::vector<EmphasisSpan> emphasis;
    double sizeFraction = 0.045;   // text size, of the canvas height
    std::optional<std::string> font;
    FontWeight fontWeight = FontWeight::semibold;
    RGBAColor color = RGBAColor::white;
    std::optional<TextShadow> shadow;
    double maxWidthFraction = 0.82;   // of the canvas width
    double trackingEm = 0;            // letter spacing of the text at rest
    std::optional<std::string> alignment;
    KineticSelector kinetic = KineticPresetRef{};
    bool operator==(const TextContent&) const = default;
};

const Fields<TextContent>& fieldsOf(std::type_identity<TextContent>);

}   // namespace tavix
