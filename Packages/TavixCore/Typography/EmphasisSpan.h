// One emphasis over words of a text.
#pragma once

#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/RGBAColor.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace tavix {

enum class EmphasisToken { accent, scalePop, highlight };

struct EmphasisStyle {
    std::optional<RGBAColor> textColor;
    std::optional<double> scale;
    std::optional<FontWeight> fontWeight;
    std::optional<RGBAColor> highlightColor;
    bool operator==(const EmphasisStyle&) const = default;
};

struct EmphasisSpan {
    std::vector<std::int64_t> wordIndices;   // into `KineticMath::words` of the text
    EmphasisToken token = EmphasisToken::accent;
    EmphasisStyle style;   // overrides of what the token means
    bool operator==(const EmphasisSpan&) const = default;
};

const Names<EmphasisToken>& namesOf(std::type_identity<EmphasisToken>);
const Fields<EmphasisStyle>& fieldsOf(std::type_identity<EmphasisStyle>);
const Fields<EmphasisSpan>& fieldsOf(std::type_identity<EmphasisSpan>);

}   // namespace tavix
