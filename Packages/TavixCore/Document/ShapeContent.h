// A rectangle or an ellipse.
#pragma once

#include "TavixCore/Document/ShapeFill.h"
#include "TavixCore/Support/Tables.h"

#include <type_traits>

namespace tavix {

enum class ShapeKind { rect, ellipse };

struct ShapeContent {
    ShapeKind shape = ShapeKind::rect;
    ShapeFill fill = RGBAColor::white;
    double widthFraction = 0.3;   // of the canvas
    double heightFraction = 0.3;
    double cornerRadiusFraction = 0;
    double blurRadiusFraction = 0;
    bool operator==(const ShapeContent&) const = default;
};

const Names<ShapeKind>& namesOf(std::type_identity<ShapeKind>);
const Fields<ShapeContent>& fieldsOf(std::type_identity<ShapeContent>);

}   // namespace tavix
