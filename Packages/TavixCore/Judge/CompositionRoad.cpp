#include "TavixCore/Judge/CompositionRoad.h"

#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionBeats.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace tavix::CompositionRoad {
namespace {

void append(
    std::vector<CompositionLint::Finding>& findings, const std::vector<CompositionLint::Finding>& more) {
    std::ranges::copy(more, std::back_inserter(findings));
}

// As far as it goes: with errors among its findings, some of its times are guesses.
CompositionResolution attempt(
    CompositionSpec spec, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    const bool hasMarks = assetRoot && CompositionMarks::containsMarkRefs(spec);
    if (!hasMarks && !CompositionBeats::containsBeatRefs(spec)) return {std::move(spec), {}};
    CompositionResolution resolution = CompositionBeats::resolve(std::move(spec));
    if (!hasMarks) return resolution;
    CompositionResolution marked = CompositionMarks::resolve(std::move(resolution.spec), *assetRoot, load);
    resolution.spec = std::move(marked.spec);
    append(resolution.findings, marked.findings);
    return resolution;
}

// The scene of a path as "scenes[2].layers[0]"; those of the whole document come before all scenes.
int sceneOf(const std::string& path) {
    constexpr std::string_view head = "scenes[";
    return path.starts_with(head) ? std::atoi(path.c_str() + head.size()) : -1;
}

bool isOfLength(const CompositionLint::Finding& finding) {
    return finding.path.ends_with(".durationBeats") && finding.path.find(".layers[") == std::string::npos;
}

// Behind a scene or a transition whose length is in doubt no moment can be judged.
void forgetWhatFollows(std::vector<CompositionLint::Finding>& resolving) {
    int doubtful = std::numeric_limits<int>::max();
    for (const CompositionLint::Finding& finding : resolving)
        if (finding.level == CompositionLint::Level::error && isOfLength(finding))
            doubtful = std::min(doubtful, sceneOf(finding.path));
    std::erase_if(resolving, [&](const CompositionLint::Finding& finding) {
        return !isOfLength(finding) && sceneOf(finding.path) > doubtful;
    });
}

}   // namespace

CompositionResolution resolve(
    CompositionSpec spec, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    CompositionResolution resolution = attempt(spec, assetRoot, load);
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
    CompositionResolution resolution = attempt(spec, assetRoot, load);
    auto linting = CompositionLint::lint(resolution.spec);
    if (hasErrors(resolution.findings)) {
        // Of what lint says, what it would say however the times come out.
        const auto guessed = std::exchange(linting, CompositionLint::lint(spec));
        std::erase_if(linting,
            [&](const auto& finding) { return std::ranges::find(guessed, finding) == guessed.end(); });
        forgetWhatFollows(resolution.findings);
        resolution.spec = std::move(spec);
    }
    Arrival arrival{std::move(resolution.spec), {}};
    arrival.resolving = CompositionLint::atAuthoredPaths(std::move(resolution.findings), arrival.spec);
    arrival.linting = CompositionLint::atAuthoredPaths(std::move(linting), arrival.spec);
    return arrival;
}

Arrival read(
    std::string_view json, const AssetRoot& assetRoot, const CompositionMarks::TimelineLoader& load) {
    return judge(decodeJson<CompositionSpec>(json), assetRoot, load);
}

}   // namespace tavix::CompositionRoad
