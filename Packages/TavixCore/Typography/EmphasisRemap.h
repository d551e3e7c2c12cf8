// Emphasis carried across an edit of its text.
#pragma once

#include "TavixCore/Typography/EmphasisSpan.h"

#include <string_view>
#include <vector>

namespace tavix::EmphasisRemap {

// A word keeps its emphasis when the same word is still there: the second "the" stays with the second "the".
// A span without any word left goes.
std::vector<EmphasisSpan> remap(
    const std::vector<EmphasisSpan>& spans, std::string_view oldText, std::string_view newText);

}   // namespace tavix::EmphasisRemap
