#include "TavixCore/Animation/PropertyTrack.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<PropertyTrack>& fieldsOf(std::type_identity<PropertyTrack>) {
    static const Fields<PropertyTrack> table{"PropertyTrack",
        {field<&PropertyTrack::property>("property",
             "What is animated, and in what its values count. `opacity`: a share, and a factor of the layer's own. `x`, `y`: shifts to the right and downwards, both in shares of the canvas height. `scale`, `scaleX`, `scaleY`: factors about the layer's `position`. `rotationDeg`: degrees, clockwise. `skewXDeg`, `skewYDeg`: degrees; positive leans the top to the right, or lifts the right side. `blur`: standard deviation in shares of the canvas height.")
                .required(),
            field<&PropertyTrack::keyframes>("keyframes",
                "Its values over time, in rising order. Before the first and after the last the value stays.")}};
    return table;
}

}   // namespace tavix
