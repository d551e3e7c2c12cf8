// What keys and menus of the timeline do with the selection.
#pragma once

#include "TavixLive/Operations/EditState.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavix::timeline {

enum class Extend { no, toggle, range };
// A click on a layer: alone, or added to and taken from what is selected, or with all between in its scene.
void selectLayer(EditState& state, const LayerPlace& place, Extend extend);
void selectLayers(EditState& state, const std::vector<LayerPlace>& places);   // the last one leads
void selectAllLayers(EditState& state);                                       // of the selected scene

// Of the selected layers, or else of the selected scene.
void deleteSelection(EditState& state);
void duplicateSelection(EditState& state);
// Earlier or later within their scenes; keeps their distances.
void nudgeSelection(EditState& state, double bySec);
// To the front (above 0) or to the back, by a place.
void restackSelection(EditState& state, int by);
void extendToSceneEnd(EditState& state);
// Cuts the selected layers in two at a time of the film; those that it does not meet stay.
void splitSelection(EditState& state, double atSec);

using AssetRoot = std::optional<std::filesystem::path>;
// The selected layers, or the selected scene, as text for a clipboard. Empty when nothing is selected.
std::string copied(const EditState& state, const AssetRoot& assetRoot);
// Puts what was copied, perhaps of another document, into the selected scene at a time of the film, or as a
// scene behind the selected one. Pictures scale to the canvas, and files stay those that they were. False
// where the text holds nothing of the kind: then nothing changes.
bool paste(EditState& state, std::string_view text, double atSec, const AssetRoot& assetRoot);

}   // namespace tavix::timeline
