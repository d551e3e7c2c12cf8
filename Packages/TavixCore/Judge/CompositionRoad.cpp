#include "TavixCore/Judge/CompositionRoad.h"

#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionBeats.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavix::CompositionRoad {
namespace {

void append(
    std::vector<CompositionLint::Finding>& findings, const std::vector<CompositionLint::Finding>& more) {
    std::ranges::copy(more, std::back_inserter(findings));
}

}   // namespace

CompositionResolution resolve(
    CompositionSpec spec, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    const bool hasMarks = assetRoot && CompositionMarks::containsMarkRefs(spec);
    if (!hasMarks && !CompositionBeats::containsBeatRefs(spec)) return {std::move(spec), {}};
    CompositionResolution resolution = CompositionBeats::resolve(spec);
    if (hasMarks) {
        CompositionResolution marked =
            CompositionMarks::resolve(std::move(resolution.spec), *assetRoot, load);
        resolution.spec = std::move(marked.spec);
        append(resolution.findings, marked.findings);
    }
    if (hasErrors(resolution.findings)) resolution.spec = std::move(spec);
    resolution.findings = CompositionLint::atAuthoredPaths(std::move(resolution.findings), resolution.spec);
    return resolution;
}

std::vector<CompositionLint::Finding> Arrival::findings() const {
    std::vector<CompositionLint::Finding> all = resolving;
    append(all, linting);
    return all;
}

Arrival judge(
    CompositionSpec spec, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    CompositionResolution resolution = resolve(std::move(spec), assetRoot, load);
    Arrival arrival{std::move(resolution.spec), std::move(resolution.findings)};
    arrival.linting = CompositionLint::atAuthoredPaths(CompositionLint::lint(arrival.spec), arrival.spec);
    return arrival;
}

Arrival read(
    std::string_view json, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    return judge(decodeJson<CompositionSpec>(json), assetRoot, load);
}

}   // namespace tavix::CompositionRoad
