#include "TavixCore/Document/CompositionLayer.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionLayer>& fieldsOf(std::type_identity<CompositionLayer>) {
    static const Fields<CompositionLayer> table{"CompositionLayer",
        {field<&CompositionLayer::id>("id", "A name to speak of it."),
            field<&CompositionLayer::fromSec>("fromSec", "When it appears, in seconds of its scene.")
                .unlessDefault(),
            field<&CompositionLayer::durationSec>(
                "durationSec", "How long it stays; without it, to the end."),
            field<&CompositionLayer::fromMark>("fromMark", "When it appears, by a mark of a recording.")
                .as(Role::markStart, "fromSec"),
            field<&CompositionLayer::toMark>("toMark", "When it goes, by a mark of a recording.")
                .as(Role::markEnd, "durationSec"),
            field<&CompositionLayer::fromBeat>("fromBeat", "When it appears, by a beat of the music.")
                .as(Role::beatStart, "fromSec"),
            field<&CompositionLayer::toBeat>("toBeat", "When it goes, by a beat of the music.")
                .as(Role::beatEnd, "durationSec"),
            field<&CompositionLayer::position>("position", "Where its middle stands, in output pixels.")
                .as(Role::pixelPoint),
            field<&CompositionLayer::opacity>("opacity", "0 clear, 1 solid.").unlessDefault(),
            field<&CompositionLayer::enter>("enter", "Where it comes from as it appears."),
            field<&CompositionLayer::exit>("exit", "Where it goes as it disappears."),
            field<&CompositionLayer::tracks>("tracks", "Its animated properties.").unlessDefault(),
            field<&CompositionLayer::effects>("effects", "Its image effects, applied in order.")
                .unlessDefault(),
            flatField<&CompositionLayer::content>()}};
    return table;
}

}   // namespace tavix
