#include "TavixRender/Judge/FrameGeometry.h"

#include "TavixCore/Device/DeviceDepthTrajectory.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace tavix {
namespace {

using imaging::Rect;

constexpr double visibleOpacity = 0.001, visibleBlurFraction = 0.0005;
// Texts take the most time; a document with more of them is measured in part.
constexpr std::size_t mostMeasuredLayers = 4000;

// Sizes, rates and lengths that a film can have; anything else is told by other rules.
bool canBeMeasured(const CompositionSpec& spec) {
    constexpr std::int64_t mostSidePx = 30'000;
    constexpr double mostFps = 1000, mostSec = 6 * 3600;
    const CompositionOutput& output = spec.output;
    const auto fps = double(output.fps);
    return output.widthPx > 0 && output.heightPx > 0 && output.widthPx <= mostSidePx &&
           output.heightPx <= mostSidePx && fps > 0 && fps <= mostFps &&
           std::ranges::all_of(spec.scenes, [](const CompositionScene& scene) {
               return scene.durationSec >= 0 && scene.durationSec <= mostSec;
           });
}

// A trajectory is kept frame by frame: one that runs for years is not measured.
bool isBrief(const CompositionLayer& layer) {
    constexpr double mostSec = 3600;
    const auto* device = std::get_if<DeviceContent>(&layer.content);
    if (device == nullptr) return true;
    const auto within = [](const auto& track) {
        return std::ranges::all_of(
            track, [](const auto& keyframe) { return std::abs(keyframe.tSec) <= mostSec; });
    };
    const auto isQuick = [](double responseSec) { return responseSec <= mostSec; };
    if (device->placement && !(within(device->placement->track) && isQuick(device->placement->responseSec)))
        return false;
    return !device->scene3D ||
           (within(device->scene3D->poseTrack) && isQuick(device->scene3D->poseResponseSec));
}

PixelRect flipped(const Rect& rect, const Rect& canvas) {
    return {rect.x, canvas.height - rect.maxY(), rect.width, rect.height};
}

bool isFinite(const Outline& outline) {
    return std::ranges::all_of(
        outline.points(), [](imaging::Point p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

// Ink and what of it lies within the frame.
void measure(LayerGeometry& geometry, const Rect& canvas) {
    Rect all, within;
    double area = 0, seen = 0;
    for (const Outline& part : geometry.parts) {
        const Outline cut = part.cut(canvas);
        all = imaging::unionOf(all, part.bounds());
        within = imaging::unionOf(within, cut.bounds());
        area += part.area();
        seen += cut.area();
    }
    geometry.box = flipped(all, canvas);
    geometry.visibleBox = flipped(within, canvas);
    geometry.visibleFraction = area > 0 ? std::min(seen / area, 1.0) : 0;
}

// A run of neighbouring devices in space stands with the nearest last; see ResolvedComposition.
void orderByDepth(std::vector<LayerGeometry>& layers, const std::vector<std::optional<double>>& depths) {
    std::vector<std::size_t> order(layers.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    for (std::size_t begin = 0; begin < order.size();) {
        std::size_t end = begin + 1;
        if (depths[begin])
            while (end < order.size() && depths[end] && layers[end].layer == layers[end - 1].layer + 1) ++end;
        std::stable_sort(order.begin() + std::ptrdiff_t(begin), order.begin() + std::ptrdiff_t(end),
            [&](std::size_t a, std::size_t b) { return depths[a] && depths[b] && *depths[a] < *depths[b]; });
        begin = end;
    }
    std::vector<LayerGeometry> sorted;
    for (const std::size_t i : order) sorted.push_back(std::move(layers[i]));
    layers = std::move(sorted);
}

std::optional<double> depthOf(const CompositionLayer& layer, double layerSec) {
    const auto* device = std::get_if<DeviceContent>(&layer.content);
    if (device == nullptr || !device->scene3D) return std::nullopt;
    return DeviceDepthTrajectory::sample(device->scene3D->depthTrack, layerSec);
}

}   // namespace

CompositionGeometry::CompositionGeometry(const CompositionSpec& spec, FilmAssets& assets)
    : spec_(spec), timeline_(spec), canvas_{0, 0, double(spec.output.widthPx), double(spec.output.heightPx)} {
    if (!canBeMeasured(spec_)) {
        scenes_.resize(spec_.scenes.size());
        return;
    }
    const ShapeSetting setting{spec_, assets, canvas_, double(spec_.output.fps)};
    std::size_t measured = 0;
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        auto& layers = scenes_.emplace_back();
        for (std::size_t j = 0; j < spec_.scenes[i].layers.size(); ++j) {
            const CompositionLayer& layer = spec_.scenes[i].layers[j];
            const LayerWindow window = shownWindow(layer, spec_.scenes[i]);
            const bool isShown =
                window.startSec < window.endSec && isBrief(layer) && measured++ < mostMeasuredLayers;
            layers.push_back(
                {&layer, window, isShown ? geometryOf(layer, {i, j, window.lengthSec()}, setting) : nullptr});
        }
    }
}

CompositionGeometry::~CompositionGeometry() = default;

std::optional<LayerGeometry> CompositionGeometry::layerAt(
    std::size_t scene, std::size_t index, double localSec) const {
    const Layer& entry = scenes_[scene][index];
    if (!entry.content || !entry.window.contains(localSec)) return std::nullopt;
    const CompositionLayer& layer = *entry.layer;
    const double layerSec = localSec - entry.window.startSec;
    const LayerMotion motion = LayerMotion::at(layer, layerSec, entry.window.lengthSec());
    if (!(motion.opacity > visibleOpacity)) return std::nullopt;
    ContentShape shape = entry.content->at(layerSec);
    if (shape.parts.empty()) return std::nullopt;

    LayerGeometry geometry;
    geometry.layer = index;
    geometry.opacity = std::min(motion.opacity, 1.0) * shape.opacity;
    const imaging::Point anchor{layer.position.x, canvas_.height - layer.position.y};
    geometry.motion = motion.movesNothing() ? imaging::Affine() : motion.transform(anchor, canvas_.height);
    for (const Outline& part : shape.parts) {
        Outline moved = part.transformed(geometry.motion);
        if (!isFinite(moved)) return std::nullopt;
        geometry.parts.push_back(std::move(moved));
    }
    const bool isSharp = motion.blurFraction <= visibleBlurFraction && layer.effects.empty();
    if (isSharp && geometry.opacity >= 1 - visibleOpacity)
        geometry.solid = shape.solid.transformed(geometry.motion);
    if (isSharp) geometry.paint = std::move(shape.paint);
    measure(geometry, canvas_);
    return geometry;
}

FrameGeometry CompositionGeometry::frame(std::size_t scene, double localSec) const {
    FrameGeometry frame{scene, localSec, {}};
    std::vector<std::optional<double>> depths;
    for (std::size_t l = 0; l < scenes_[scene].size(); ++l)
        if (auto geometry = layerAt(scene, l, localSec)) {
            const Layer& entry = scenes_[scene][l];
            depths.push_back(depthOf(*entry.layer, localSec - entry.window.startSec));
            frame.layers.push_back(std::move(*geometry));
        }
    orderByDepth(frame.layers, depths);
    return frame;
}

}   // namespace tavix
