#include "TavixRender/Composition2D/ResolvedComposition.h"

#include "TavixBase/Overloaded.h"
#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixRender/Composition2D/Device3DCompositionLayer.h"
#include "TavixRender/Composition2D/DeviceCompositionLayer.h"
#include "TavixRender/Composition2D/FillCompositionLayer.h"
#include "TavixRender/Composition2D/ImageCompositionLayer.h"
#include "TavixRender/Composition2D/ShapeCompositionLayer.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/Composition2D/VideoCompositionLayer.h"
#include "TavixRender/Compositor/TransitionBlend.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/DeviceScene/DeviceDarkroom.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <utility>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;

constexpr std::uint64_t seedStepOfScene = 1009, seedStepOfLayer = 9176;

// What a layer is told besides its content.
struct LayerPlace {
    const CompositionSpec& spec;
    double windowSec;
    std::int64_t presetSeed;                  // of a text
    Composition3DRendererPool::Key poolKey;   // of a device in space
};

std::unique_ptr<CompositionLayerContentRenderer> makeTextRenderer(const TextContent& text,
    const CompositionLayer& layer, const LayerPlace& place, const LayerBuild& build) {
    const NormalizedPoint position{
        layer.position.x / build.bounds.width, layer.position.y / build.bounds.height};
    return std::make_unique<TextCompositionLayer>(text,
        TextCompositionLayer::Setting{build.bounds, position, place.spec.fonts, build.assetRoot},
        place.presetSeed, KineticElementGroup::Window{place.windowSec, double(place.spec.output.fps)}, build);
}

std::unique_ptr<CompositionLayerContentRenderer> makeDeviceRenderer(const DeviceContent& device,
    const CompositionLayer& layer, const LayerBuild& build, const Composition3DRendererPool::Key& poolKey) {
    if (device.scene3D) {
        if (auto inSpace = Device3DCompositionLayer::make(device, build, poolKey)) return inSpace;
        tell(build.log, Finding::warning(RenderCode::phoneMissing,
                            "scene3D requested but the 3D device pass is unavailable (no model/GPU) — "
                            "rendering the flat mockup."));
    }
    return std::make_unique<DeviceCompositionLayer>(device, layer, build);
}

std::unique_ptr<CompositionLayerContentRenderer> makeRenderer(
    const CompositionLayer& layer, const LayerPlace& place, const LayerBuild& build) {
    using Made = std::unique_ptr<CompositionLayerContentRenderer>;
    return std::visit(
        Overloaded{
            [&](const TextContent& text) -> Made { return makeTextRenderer(text, layer, place, build); },
            [&](const DeviceContent& device) -> Made {
                return makeDeviceRenderer(device, layer, build, place.poolKey);
            },
            [&](const ImageContent& image) -> Made {
                return std::make_unique<ImageCompositionLayer>(image, layer, build);
            },
            [&](const VideoContent& video) -> Made {
                return std::make_unique<VideoCompositionLayer>(video, build);
            },
            [&](const ShapeContent& shape) -> Made {
                return std::make_unique<ShapeCompositionLayer>(shape, layer, build);
            },
            [&](const BackgroundFill& fill) -> Made {
                return std::make_unique<FillCompositionLayer>(fill, build);
            },
        },
        layer.content);
}

// Where a picture ends can be seen; where the box of letters or of a device ends cannot.
CompositionLayerEffects::Vignetted vignettedOf(const CompositionLayer& layer) {
    using Vignetted = CompositionLayerEffects::Vignetted;
    return std::visit(Overloaded{
                          [](const ImageContent&) { return Vignetted::layer; },
                          [](const VideoContent&) { return Vignetted::layer; },
                          [](const BackgroundFill&) { return Vignetted::layer; },
                          [](const TextContent&) { return Vignetted::canvas; },
                          [](const DeviceContent&) { return Vignetted::canvas; },
                          [](const ShapeContent&) { return Vignetted::canvas; },
                      },
        layer.content);
}

// Only a device in space that is live at that time and has a depth then.
std::optional<double> liveDepth(const ResolvedCompositionLayer& resolved, double localSec) {
    const auto* device = std::get_if<DeviceContent>(&resolved.layer.content);
    if (device == nullptr || !device->scene3D || !resolved.window.contains(localSec)) return std::nullopt;
    return DeviceDepthTrajectory::sample(device->scene3D->depthTrack, localSec - resolved.window.startSec);
}

}   // namespace

imaging::Size canvasSize(const CompositionSpec& spec) {
    const auto side = [](std::int64_t px) {
        return static_cast<int>(std::clamp<std::int64_t>(px, 0, std::numeric_limits<int>::max()));
    };
    return {side(spec.output.widthPx), side(spec.output.heightPx)};
}

ResolvedComposition::ResolvedComposition(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
    const RenderLog& log, Composition3DRendererPool* rendererPool)
    : spec_(spec),
      timeline_(spec_), bounds_{0, 0, double(spec_.output.widthPx), double(spec_.output.heightPx)} {
    const RenderLog told = onceEach(log);
    std::string path;   // of what is built now
    StillImageCache images([&](const Finding& finding) { tell(placedAt(path, told), finding); });
    const text::FontBook fonts;
    const auto documentRoot =
        spec_.assetRoot ? std::optional<std::filesystem::path>(*spec_.assetRoot) : std::nullopt;
    const LayerBuild build{bounds_, double(spec_.output.fps), assetRoot ? assetRoot : documentRoot, evaluator,
        images, fonts, told, rendererPool, std::make_shared<DeviceDarkroom>()};
    buildBackgrounds(build, path);
    buildLayers(build, path);
}

