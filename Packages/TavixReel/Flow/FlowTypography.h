// What the author of a flow wishes for the text of its reel. The words are judged when the reel is made, so
// that a flow can be read whatever they are.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct EmphasisSpanSpec {
    std::vector<std::int64_t> wordIndices;   // from 0
    std::string token = "accent";
    bool operator==(const EmphasisSpanSpec&) const = default;
};

// Of one step.
struct StepTypography {
    std::optional<std::string> preset, speed, weight, intensity;
    std::vector<EmphasisSpanSpec> emphasis;
    std::optional<std::string> zone, phone;
    bool operator==(const StepTypography&) const = default;
};

// A title card.
struct CardSpec {
    std::string at = "start";   // "start", "afterStep" or "end"
    std::optional<std::int64_t> afterStep;
    std::string headline;
    std::optional<std::string> subline;
    std::vector<EmphasisSpanSpec> emphasis, sublineEmphasis;
    bool showLogo = false;
    std::optional<std::string> preset, length;
    bool operator==(const CardSpec&) const = default;
};

// Of a whole flow.
struct FlowTypography {
    std::optional<std::string> style, speed, weight, intensity;
    std::optional<double> bpm, offsetSec;   // the beats that text moves to
    std::optional<std::string> phoneChoreography;
    std::vector<CardSpec> cards;
    bool operator==(const FlowTypography&) const = default;
};

const Fields<EmphasisSpanSpec>& fieldsOf(std::type_identity<EmphasisSpanSpec>);
const Fields<StepTypography>& fieldsOf(std::type_identity<StepTypography>);
const Fields<CardSpec>& fieldsOf(std::type_identity<CardSpec>);
const Fields<FlowTypography>& fieldsOf(std::type_identity<FlowTypography>);

}   // namespace tavix
