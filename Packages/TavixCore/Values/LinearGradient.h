// A gradient along a line, with any number of stops.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/RGBAColor.h"

#include <type_traits>
#include <vector>

namespace tavix {

struct GradientStop {
    RGBAColor color;
    double location = 0;   // along the line, 0 to 1
    bool operator==(const GradientStop&) const = default;
};

struct LinearGradient {
    std::vector<GradientStop> stops;
    double angleDegrees = 0;

    static const LinearGradient& standard();   // a dark blue that darkens
    bool operator==(const LinearGradient&) const = default;
};

const Fields<GradientStop>& fieldsOf(std::type_identity<GradientStop>);
const Fields<LinearGradient>& fieldsOf(std::type_identity<LinearGradient>);

}   // namespace tavix
