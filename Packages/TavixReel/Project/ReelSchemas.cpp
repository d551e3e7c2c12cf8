#include "TavixReel/Project/ReelSchemas.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <array>

namespace tavix {

std::span<const DocumentSchema> reelSchemas() {
    static constexpr std::array<DocumentSchema, 3> schemas{{
        {"effects", "A whole effects.json: a reel.", typeOf<EffectsSpec>},
        {"flow", "The script of a recording.", typeOf<FlowSpec>},
        {"timeline", "The sidecar of a recording.", typeOf<Timeline>},
    }};
    return schemas;
}

}   // namespace tavix
