#include "TavixRender/KineticText/KineticTextMotion.h"

#include "TavixCore/Typography/KineticStyle.h"

#include <cstdint>

namespace tavix::KineticTextMotion {

std::vector<KineticMath::KineticElement> motionsOf(
    const KineticTextLayout::Result& layout, const KineticStyle& style, const Timing& timing) {
    KineticMath::ScheduleRequest request;
    request.count = int(layout.elements.size());
    request.windowSec = timing.windowSec;
    request.inSec = style.inPhase.durationSec;
    request.outSec = style.outPhase.durationSec;
    request.stagger = style.stagger;
    request.cardDelaySec = timing.cardDelaySec;
    const std::vector<KineticMath::ElementSchedule> schedule = KineticMath::schedule(request);
    std::vector<KineticMath::KineticElement> motions;
    for (const KineticTextLayout::Element& element : layout.elements)
        motions.push_back(
            {element.logicalIndex < schedule.size() ? schedule[element.logicalIndex]
                                                    : KineticMath::ElementSchedule{0, timing.windowSec, 0, 0},
                std::int64_t(element.logicalIndex), element.pivot.x, element.pivot.y,
                element.emphasis ? element.emphasis->scale.value_or(1) : 1, element.restFill});
    return motions;
}

}   // namespace tavix::KineticTextMotion
