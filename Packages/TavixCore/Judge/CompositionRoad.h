// The one road of a composition from bytes to what is rendered: read, with device animations turned into
// tracks; beats and then marks turned into seconds; judged. The engine and the editor both go it.
#pragma once

#include "TavixCore/Time/CompositionMarks.h"
#include "TavixCore/Time/CompositionResolution.h"

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace tavix::CompositionRoad {

// Where relative clip paths hang from; a document without a folder keeps its marks.
using AssetRoot = std::optional<std::filesystem::path>;

// Beats, then marks. On any error the document stays as it was, references and all.
CompositionResolution resolve(CompositionSpec spec, const AssetRoot& assetRoot,
    const CompositionMarks::TimelineLoader& load = CompositionMarks::loadTimeline);

// Where a document has arrived.
struct Arrival {
    CompositionSpec spec;                                 // in seconds, unless `resolving` has errors
    std::vector<CompositionLint::Finding> resolving;      // of beats and marks
    std::vector<CompositionLint::Finding> linting = {};   // of `spec`

    bool isResolved() const { return !hasErrors(resolving); }
    bool mayRender() const { return isResolved() && !hasErrors(linting); }
    std::vector<CompositionLint::Finding> findings() const;   // all of them, in the order of the road
    bool operator==(const Arrival&) const = default;
};

// From a document that has been read. Where times cannot be resolved, what would follow from that alone is
// not told: neither moments behind a length in doubt, nor what lint says of times that are not there yet.
Arrival judge(CompositionSpec spec, const AssetRoot& assetRoot,
    const CompositionMarks::TimelineLoader& load = CompositionMarks::loadTimeline);

// From the text of a document. Throws what reading throws.
Arrival read(std::string_view json, const AssetRoot& assetRoot,
    const CompositionMarks::TimelineLoader& load = CompositionMarks::loadTimeline);

}   // namespace tavix::CompositionRoad
