// The one judge of a composition's numbers and structure. Reading a document accepts nearly anything; what
// cannot be rendered, or looks wrong on screen, is told here. A pure function of the document: it opens no
// file.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Findings/CompositionFinding.h"

#include <vector>

namespace tavix::CompositionLint {

// Sizes of text as fractions of the canvas: below them it cannot be read at the distance of a video.
inline constexpr double labelSizeFloor = 0.017;     // any text; about 32 px on a canvas 1080 wide
inline constexpr double supportSizeFloor = 0.023;   // a sentence

// In the order of the document. Nothing found: it can be rendered.
std::vector<Finding> lint(const CompositionSpec& spec);

}   // namespace tavix::CompositionLint
