#include "TavixCore/Document/CompositionScene.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionScene>& fieldsOf(std::type_identity<CompositionScene>) {
    static const Fields<CompositionScene> table{"CompositionScene",
        {field<&CompositionScene::id>("id", "A name to speak of it.").as(Role::identifier),
            field<&CompositionScene::durationSec>(
                "durationSec", "How long it is, its transition to the next scene included.")
                .measuredIn(Unit::seconds),
            field<&CompositionScene::durationBeats>(
                "durationBeats", "How long it is, in beats of the music; wins over durationSec.")
                .measuredIn(Unit::beats)
                .as(Role::beatLength, "durationSec"),
            field<&CompositionScene::background>("background", "What is behind its layers."),
            field<&CompositionScene::layers>("layers", "Its layers, from back to front."),
            field<&CompositionScene::transition>("transition", "How it gives way to the next scene.")}};
    return table;
}

}   // namespace tavix
