// A full-screen card between pieces of footage.
#pragma once

#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Typography/EmphasisSpan.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/TextShadow.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

namespace tavix {

// One text of a card.
struct CardText {
    std::string text;
    std::vector<EmphasisSpan> emphasis;
    double sizeFraction = 0.045;                     // of the canvas height
    std::optional<std::string> fontName, fontPath;   // absent: the system's own font
    FontWeight fontWeight = FontWeight::semibold;
    RGBAColor color = RGBAColor::white;
    std::optional<TextShadow> shadow;
    double maxWidthFraction = 0.82;   // of the canvas width
    double delaySec = 0;              // after the card's start
    KineticStyle kinetic = usualKinetic();
    std::optional<double> strokeWidthFraction;
    std::optional<RGBAColor> strokeColor;
    std::optional<LinearGradient> textGradient;
    std::optional<std::string> alignment;

    static const KineticStyle& usualKinetic();   // fading up
    bool operator==(const CardText&) const = default;
};

// What a card was placed by.
struct AtStart {
    bool operator==(const AtStart&) const = default;
};
struct AfterStep {
    std::int64_t index = 0;   // of the step
    bool operator==(const AfterStep&) const = default;
};
struct AtEnd {
    bool operator==(const AtEnd&) const = default;
};
struct CustomAnchor {
    bool operator==(const CustomAnchor&) const = default;
};
using TitleCardAnchor = std::variant<CustomAnchor, AtStart, AfterStep, AtEnd>;

struct TitleCard {
    TitleCardAnchor anchor;
    double insertionSec = 0;                    // pre-cut clock
    double durationSec = 2.5;                   // 1.2 to 8
    std::optional<BackgroundFill> background;   // absent: the reel's
    CardText headline;
    std::optional<CardText> subline;
    bool showLogo = false;
    std::optional<std::string> logoPath;
    double logoSizeFraction = 0.1;   // of the canvas height

    // With a length in its range, as reading a document has it.
    static TitleCard clamped(TitleCard card);
    bool operator==(const TitleCard&) const = default;
};

const Fields<CardText>& fieldsOf(std::type_identity<CardText>);
const Fields<AtStart>& fieldsOf(std::type_identity<AtStart>);
const Fields<AfterStep>& fieldsOf(std::type_identity<AfterStep>);
const Fields<AtEnd>& fieldsOf(std::type_identity<AtEnd>);
const Fields<CustomAnchor>& fieldsOf(std::type_identity<CustomAnchor>);
const Alternatives<TitleCardAnchor>& alternativesOf(std::type_identity<TitleCardAnchor>);
const Fields<TitleCard>& fieldsOf(std::type_identity<TitleCard>);

}   // namespace tavix
