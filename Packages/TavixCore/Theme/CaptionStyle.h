// The look of a block of text: of all captions of a narration, of a title card, of a text layer.
#pragma once

#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/LinearGradient.h"
#include "TavixCore/Values/TextShadow.h"

#include <optional>
#include <string>
#include <type_traits>

namespace tavix {

struct CaptionStyle {
    std::optional<std::string> fontName, fontPath;   // absent: the system's own font
    double fontSizeFraction = 0.026;                 // of the canvas height
    RGBAColor textColor = RGBAColor::white;
    RGBAColor barColor{0.05, 0.05, 0.07, 0.62};
    double cornerRadius = 0.018;
    double safeInsetFraction = 0.05;   // of the canvas height, on every side
    double fadeSec = 0.3;
    double maxBarWidthFraction = 1;   // of the canvas width
    std::optional<FontWeight> fontWeight;
    std::optional<TextShadow> textShadow;
    std::optional<double> strokeWidthFraction;
    std::optional<RGBAColor> strokeColor;
    std::optional<LinearGradient> textGradient;

    static const CaptionStyle& standard();   // the initialisers above
    bool operator==(const CaptionStyle&) const = default;
};

const Fields<CaptionStyle>& fieldsOf(std::type_identity<CaptionStyle>);

}   // namespace tavix
