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
        {field<&ShapeContent::shape>("shape",
             "Its outline. An ellipse is a rect whose corners are as round as they can be: a circle where it is as wide as high."),
            field<&ShapeContent::fill>("fill",
                "Its paint. A gradient spans the whole canvas, not the shape: the shape is a window on it."),
            field<&ShapeContent::widthFraction>("widthFraction", "Its width.").measuredIn(Unit::canvasWidths),
            field<&ShapeContent::heightFraction>("heightFraction", "Its height.")
                .measuredIn(Unit::canvasHeights),
            field<&ShapeContent::cornerRadiusFraction>(
                "cornerRadiusFraction", "How round the corners of a rect are; 0.5 is a half circle.")
                .measuredIn(Unit::shorterSides),
            field<&ShapeContent::blurRadiusFraction>(
                "blurRadiusFraction", "How soft its edge is: the standard deviation of a blur.")
                .measuredIn(Unit::canvasHeights)}};
    return table;
}

}   // namespace tavix
