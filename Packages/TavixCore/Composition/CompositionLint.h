// The one judge of a composition's numbers and structure. Reading a document accepts nearly anything; what
// cannot be rendered, or looks wrong on screen, is told here. A pure function of the document: it opens no
// file.
#pragma once

#include "TavixCore/Composition/CompositionFinding.h"
#include "TavixCore/Composition/CompositionSpec.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tavix::CompositionLint {

// Sizes of text as fractions of the canvas: below them it cannot be read at the distance of a video.
inline constexpr double labelSizeFloor = 0.017;     // any text; about 32 px on a canvas 1080 wide
inline constexpr double supportSizeFloor = 0.023;   // a sentence

// In the order of the document. Nothing found: it can be rendered.
std::vector<Finding> lint(const CompositionSpec& spec);

// A number as it stands in a message: a whole one as an integer, another with three significant digits.
std::string fmt(double number);

// Insertions, deletions and replacements of characters that lead from one to the other.
std::size_t editDistance(std::string_view a, std::string_view b);

// "Did you mean ...?" with the candidate nearest to the word; nothing when none is near.
std::optional<std::string> didYouMean(std::string_view word, std::span<const std::string_view> candidates);

}   // namespace tavix::CompositionLint
