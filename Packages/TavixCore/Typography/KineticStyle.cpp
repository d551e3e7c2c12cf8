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
        {field<&P::durationSec>("durationSec", "How long one piece takes.")
                .measuredIn(Unit::seconds)
                .atLeast(0),
            field<&P::curve>("curve", "How progress runs over the phase."),
            field<&P::opacity>("opacity", "How solid it is at the far end.").measuredIn(Unit::fraction),
            field<&P::offset>("offset",
                "Where it is at the far end: x to the right, y downwards, both in shares of the canvas height.")
                .measuredIn(Unit::canvasHeights),
            field<&P::scale>("scale", "Size at the far end; 1 is its own.").measuredIn(Unit::times),
            field<&P::rotationDeg>("rotationDeg",
                "Turn at the far end: x brings the top forward, y turns it to the right, z turns text counterclockwise and a whole layer clockwise.")
                .measuredIn(Unit::degrees),
            field<&P::skewXDeg>("skewXDeg", "Lean to the right at the far end.").measuredIn(Unit::degrees),
            field<&P::skewYDeg>("skewYDeg", "Skew at the far end that moves the right side.")
                .measuredIn(Unit::degrees),
            field<&P::trackingEm>("trackingEm", "How much wider it is at the far end; 1 is twice as wide.")
                .measuredIn(Unit::times),
            field<&P::blurRadiusFraction>(
                "blurRadiusFraction", "Standard deviation of the blur at the far end.")
                .measuredIn(Unit::canvasHeights),
            field<&P::clipToBounds>("clipToBounds", "What cuts the element off while it moves."),
            field<&P::motionBlur>("motionBlur", "Smear along the way; 1 is that of half a frame.")
                .measuredIn(Unit::fraction),
            field<&P::color>("color", "Colour at the far end; the element's own when absent.")}};
    return table;
}

const Fields<IdlePhase>& fieldsOf(std::type_identity<IdlePhase>) {
    static const Fields<IdlePhase> table{"IdlePhase",
        {field<&IdlePhase::target>("target", "What moves."),
            field<&IdlePhase::amplitude>("amplitude",
                "How far, by what moves: in shares of the canvas height for `position`, as the logarithm of the factor for `scale`, in degrees for `rotation`, as a share for `opacity`.")
                .atLeast(0),
            field<&IdlePhase::frequencyHz>("frequencyHz", "How quick, in changes per second.")
                .measuredIn(Unit::hertz)
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
