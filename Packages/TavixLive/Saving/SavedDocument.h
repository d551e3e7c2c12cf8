// What is written when an edited document is saved: the document as its author wrote it, changed where the
// user changed it. Named motions, formations, beats, marks and keys that nobody knows stay where no edit
// touched them; what an edit touched is written as it has become.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Time/CompositionMarks.h"

#include <filesystem>
#include <optional>

namespace tavix {

struct SavingRoad {
    std::optional<std::filesystem::path> assetRoot;   // of the document's files
    CompositionMarks::TimelineLoader load = CompositionMarks::loadTimeline;
};

// `written` read and resolved gave `base`, which has become `current`. Reading and resolving the result gives
// `current` again. Reads sidecars of recordings.
Json savedDocument(const Json& written, const CompositionSpec& base, const CompositionSpec& current,
    const SavingRoad& road = {});

}   // namespace tavix
