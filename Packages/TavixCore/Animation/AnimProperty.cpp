#include "TavixCore/Animation/AnimProperty.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Names<AnimProperty>& namesOf(std::type_identity<AnimProperty>) {
    using enum AnimProperty;
    static const Names<AnimProperty> table{"track property",
        {{opacity, "opacity"}, {x, "x"}, {y, "y"}, {scale, "scale"}, {scaleX, "scaleX"}, {scaleY, "scaleY"},
            {rotationDeg, "rotationDeg"}, {skewXDeg, "skewXDeg"}, {skewYDeg, "skewYDeg"}, {blur, "blur"}}};
    return table;
}

}   // namespace tavix
