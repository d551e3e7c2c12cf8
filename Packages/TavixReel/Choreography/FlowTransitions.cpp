#include "TavixReel/Choreography/FlowTransitions.h"

#include "TavixReel/Choreography/PlacementTrack.h"
#include "TavixReel/Flow/FlowSpec.h"

#include <algorithm>

namespace tavix {

std::vector<ScreenTransition> transitionsOf(const FlowSpec& flow, const Timeline& timeline) {
    std::vector<ScreenTransition> transitions;
    for (const Step& step : flow.steps) {
        const auto style = step.resolvedTransitionStyle();
        const auto event = std::ranges::find(timeline.events, step.index, &Timeline::Event::index);
        if (!style || event == timeline.events.end()) continue;
        ScreenTransition& transition = transitions.emplace_back();
        transition.atSec = event->actionSec.value_or(event->tSec) + ChoreographyAuthor::flipTapHoldSec;
        transition.revealSec = transition.atSec + ChoreographyAuthor::flipResponseSec;
        transition.style = *style;
        transition.timing = step.resolvedTransitionTiming();
    }
    return transitions;
}

}   // namespace tavix
