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
        {field<&TransitionParams::amplitude>(
             "amplitude", "How far a ripple throws, in pixels of a picture of 1080 lines.")
                .clamped(5, 120),
            field<&TransitionParams::speed>(
                "speed", "How far a ripple's wave runs in the whole transition, in radians.")
                .clamped(5, 120),
            field<&TransitionParams::rotation>("rotation", "How far a dreamyZoom turns.")
                .measuredIn(Unit::degrees)
                .clamped(0, 30),
            field<&TransitionParams::scale>("scale", "How far a zoom goes.")
                .measuredIn(Unit::times)
                .clamped(1, 2.5)}};
    return table;
}

}   // namespace tavix
