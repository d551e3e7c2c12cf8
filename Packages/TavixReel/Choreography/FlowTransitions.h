// The screen transitions that the steps of a flow ask for.
#pragma once

#include "TavixCore/Document/ScreenTransition.h"
#include "TavixCore/Timeline/Timeline.h"

#include <vector>

namespace tavix {

struct FlowSpec;

// A step's new screen takes over once its gesture has been seen. A step that the sidecar does not know has
// none; nor has one whose word is no style.
std::vector<ScreenTransition> transitionsOf(const FlowSpec& flow, const Timeline& timeline);

}   // namespace tavix
