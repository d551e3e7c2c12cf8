// The values of layers that keyframes give: what holds at a time of the film is shown, and set there.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"

#include <string>
#include <vector>

namespace tavix {

// Where a layer stands, how it is turned and how much it is seen, at a time of the film. What has no
// keyframes shows the value that changes nothing.
InspectorSection keyframeRows(const EditState& state, const std::vector<LayerPlace>& places, double atSec);

namespace KeyframeEdit {

// In all selected layers. Of what is animated the keyframe at that time changes, or there is a new one; what
// has one value all the time gets another one for all the time. `part` is one of the row's, or empty.
void set(EditState& state, const InspectorRow& row, const std::string& part, double value, double atSec);
// Takes away the keyframe at that time; sets one where there is none, with the value that holds there.
void toggle(EditState& state, const InspectorRow& row, double atSec);

}   // namespace KeyframeEdit

}   // namespace tavix
