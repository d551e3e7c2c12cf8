#include "TavixCore/Document/CompositionLayer.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionLayer>& fieldsOf(std::type_identity<CompositionLayer>) {
    static const Fields<CompositionLayer> table{"CompositionLayer",
        {field<&CompositionLayer::id>("id", "A name to speak of it.").as(Role::identifier),
            field<&CompositionLayer::fromSec>("fromSec", "When it appears, from the start of its scene.")
                .measuredIn(Unit::seconds)
                .unlessDefault(),
            field<&CompositionLayer::durationSec>(
                "durationSec", "How long it stays; to the end of its scene when absent.")
                .measuredIn(Unit::seconds),
            field<&CompositionLayer::fromMark>("fromMark", "When it appears, by a mark of a recording.")
                .as(Role::markStart, "fromSec"),
            field<&CompositionLayer::toMark>("toMark", "When it goes, by a mark of a recording.")
                .as(Role::markEnd, "durationSec"),
            field<&CompositionLayer::fromBeat>(
                "fromBeat", "When it appears, by a beat of the music; beat 0 is the first.")
                .measuredIn(Unit::beats)
                .as(Role::beatStart, "fromSec"),
            field<&CompositionLayer::toBeat>("toBeat", "When it goes, by a beat of the music.")
                .measuredIn(Unit::beats)
                .as(Role::beatEnd, "durationSec"),
            field<&CompositionLayer::position>("position",
                "Where its middle stands, in output pixels from the top left. Clips with a `rect`, fills and devices do not heed it; scale, turn and skew go about it.")
                .measuredIn(Unit::pixels)
                .as(Role::pixelPoint),
            field<&CompositionLayer::opacity>("opacity", "How solid it is.")
                .measuredIn(Unit::fraction)
                .unlessDefault(),
            field<&CompositionLayer::enter>("enter",
                "Where it comes from as it appears. Of a phase around a whole layer, offset, scale, rotationDeg.z (clockwise), opacity and blur count."),
            field<&CompositionLayer::exit>("exit", "Where it goes as it disappears."),
            field<&CompositionLayer::tracks>("tracks", "Its animated properties, one track each.")
                .unlessDefault(),
            field<&CompositionLayer::effects>("effects",
                "Its image effects, applied in order before it is moved. At most 32, and at most 4 chromaticAberration.")
                .unlessDefault(),
            flatField<&CompositionLayer::content>()}};
    return table;
}

}   // namespace tavix
