#include "TavixCore/Judge/FormationMembers.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

namespace tavix::FilmJudge {
namespace {

using CompositionLint::findingOf;
using CompositionLint::Rule;

constexpr int coarseTimes = 16, denseTimes = 90;
constexpr std::size_t mostCovers = 64;           // of one frame, from the front
constexpr std::size_t mostDoubtfulLayers = 64;   // of one scene
constexpr double seenOpacity = 0.02, seenPixels = 1;
// Of a device of a formation, of the frame, and of the time that it shows.
constexpr double insideFraction = 0.5, fillingFraction = 0.3, insideOpacity = 0.5, leastInsideShare = 0.5;
constexpr double emptyOpeningSec = 0.5, openingStepSec = 1.0 / 30;
constexpr int mostOpeningLooks = 300;

bool showsByItself(const LayerGeometry& layer) {
    return layer.opacity >= seenOpacity && layer.visibleBox.width * layer.visibleBox.height >= seenPixels;
}

bool isCovered(const LayerGeometry& layer, const Outline& cover, const imaging::Rect& canvas) {
    return std::ranges::all_of(layer.parts, [&](const Outline& part) {
        const Outline within = part.cut(canvas);
        return within.isEmpty() || cover.covers(within);
    });
}

// The layer of the frame, in front of that one, which hides it.
const LayerGeometry* coverOf(const FrameGeometry& frame, std::size_t place, const imaging::Rect& canvas) {
    std::size_t looked = 0;
    for (std::size_t above = frame.layers.size(); above-- > place + 1 && looked < mostCovers;) {
        const Outline& solid = frame.layers[above].solid;
        if (solid.isEmpty()) continue;
        ++looked;
        if (isCovered(frame.layers[place], solid, canvas)) return &frame.layers[above];
    }
    return nullptr;
}

std::vector<double> timesOf(const LayerWindow& window, int count) {
    std::vector<double> times;
    for (int i = 0; i < count; ++i) times.push_back(window.startSec + window.lengthSec() * (i + 0.5) / count);
    return times;
}

std::string capitalised(std::string name) {
    if (!name.empty() && name.front() >= 'a' && name.front() <= 'z') name.front() -= 'a' - 'A';
    return name;
}

class SceneWatch {
public:
    SceneWatch(const CompositionGeometry& geometry, std::size_t scene)
        : geometry_(geometry), scene_(scene), wasSeen_(geometry.layers(scene).size(), false) {}

    void watch() {
        const double lengthSec = geometry_.spec().scenes[scene_].durationSec;
        for (const double sec : timesOf({0, lengthSec}, affordableLooks(geometry_, scene_, coarseTimes)))
            look(geometry_.frame(scene_, sec));
        std::size_t doubtful = 0;
        for (std::size_t l = 0; l < wasSeen_.size(); ++l)
            if (!wasSeen_[l] && geometry_.layers(scene_)[l].content && doubtful++ < mostDoubtfulLayers)
                lookCloser(l);
    }

    void tell(std::vector<Finding>& findings) const {
        for (const auto& [layer, reason] : unseen_)
            findings.push_back(findingOf(Rule::neverVisible, pathOf(scene_, layer),
                capitalised(nameOf(*geometry_.layers(scene_)[layer].layer)) + " is never seen: " + reason));
    }

private:
    void look(const FrameGeometry& frame) {
        for (std::size_t place = 0; place < frame.layers.size(); ++place) {
            const LayerGeometry& layer = frame.layers[place];
            if (!wasSeen_[layer.layer] && showsByItself(layer) && !coverOf(frame, place, geometry_.canvas()))
                wasSeen_[layer.layer] = true;
        }
    }

    // What has no file is told as that.
    static bool lacksItsFile(const CompositionGeometry::Layer& entry) {
        return std::holds_alternative<DeviceContent>(entry.layer->content) &&
               entry.content->at(0).parts.empty();
    }

    void lookCloser(std::size_t index) {
        if (lacksItsFile(geometry_.layers(scene_)[index])) return;
        std::optional<std::size_t> cover;
        bool isEmpty = true, isOutside = false;
        for (const double sec :
            timesOf(geometry_.layers(scene_)[index].window, affordableLooks(geometry_, scene_, denseTimes))) {
            const auto alone = geometry_.layerAt(scene_, index, sec);
            if (!alone) continue;
            isEmpty = false;
            isOutside = isOutside || alone->visibleFraction <= 0;
            if (!showsByItself(*alone)) continue;
            const FrameGeometry frame = geometry_.frame(scene_, sec);
            const auto place = std::ranges::find(frame.layers, index, &LayerGeometry::layer);
            const LayerGeometry* above =
                place == frame.layers.end()
                    ? nullptr
                    : coverOf(frame, std::size_t(place - frame.layers.begin()), geometry_.canvas());
            if (above == nullptr) return;   // seen after all
            cover = above->layer;
        }
        unseen_.emplace(index, reasonOf(index, cover, isEmpty, isOutside));
    }

    // By its name, or where its author wrote it.
    std::string placeOf(std::size_t index) const {
        const CompositionLayer& layer = *geometry_.layers(scene_)[index].layer;
        const bool hasName = layer.id || std::holds_alternative<TextContent>(layer.content);
        return hasName ? nameOf(layer)
                       : "layers[" + std::to_string(layer.origin.writtenAs.value_or(index)) + "]";
    }

