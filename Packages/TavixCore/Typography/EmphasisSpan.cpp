#include "TavixCore/Typography/EmphasisSpan.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<EmphasisToken>& namesOf(std::type_identity<EmphasisToken>) {
    using enum EmphasisToken;
    static const Names<EmphasisToken> table{
        "emphasis token", {{accent, "accent"}, {scalePop, "scalePop"}, {highlight, "highlight"}}, accent};
    return table;
}

const Fields<EmphasisStyle>& fieldsOf(std::type_identity<EmphasisStyle>) {
    using S = EmphasisStyle;
    static const Fields<S> table{"EmphasisStyle",
        {field<&S::textColor>("textColor", "Colour of the words."),
            field<&S::scale>("scale", "Size of the words; 1 is that of the text.").measuredIn(Unit::times),
            field<&S::fontWeight>("fontWeight", "Weight of the words."),
            field<&S::highlightColor>("highlightColor", "Colour of a marker behind the words.")}};
    return table;
}

const Fields<EmphasisSpan>& fieldsOf(std::type_identity<EmphasisSpan>) {
    using S = EmphasisSpan;
    static const Fields<S> table{
        "EmphasisSpan", {field<&S::wordIndices>("wordIndices", "Which words of the text, counted from 0."),
                            field<&S::token>("token", "The look, from the theme."),
                            field<&S::style>("style", "What differs from that look.")}};
    return table;
}

}   // namespace tavix
