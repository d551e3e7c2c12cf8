#include "TavixCore/Animation/CompositionKeyframe.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionKeyframe>& fieldsOf(std::type_identity<CompositionKeyframe>) {
    static const Fields<CompositionKeyframe> table{"CompositionKeyframe",
        {field<&CompositionKeyframe::t>("t", "When, from the layer's start.").measuredIn(Unit::seconds),
            field<&CompositionKeyframe::value>("value", "The value then, in the unit of its track."),
            field<&CompositionKeyframe::ease>("ease", "How the value gets here from the keyframe before.")
                .unlessDefault(),
            field<&CompositionKeyframe::atMark>("atMark", "When, by a mark of a recording; wins over t.")
                .as(Role::markMoment, "t"),
            field<&CompositionKeyframe::atBeat>("atBeat", "When, by a beat of the music; wins over t.")
                .measuredIn(Unit::beats)
                .as(Role::beatMoment, "t")}};
    return table;
}

}   // namespace tavix
