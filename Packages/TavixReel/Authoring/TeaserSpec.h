// A teaser: headlines one after another, without a recording.
#pragma once

#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixReel/Document/EffectsOutput.h"

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct TeaserSpec {
    struct Beat {
        std::string text;
        double holdSec = 2.5;   // 1.2 to 8 in the end
        std::optional<std::string> subline;
        std::optional<std::string> preset;    // of moving text
        std::optional<double> sizeFraction;   // of the canvas height; absent: by the number of words
        std::optional<RGBAColor> color;       // absent: white
        std::optional<std::string> font, fontPath;
        bool operator==(const Beat&) const = default;
    };

    EffectsOutput output;
    BackgroundFill background = RGBAColor::black;
    std::vector<Beat> beats;
    bool operator==(const TeaserSpec&) const = default;
};

const Fields<TeaserSpec::Beat>& fieldsOf(std::type_identity<TeaserSpec::Beat>);
const Fields<TeaserSpec>& fieldsOf(std::type_identity<TeaserSpec>);

}   // namespace tavix
