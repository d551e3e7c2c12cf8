// Findings of the judge as numbered marks on the pictures of a sheet.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tavix::engine {

// What a finding is about: a layer of a scene, a scene, or neither, which is the document.
struct FindingPlace {
    std::optional<std::size_t> scene, layer;
};
// Of a path such as "scenes[1].layers[0].text.kinetic".
FindingPlace placeOf(std::string_view path);

// A mark on one picture. Its number is the finding's, from 1; without a box it stands in the corner.
struct FindingMark {
    int number = 0;
    bool isError = false;
    std::optional<imaging::Rect> box;   // in pixels of the canvas, y up
};

// Of the findings about what a moment of the film shows.
std::vector<FindingMark> marksAt(double globalSec, std::span<const CompositionLint::Finding> findings,
    ResolvedComposition& composition, imaging::Evaluator& evaluator);

}   // namespace tavix::engine
