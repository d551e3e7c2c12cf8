#include "Engine/Sheet/FindingMarks.h"

#include "Engine/Sheet/LayerBox.h"

#include <charconv>
#include <map>

namespace tavix::engine {

namespace {

// The index behind a word such as "scenes[", which is taken off the path.
std::optional<std::size_t> takeIndex(std::string_view& path, std::string_view word) {
    if (!path.starts_with(word)) return std::nullopt;
    std::size_t index = 0;
    const char* const begin = path.data() + word.size();
    const auto [end, error] = std::from_chars(begin, path.data() + path.size(), index);
    if (error != std::errc() || end == path.data() + path.size() || *end != ']') return std::nullopt;
    path.remove_prefix(static_cast<std::size_t>(end + 1 - path.data()));
    return index;
}

// The scenes that a moment shows, with their own clocks.
std::map<std::size_t, double> scenesAt(const CompositionTimeline& timeline, double globalSec) {
    std::map<std::size_t, double> scenes;
    if (const auto sample = timeline.sample(globalSec)) {
        scenes[sample->outgoing.index] = sample->outgoing.localSeconds;
        if (sample->incoming) scenes[sample->incoming->index] = sample->incoming->localSeconds;
    }
    return scenes;
}

}   // namespace

FindingPlace placeOf(std::string_view path) {
    FindingPlace place;
    place.scene = takeIndex(path, "scenes[");
    if (place.scene) place.layer = takeIndex(path, ".layers[");
    return place;
}

std::vector<FindingMark> marksAt(double globalSec, std::span<const CompositionLint::Finding> findings,
    ResolvedComposition& composition, imaging::Evaluator& evaluator) {
    const std::map<std::size_t, double> shown = scenesAt(composition.timeline(), globalSec);
    std::vector<FindingMark> marks;
    for (std::size_t i = 0; i < findings.size(); ++i) {
        const FindingPlace place = placeOf(findings[i].path);
        const auto scene = place.scene ? shown.find(*place.scene) : shown.end();
        if (scene == shown.end()) continue;
        FindingMark mark{static_cast<int>(i) + 1, findings[i].level == CompositionLint::Level::error, {}};
        if (place.layer) {
            mark.box = layerBox(composition, scene->first, *place.layer, scene->second, evaluator);
            if (!mark.box) continue;
        }
        marks.push_back(std::move(mark));
    }
    return marks;
}

}   // namespace tavix::engine