    std::string reasonOf(
        std::size_t index, std::optional<std::size_t> cover, bool isEmpty, bool isOutside) const {
        if (cover) return placeOf(*cover) + " lies in front of all of it.";
        if (isOutside) return "it stays outside the frame.";
        if (!isEmpty) return "it stays too small or too clear to be seen.";
        const CompositionLayer& layer = *geometry_.layers(scene_)[index].layer;
        const bool drawsNothing = geometry_.layers(scene_)[index].content->at(0).parts.empty();
        return layer.opacity > 0 && drawsNothing ? "it has no size." : "it stays clear; look at its opacity.";
    }

    const CompositionGeometry& geometry_;
    std::size_t scene_;
    std::vector<bool> wasSeen_;
    std::map<std::size_t, std::string> unseen_;   // with the reason
};

// More than half of it, or so near that it fills much of the frame.
bool standsInside(const LayerGeometry& layer, const imaging::Rect& canvas) {
    return layer.visibleFraction >= insideFraction ||
           layer.visibleBox.width * layer.visibleBox.height >= fillingFraction * canvas.width * canvas.height;
}

// The devices of a formation that are outside the frame for most of the time that they show, counted from 1.
std::vector<std::size_t> devicesOutside(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t first, std::size_t count) {
    std::vector<std::size_t> outside;
    for (std::size_t k = 0; k < count; ++k) {
        const auto& entry = geometry.layers(scene)[first + k];
        if (!entry.content) continue;
        int shown = 0, inside = 0;
        for (const double sec : timesOf(entry.window, affordableLooks(geometry, scene, denseTimes)))
            if (const auto layer = geometry.layerAt(scene, first + k, sec))
                if (layer->opacity >= insideOpacity) {
                    ++shown;
                    inside += standsInside(*layer, geometry.canvas());
                }
        if (shown > 0 && inside < shown * leastInsideShare) outside.push_back(k + 1);
    }
    return outside;
}

std::string listOf(const std::vector<std::size_t>& numbers) {
    std::string list;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        list += (i == 0 ? "" : i + 1 == numbers.size() ? " and " : ", ") + std::to_string(numbers[i]);
    return list;
}

// A plain colour behind everything is no beginning; a picture is.
bool isContent(const LayerGeometry& layer, const CompositionLayer& source) {
    if (layer.opacity < 0.05 || !showsByItself(layer)) return false;
    const auto* fill = std::get_if<BackgroundFill>(&source.content);
    return !fill || std::holds_alternative<BackgroundImage>(*fill);
}

}   // namespace

void layersAreSeen(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings) {
    SceneWatch watch(geometry, scene);
    watch.watch();
    watch.tell(findings);
}

void formationsFit(const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings) {
    const std::vector<std::size_t> formations = formationOfEachLayer(geometry.spec().scenes[scene]);
    for (std::size_t first = 0; first < formations.size(); ++first) {
        if (formations[first] != first) continue;
        const auto count = std::size_t(std::ranges::count(formations, first));
        const std::vector<std::size_t> outside = devicesOutside(geometry, scene, first, count);
        if (outside.empty()) continue;
        findings.push_back(findingOf(Rule::formationCut, pathOf(scene, first),
            (outside.size() == 1 ? "Device " : "Devices ") + listOf(outside) + " of the " +
                std::to_string(count) + " of this formation " + (outside.size() == 1 ? "is" : "are") +
                " outside the frame for most of the time.",
            "Use a smaller spread or fewer devices."));
    }
}

void opensWithSomething(
    const CompositionGeometry& geometry, std::size_t scene, std::vector<Finding>& findings) {
    const CompositionScene& source = geometry.spec().scenes[scene];
    if (source.layers.empty()) return;   // a backdrop by itself is meant
    // A transition shows the scene before for the first half of its time.
    const double overlapSec = scene > 0 ? geometry.timeline().transitionDurations[scene - 1] : 0;
    const double opensSec = overlapSec / 2;
    double sec = opensSec;
    int looks = affordableLooks(geometry, scene, mostOpeningLooks);
    for (; sec < source.durationSec; sec += openingStepSec) {
        if (looks-- == 0) break;
        const FrameGeometry frame = geometry.frame(scene, sec);
        if (std::ranges::any_of(frame.layers,
                [&](const LayerGeometry& layer) { return isContent(layer, source.layers[layer.layer]); }))
            break;
    }
    // What is not measured may be seen; a formation opens as it was made to.
    const std::vector<std::size_t> formations = formationOfEachLayer(source);
    bool mayBeMeant = false;
    for (std::size_t l = 0; l < source.layers.size(); ++l) {
        const CompositionGeometry::Layer& entry = geometry.layers(scene)[l];
        const bool isEarly = entry.window.startSec <= opensSec + emptyOpeningSec &&
                             entry.window.startSec < entry.window.endSec;
        mayBeMeant = mayBeMeant || (isEarly && (!entry.content || formations[l] != noFormation));
    }
    if (mayBeMeant || !(sec - opensSec > emptyOpeningSec + openingStepSec / 2)) return;
    findings.push_back(findingOf(Rule::opensEmpty, "scenes[" + std::to_string(scene) + "]",
        source.displayName(scene) + " shows nothing but its background for its first " +
            std::to_string(std::lround((sec - opensSec) * 10) / 10) + "." +
            std::to_string(std::lround((sec - opensSec) * 10) % 10) + " s.",
        "Let something appear within half a second."));
}

}   // namespace tavix::FilmJudge
