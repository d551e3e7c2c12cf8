#include "TavixCore/Document/TransitionParams.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

TransitionParams::TransitionParams(std::optional<double> rawAmplitude, std::optional<double> rawSpeed,
    std::optional<double> rawRotation, std::optional<double> rawScale)
    : amplitude(rawAmplitude), speed(rawSpeed), rotation(rawRotation), scale(rawScale) {
    *this = clampedByTable(*this);
}

const Fields<TransitionParams>& fieldsOf(std::type_identity<TransitionParams>) {
    static const Fields<TransitionParams> table{"TransitionParams",
        {field<&TransitionParams::amplitude>("amplitude", "How far a ripple throws.").clamped(5, 120),
            field<&TransitionParams::speed>("speed", "How fast a ripple runs.").clamped(5, 120),
            field<&TransitionParams::rotation>("rotation", "How far a zoom turns, in degrees.")
                .clamped(0, 30),
            field<&TransitionParams::scale>("scale", "How far a zoom goes.").clamped(1, 2.5)}};
    return table;
}

}   // namespace tavix
