// Edits of whole scenes.
#pragma once

#include "TavixLive/Operations/EditState.h"

namespace tavix::SceneOperations {

void addScene(EditState& state);
void duplicateScene(EditState& state, std::size_t scene);
void removeScene(EditState& state, std::size_t scene);   // never the last one
void moveScene(EditState& state, std::size_t from, std::size_t to);
// With a background of its own, which is at first the document's.
void setSceneBackgroundOverride(EditState& state, std::size_t scene, bool isEnabled);
// All that hangs on the scene's clock is stretched with it; transitions keep their length. At least 0.1 s.
void setSceneDurationRescaling(EditState& state, std::size_t scene, double toSec);

}   // namespace tavix::SceneOperations
