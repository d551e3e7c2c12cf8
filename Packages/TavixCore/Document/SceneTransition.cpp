#include "TavixCore/Document/SceneTransition.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<SceneTransition>& fieldsOf(std::type_identity<SceneTransition>) {
    static const Fields<SceneTransition> table{"SceneTransition",
        {field<&SceneTransition::style>("style", "How the next scene takes over."),
            field<&SceneTransition::durationSec>(
                "durationSec", "How long the two scenes overlap; the film is shorter by that.")
                .measuredIn(Unit::seconds),
            field<&SceneTransition::durationBeats>(
                "durationBeats", "How long they overlap, in beats of the music; wins over durationSec.")
                .measuredIn(Unit::beats)
                .as(Role::beatLength, "durationSec"),
            field<&SceneTransition::curve>("curve", "How its progress runs."),
            field<&SceneTransition::params>("params", "Strengths of the warping styles.")}};
    return table;
}

}   // namespace tavix
