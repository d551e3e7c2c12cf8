#include "TavixCore/Animation/PropertyTrack.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<PropertyTrack>& fieldsOf(std::type_identity<PropertyTrack>) {
    static const Fields<PropertyTrack> table{"PropertyTrack",
        {field<&PropertyTrack::property>("property", "What is animated.").required(),
            field<&PropertyTrack::keyframes>("keyframes", "Its values over time, in rising order.")}};
    return table;
}

}   // namespace tavix
