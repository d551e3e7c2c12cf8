#include "TavixReel/Flow/FlowTypography.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<EmphasisSpanSpec>& fieldsOf(std::type_identity<EmphasisSpanSpec>) {
    using E = EmphasisSpanSpec;
    static const Fields<E> table{
        "EmphasisSpanSpec", {field<&E::wordIndices>("wordIndices", "The words, counted from 0."),
                                field<&E::token>("token", "How they stand out.")}};
    return table;
}

const Fields<StepTypography>& fieldsOf(std::type_identity<StepTypography>) {
    using T = StepTypography;
    static const Fields<T> table{"StepTypography",
        {field<&T::preset>("preset", "How the text moves."), field<&T::speed>("speed", "How fast it moves."),
            field<&T::weight>("weight", "How heavy it is."),
            field<&T::intensity>("intensity", "How strongly it moves."),
            field<&T::emphasis>("emphasis", "Words that stand out.").unlessDefault(),
            field<&T::zone>("zone", "Where on the canvas it stands."),
            field<&T::phone>("phone", "What the device does meanwhile.")}};
    return table;
}

const Fields<CardSpec>& fieldsOf(std::type_identity<CardSpec>) {
    using C = CardSpec;
    static const Fields<C> table{"CardSpec",
        {field<&C::at>("at", "Where it stands: start, afterStep or end."),
            field<&C::afterStep>("afterStep", "The step that it follows."),
            field<&C::headline>("headline", "Its large text."),
            field<&C::subline>("subline", "Its small text."),
            field<&C::emphasis>("emphasis", "Words of the headline that stand out.").unlessDefault(),
            field<&C::sublineEmphasis>("sublineEmphasis", "Words of the subline that stand out.")
                .unlessDefault(),
            field<&C::showLogo>("showLogo", "Whether it shows the logo.").unlessDefault(),
            field<&C::preset>("preset", "How its text moves."),
            field<&C::length>("length", "How long it stands.")}};
    return table;
}

const Fields<FlowTypography>& fieldsOf(std::type_identity<FlowTypography>) {
    using T = FlowTypography;
    static const Fields<T> table{"FlowTypography",
        {field<&T::style>("style", "How all text moves, by the name of a preset."),
            field<&T::speed>("speed", "How fast it moves."), field<&T::weight>("weight", "How heavy it is."),
            field<&T::intensity>("intensity", "How strongly it moves."),
            field<&T::bpm>("bpm", "The tempo that it moves to, in beats per minute.")
                .measuredIn(Unit::beatsPerMinute),
            field<&T::offsetSec>("offsetSec", "When the first beat falls.").measuredIn(Unit::seconds),
            field<&T::phoneChoreography>("phoneChoreography", "What the device does meanwhile."),
            field<&T::cards>("cards", "The title cards.").unlessDefault()}};
    return table;
}

}   // namespace tavix
