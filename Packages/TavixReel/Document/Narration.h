// The lines that say what a reel shows, and how they look.
#pragma once

#include "TavixCore/Document/BeatGrid.h"
#include "TavixCore/Theme/CaptionStyle.h"
#include "TavixCore/Typography/EmphasisSpan.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/NormalizedPoint.h"
#include "TavixReel/Document/ReelTimes.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavix {

// What one caption changes of the style of all.
struct CaptionStyleOverride {
    static constexpr std::string_view systemFontSentinel = "system";   // the system's font after all

    std::optional<std::string> fontName, fontPath;
    std::optional<double> fontSizeFraction;   // of the canvas height
    std::optional<RGBAColor> textColor, barColor;
    std::optional<FontWeight> fontWeight;
    std::optional<TextShadow> textShadow;

    bool isEmpty() const { return *this == CaptionStyleOverride{}; }
    // The whole style of the caption.
    CaptionStyle resolved(CaptionStyle over) const;
    bool operator==(const CaptionStyleOverride&) const = default;
};

struct Caption {
    std::int64_t stepIndex = 0;   // of the step that it tells of
    std::string text;
    TimeRangeSec window;
    std::optional<NormalizedPoint> position;   // of its middle on the canvas; absent: where captions go
    std::optional<CaptionStyleOverride> style;
    std::optional<KineticStyle> kinetic;   // absent: a plain bar, or the narration's way
    std::vector<EmphasisSpan> emphasis;

    bool operator==(const Caption&) const = default;
};

struct Narration {
    enum class Placement { lowerThird, anchoredChip, topStrip };

    std::vector<Caption> captions;
    CaptionStyle style;
    Placement placement = Placement::lowerThird;
    std::optional<KineticStyle> kineticDefaults;
    std::optional<BeatGrid> beatGrid;

    std::vector<TimeRangeSec> windows() const;
    // The narration's style with the caption's own changes.
    CaptionStyle styleOf(const Caption& caption) const;
    bool operator==(const Narration&) const = default;
};

const Fields<CaptionStyleOverride>& fieldsOf(std::type_identity<CaptionStyleOverride>);
const Fields<Caption>& fieldsOf(std::type_identity<Caption>);
const Names<Narration::Placement>& namesOf(std::type_identity<Narration::Placement>);
const Fields<Narration>& fieldsOf(std::type_identity<Narration>);

}   // namespace tavix