void ResolvedComposition::buildBackgrounds(const LayerBuild& build, std::string& path) {
    std::vector<std::pair<BackgroundFill, Image>> drawn;   // most scenes share one
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const CompositionScene& scene = spec_.scenes[i];
        path = scene.background ? "scenes[" + std::to_string(i) + "].background" : "background";
        const BackgroundFill& fill = scene.background ? *scene.background : spec_.background;
        auto known = std::ranges::find(drawn, fill, &std::pair<BackgroundFill, Image>::first);
        if (known == drawn.end())
            known = drawn.insert(drawn.end(), {fill, FillCompositionLayer::drawn(fill, build)});
        backgrounds_.push_back(known->second);
    }
}

void ResolvedComposition::buildLayers(const LayerBuild& build, std::string& path) {
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const CompositionScene& scene = spec_.scenes[i];
        auto& resolved = layers_.emplace_back();
        for (std::size_t j = 0; j < scene.layers.size(); ++j) {
            const CompositionLayer& layer = scene.layers[j];
            const LayerWindow window = shownWindow(layer, scene);
            if (!(window.startSec < window.endSec)) continue;
            const imaging::Point anchor{layer.position.x, bounds_.height - layer.position.y};
            path = CompositionLint::authoredPath(
                "scenes[" + std::to_string(i) + "].layers[" + std::to_string(j) + "]", spec_);
            LayerBuild here = build;
            here.log = placedAt(path, build.log);
            const LayerPlace place{spec_, window.lengthSec(), presetSeed(spec_.seed, i, j), {i, j}};
            resolved.push_back({layer, makeRenderer(layer, place, here), window, anchor,
                {layer.effects, bounds_, vignettedOf(layer)}});
            hasDevicesInSpace_ = hasDevicesInSpace_ || resolved.back().renderer->hasDevicesInSpace();
        }
    }
}

Image ResolvedComposition::frame(double globalSec) {
    const auto sample = timeline_.sample(globalSec);
    if (!sample) return Image::solid(imaging::Color::black()).cropped(bounds_);
    const std::size_t from = sample->outgoing.index;
    restAllBut(from, sample->incoming ? sample->incoming->index : from);
    const Image outgoing = renderScene(from, sample->outgoing.localSeconds);
    const auto& transition = spec_.scenes[from].transition;
    if (!sample->incoming || !transition) return outgoing;
    const Image incoming = renderScene(sample->incoming->index, sample->incoming->localSeconds);
    const double elapsedSec = sample->progress * transition->durationSec;
    const double eased = KineticMath::evaluate(transition->curve, elapsedSec, transition->durationSec).value;
    return TransitionBlend::blend(
        {outgoing, incoming, bounds_}, eased, transition->style, transition->params);
}

void ResolvedComposition::restAllBut(std::size_t outgoing, std::size_t incoming) {
    const auto now = std::pair(outgoing, incoming), before = std::exchange(shownScenes_, now);
    if (now == before) return;
    for (const std::size_t scene : {before.first, before.second})
        if (scene != outgoing && scene != incoming)
            for (const ResolvedCompositionLayer& layer : layers_[scene]) layer.renderer->rest();
}

Image ResolvedComposition::renderScene(std::size_t scene, double localSec) {
    std::vector<Image> bottomToTop{backgrounds_[scene]};
    for (const ResolvedCompositionLayer* resolved : depthOrderedLayers(scene, localSec)) {
        if (!resolved->window.contains(localSec)) continue;
        const double layerSec = localSec - resolved->window.startSec;
        CompositionLayerContentRenderer& renderer = *resolved->renderer;
        const auto content = renderer.contentImage(layerSec);
        if (!content) continue;
        if (const auto finished = resolved->finish(*content, layerSec, bounds_.height, bounds_))
            bottomToTop.push_back(*finished);
    }
    return Image::stacked(bottomToTop).cropped(bounds_);
}

std::vector<const ResolvedCompositionLayer*> ResolvedComposition::depthOrderedLayers(
    std::size_t scene, double localSec) const {
    std::vector<const ResolvedCompositionLayer*> ordered;
    std::vector<std::pair<double, const ResolvedCompositionLayer*>> run;
    const auto flush = [&] {
        std::ranges::stable_sort(run, {}, &std::pair<double, const ResolvedCompositionLayer*>::first);
        for (const auto& [depth, layer] : run) ordered.push_back(layer);
        run.clear();
    };
    for (const ResolvedCompositionLayer& resolved : layers_[scene]) {
        if (const auto depth = liveDepth(resolved, localSec)) {
            run.emplace_back(*depth, &resolved);
            continue;
        }
        flush();
        ordered.push_back(&resolved);
    }
    flush();
    return ordered;
}

void ResolvedComposition::setScrubQuality(bool isOn) {
    for (const auto& scene : layers_)
        for (const ResolvedCompositionLayer& resolved : scene)
            if (auto* device = dynamic_cast<Device3DCompositionLayer*>(resolved.renderer.get()))
                device->setScrubQuality(isOn);
}

std::int64_t ResolvedComposition::presetSeed(
    std::int64_t documentSeed, std::size_t scene, std::size_t layerIndex) {
    // Unsigned, so that a large seed wraps around instead of overflowing.
    return static_cast<std::int64_t>(
        static_cast<std::uint64_t>(documentSeed) + seedStepOfScene * scene + seedStepOfLayer * layerIndex);
}

}   // namespace tavix
