#include "TavixReel/Project/ReelSchemas.h"

#include "TavixCore/Support/Document.h"
#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Authoring/TeaserSpec.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <array>

namespace tavix {

std::span<const DocumentSchema> reelSchemas() {
    static constexpr std::array<DocumentSchema, 4> schemas{{
        {"effects", "A whole effects.json: a reel.", typeOf<EffectsSpec>},
        {"flow", "The script of a recording.", typeOf<FlowSpec>},
        {"timeline", "The sidecar of a recording.", typeOf<Timeline>},
        {"teaser", "Headlines one after another, without a recording.", typeOf<TeaserSpec>},
    }};
    return schemas;
}

}   // namespace tavix
