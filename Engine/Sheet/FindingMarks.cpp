#include "Engine/Sheet/FindingMarks.h"

#include "Engine/Documents/DocumentFile.h"
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

FindingMarks::FindingMarks(std::span<const CompositionLint::Finding> findings, const DocumentFile& document,
    ResolvedComposition& composition, imaging::Evaluator& evaluator)
    : findings_(findings), composition_(composition), evaluator_(evaluator), assets_(document.assetRoot),
      geometry_(document.spec, assets_) {}

std::vector<FindingMark> FindingMarks::at(double globalSec) {
    const std::map<std::size_t, double> shown = scenesAt(composition_.timeline(), globalSec);
    std::vector<FindingMark> marks;
    for (std::size_t i = 0; i < findings_.size(); ++i) {
        const FindingPlace place = placeOf(findings_[i].path);
        const auto scene = place.scene ? shown.find(*place.scene) : shown.end();
        if (scene == shown.end()) continue;
        if (auto mark = markOf(i, place, scene->second)) marks.push_back(*mark);
    }
    return marks;
}

// Nothing while the layer waits or has gone; one that never has its time is marked in the corner.
std::optional<FindingMark> FindingMarks::markOf(
    std::size_t finding, const FindingPlace& place, double localSec) {
    FindingMark mark{
        static_cast<int>(finding) + 1, findings_[finding].level == CompositionLint::Level::error, {}};
    if (!place.layer) return mark;
    const LayerTime time = layerTime(composition_, *place.scene, *place.layer, localSec);
    if (time == LayerTime::other) return std::nullopt;
    if (time == LayerTime::now)
        mark.box = layerBox(composition_, *place.scene, *place.layer, localSec, evaluator_);
    if (time == LayerTime::now && !mark.box)
        mark.box = unseenBox(geometry_, *place.scene, *place.layer, localSec);
    return mark;
}

}   // namespace tavix::engine
