#include "TavixCore/Typography/KineticStyle.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<KineticSpeed>& namesOf(std::type_identity<KineticSpeed>) {
    using enum KineticSpeed;
    static const Names<KineticSpeed> table{
        "kinetic speed", {{snap, "snap"}, {smooth, "smooth"}, {glacial, "glacial"}}, smooth};
    return table;
}

const Names<KineticWeight>& namesOf(std::type_identity<KineticWeight>) {
    using enum KineticWeight;
    static const Names<KineticWeight> table{
        "kinetic weight", {{punchy, "punchy"}, {elegant, "elegant"}, {linear, "linear"}}, punchy};
    return table;
}

const Names<KineticIntensity>& namesOf(std::type_identity<KineticIntensity>) {
    using enum KineticIntensity;
    static const Names<KineticIntensity> table{
        "kinetic intensity", {{low, "low"}, {medium, "medium"}, {high, "high"}}, medium};
    return table;
}

const Names<IdlePhase::Target>& namesOf(std::type_identity<IdlePhase::Target>) {
    using enum IdlePhase::Target;
    static const Names<IdlePhase::Target> table{"idle target",
        {{position, "position"}, {scale, "scale"}, {rotation, "rotation"}, {opacity, "opacity"}}, position};
    return table;
}

const Fields<KineticPhase>& fieldsOf(std::type_identity<KineticPhase>) {
    using P = KineticPhase;
    static const Fields<P> table{"KineticPhase",
        {field<&P::durationSec>("durationSec", "Seconds that one element takes.").atLeast(0),
            field<&P::curve>("curve", "How progress runs over the phase."),
            field<&P::opacity>("opacity", "Opacity at the far end, 0 to 1."),
            field<&P::offset>("offset",
                "Displacement at the far end, in fractions of the canvas height; x to the right, y down."),
            field<&P::scale>("scale", "Scale at the far end; 1 is its own size."),
            field<&P::rotationDeg>(
                "rotationDeg", "Degrees at the far end; x and y tilt, z turns in the plane."),
            field<&P::skewXDeg>("skewXDeg", "Horizontal skew at the far end, in degrees."),
            field<&P::skewYDeg>("skewYDeg", "Vertical skew at the far end, in degrees."),
            field<&P::trackingEm>("trackingEm", "Extra width at the far end; 1 doubles it."),
            field<&P::blurRadiusFraction>(
                "blurRadiusFraction", "Blur radius at the far end, as a fraction of the canvas height."),
            field<&P::clipToBounds>("clipToBounds", "What cuts the element off while it moves."),
            field<&P::motionBlur>("motionBlur", "Smear along the way, 0 to 1."),
            field<&P::color>("color", "Colour at the far end; the element's own when absent.")}};
    return table;
}

const Fields<IdlePhase>& fieldsOf(std::type_identity<IdlePhase>) {
    static const Fields<IdlePhase> table{"IdlePhase",
        {field<&IdlePhase::target>("target", "What moves."),
            field<&IdlePhase::amplitude>("amplitude",
                "How far: fractions of the canvas height, logarithm of the scale, degrees, or opacity.")
                .atLeast(0),
            field<&IdlePhase::frequencyHz>("frequencyHz", "How quick, in changes per second.")
                .clamped(0.01, 30),
            field<&IdlePhase::seed>("seed", "Which random motion it is.")}};
    return table;
}

const Fields<KineticStyle>& fieldsOf(std::type_identity<KineticStyle>) {
    using S = KineticStyle;
    static const Fields<S> table{
        "KineticStyle", {field<&S::presetID>("presetID", "The preset that the style came from."),
                            field<&S::speed>("speed", "The speed that the style came from."),
                            field<&S::weight>("weight", "The weight that the style came from."),
                            field<&S::intensity>("intensity", "The intensity that the style came from."),
                            field<&S::scope>("scope", "What moves as one piece."),
                            field<&S::stagger>("stagger", "How the pieces follow one another."),
                            field<&S::inPhase>("inPhase", "From where, and how, a piece comes in."),
                            field<&S::idle>("idle", "A small motion while it rests."),
                            field<&S::outPhase>("outPhase", "To where, and how, a piece goes out.")}};
    return table;
}

}   // namespace tavix
