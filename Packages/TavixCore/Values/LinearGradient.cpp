#include "TavixCore/Values/LinearGradient.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const LinearGradient& LinearGradient::standard() {
    static const LinearGradient gradient{{{{0.12, 0.13, 0.2, 1}, 0}, {{0.03, 0.04, 0.09, 1}, 1}}, 0};
    return gradient;
}

const Fields<GradientStop>& fieldsOf(std::type_identity<GradientStop>) {
    static const Fields<GradientStop> table{"GradientStop",
        {field<&GradientStop::color>("color", "The colour here.").required(),
            field<&GradientStop::location>("location", "Where along the line: 0 is its start, 1 its end.")
                .measuredIn(Unit::fraction)
                .required()}};
    return table;
}

const Fields<LinearGradient>& fieldsOf(std::type_identity<LinearGradient>) {
    static const Fields<LinearGradient> table{"LinearGradient",
        {field<&LinearGradient::stops>("stops", "The colours, in rising location.").required(),
            field<&LinearGradient::angleDegrees>("angleDegrees",
                "Where the line goes: 0 from the bottom to the top, 90 from the left to the right. It reaches from corner to corner.")
                .measuredIn(Unit::degrees)
                .required()}};
    return table;
}

}   // namespace tavix
