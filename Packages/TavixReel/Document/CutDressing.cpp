#include "TavixReel/Document/CutDressing.h"

#include "TavixCore/Support/FieldTables.h"

#include <cmath>

namespace tavix {

CutDressing::CutDressing(Style rawStyle, double rawIntensity, double rawHalfWidthSec) : style(rawStyle) {
    intensity = rawIntensity;
    halfWidthSec = rawHalfWidthSec;
    *this = clampedByTable(*this);
}

double CutDressing::alpha(double atCompositionSec, double nearestSeamSec) const {
    const double awaySec = std::abs(atCompositionSec - nearestSeamSec);
    return awaySec < halfWidthSec ? (1 - awaySec / halfWidthSec) * intensity : 0;
}

const Names<CutDressing::Style>& namesOf(std::type_identity<CutDressing::Style>) {
    using enum CutDressing::Style;
    static const Names<CutDressing::Style> table{
        "cut dressing", {{flash, "flash"}, {lightLeak, "lightLeak"}}, flash};
    return table;
}

const Fields<CutDressing>& fieldsOf(std::type_identity<CutDressing>) {
    using D = CutDressing;
    static const Fields<D> table{
        "CutDressing", {field<&D::style>("style", "The kind of light."),
                           field<&D::intensity>("intensity", "Its strength at the seam.")
                               .measuredIn(Unit::fraction)
                               .clamped(0, 1),
                           field<&D::halfWidthSec>("halfWidthSec", "Seconds from the seam to no light.")
                               .measuredIn(Unit::seconds)
                               .clamped(0.02, 0.5)}};
    return table;
}

}   // namespace tavix
