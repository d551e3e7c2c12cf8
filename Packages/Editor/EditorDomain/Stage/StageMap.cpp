#include "Editor/EditorDomain/Stage/StageMap.h"

#include "TavixLive/Operations/LayerOperations.h"
#include "TavixRender/Judge/FilmJudge.h"

#include <cmath>
#include <utility>

namespace tavix {

namespace {

// Between letters and lines there is nothing to aim at.
bool isHeldByItsBox(const CompositionLayer& layer) {
    return std::holds_alternative<TextContent>(layer.content);
}

bool contains(const PixelRect& box, PixelPoint point) {
    return point.x >= box.x && point.x < box.maxX() && point.y >= box.y && point.y < box.maxY();
}

// For people, who need no quotation marks around a text.
std::string plain(std::string name) {
    if (name.size() > 1 && name.front() == '"' && name.back() == '"') return name.substr(1, name.size() - 2);
    return name;
}

}   // namespace

StageMap::StageMap(CompositionSpec spec, const std::optional<std::filesystem::path>& assetRoot)
    : spec_(std::move(spec)), assets_(assetRoot), geometry_(spec_, assets_) {}

std::vector<CompositionTimeline::ActiveScene> StageMap::scenesAt(double atSec) const {
    const auto sample = geometry_.timeline().sample(atSec);
    if (!sample) return {};
    std::vector<CompositionTimeline::ActiveScene> scenes{sample->outgoing};
    if (sample->incoming) scenes.push_back(*sample->incoming);
    return scenes;
}

StageLayer StageMap::named(std::size_t scene, const LayerGeometry& geometry) const {
    return {{scene, geometry.layer}, geometry.box,
        plain(FilmJudge::nameOf(spec_.scenes[scene].layers[geometry.layer])), standOf(scene, geometry)};
}

StageStand StageMap::standOf(std::size_t scene, const LayerGeometry& geometry) const {
    const CompositionLayer& layer = spec_.scenes[scene].layers[geometry.layer];
    const imaging::Rect& canvas = geometry_.canvas();
    const imaging::Affine& motion = geometry.motion;
    // Its anchor goes where the motion shifts it, and nowhere else. Pictures have their y up.
    const imaging::Point anchor{layer.position.x, canvas.height - layer.position.y};
    const imaging::Point moved = motion.apply(anchor);
    StageStand stand{canvas.width, canvas.height,
        LayerOperations::layerWindowLength(spec_, scene, geometry.layer),
        {moved.x - anchor.x, anchor.y - moved.y}, std::hypot(motion.a, motion.b),
        std::hypot(motion.c, motion.d), {}};
    if (const auto* image = std::get_if<ImageContent>(&layer.content); image && !image->heightFraction)
        if (const auto& header = assets_.still(image->path).header)
            stand.heightFraction =
                (image->sourceRect ? image->sourceRect->height : 1) * header->size.height / canvas.height;
    return stand;
}

std::vector<StageLayer> StageMap::layersAt(double atSec) const {
    std::vector<StageLayer> found;
    for (const auto& scene : scenesAt(atSec))
        for (const LayerGeometry& layer : geometry_.frame(scene.index, scene.localSeconds).layers)
            if (layer.isVisible()) found.push_back(named(scene.index, layer));
    return found;
}

std::optional<StageLayer> StageMap::hit(PixelPoint canvas, double atSec) const {
    const imaging::Rect& whole = geometry_.canvas();
    const imaging::Point point{canvas.x, whole.height - canvas.y};   // of pictures, y up
    std::optional<StageLayer> behind;
    const auto scenes = scenesAt(atSec);
    for (auto scene = scenes.rbegin(); scene != scenes.rend(); ++scene) {
        const FrameGeometry frame = geometry_.frame(scene->index, scene->localSeconds);
        for (auto layer = frame.layers.rbegin(); layer != frame.layers.rend(); ++layer) {
            if (!layer->isVisible()) continue;
            bool isHit = isHeldByItsBox(spec_.scenes[scene->index].layers[layer->layer]) &&
                         contains(layer->box, canvas);
            for (const Outline& part : layer->parts) isHit = isHit || part.contains(point);
            if (!isHit) continue;
            if (!layer->solid.covers(Outline::of(whole))) {
                const bool isAll = layer->box.x <= 0 && layer->box.y <= 0 &&
                                   layer->box.maxX() >= whole.width && layer->box.maxY() >= whole.height;
                if (!isAll) return named(scene->index, *layer);
            }
            if (!behind) behind = named(scene->index, *layer);
        }
    }
    return behind;
}

std::optional<StageLayer> StageMap::layer(const StagePlace& place, double atSec) const {
    for (const auto& scene : scenesAt(atSec)) {
        if (scene.index != place.scene) continue;
        if (place.layer >= spec_.scenes[place.scene].layers.size()) continue;
        if (const auto found = geometry_.layerAt(place.scene, place.layer, scene.localSeconds))
            return named(place.scene, *found);
    }
    return std::nullopt;
}

}   // namespace tavix
