#include "TavixCore/Document/ShapeContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<ShapeKind>& namesOf(std::type_identity<ShapeKind>) {
    static const Names<ShapeKind> table{
        "shape", {{ShapeKind::rect, "rect"}, {ShapeKind::ellipse, "ellipse"}}, ShapeKind::rect};
    return table;
}

const Fields<ShapeContent>& fieldsOf(std::type_identity<ShapeContent>) {
    static const Fields<ShapeContent> table{"ShapeContent",
        {field<&ShapeContent::shape>("shape", "Its outline."),
            field<&ShapeContent::fill>("fill", "Its paint."),
            field<&ShapeContent::widthFraction>("widthFraction", "Its width, of the canvas."),
            field<&ShapeContent::heightFraction>("heightFraction", "Its height, of the canvas."),
            field<&ShapeContent::cornerRadiusFraction>("cornerRadiusFraction", "How round its corners are."),
            field<&ShapeContent::blurRadiusFraction>("blurRadiusFraction", "How soft its edge is.")}};
    return table;
}

}   // namespace tavix
