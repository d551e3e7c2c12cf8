// Findings of the judge as numbered marks on the pictures of a sheet.
#pragma once

#include "TavixCore/Findings/CompositionFinding.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Judge/FrameGeometry.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace tavix {
struct DocumentFile;
}

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

// Knows where the layers of a document stand, also those that nothing is seen of.
class FindingMarks {
public:
    // All of these outlive it; the times of the document are in seconds.
    FindingMarks(std::span<const CompositionLint::Finding> findings, const DocumentFile& document,
        ResolvedComposition& composition, imaging::Evaluator& evaluator);

    // Of the findings about what a moment of the film shows.
    std::vector<FindingMark> at(double globalSec);

private:
    std::optional<FindingMark> markOf(std::size_t finding, const FindingPlace& place, double localSec);

    std::span<const CompositionLint::Finding> findings_;
    ResolvedComposition& composition_;
    imaging::Evaluator& evaluator_;
    FilmAssets assets_;
    CompositionGeometry geometry_;
};

}   // namespace tavix::engine
