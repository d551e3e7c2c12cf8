#include "TavixRender/Composition2D/ResolvedComposition.h"

#include "TavixBase/Overloaded.h"
#include "TavixCore/Animation/CurveEvaluation.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixPlatform/Imaging/Hash.h"
#include "TavixRender/Composition2D/Device3DCompositionLayer.h"
#include "TavixRender/Composition2D/DeviceCompositionLayer.h"
#include "TavixRender/Composition2D/FillCompositionLayer.h"
#include "TavixRender/Composition2D/ImageCompositionLayer.h"
#include "TavixRender/Composition2D/ShapeCompositionLayer.h"
#include "TavixRender/Composition2D/TextCompositionLayer.h"
#include "TavixRender/Composition2D/VideoCompositionLayer.h"
#include "TavixRender/Compositor/TransitionBlend.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <numeric>
#include <utility>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;

constexpr std::uint64_t seedStepOfScene = 1009, seedStepOfLayer = 9176;

std::unique_ptr<CompositionLayerContentRenderer> makeTextRenderer(const TextContent& text,
    const CompositionLayer& layer, const LayerInputs::Place& place, const LayerBuild& build) {
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
        tell(build.log,
            Finding::warning(RenderCode::phoneMissing,
                "scene3D requested but the 3D device pass is unavailable (no model/GPU) — rendering the flat mockup."));
    }
    return std::make_unique<DeviceCompositionLayer>(device, layer, build);
}

std::unique_ptr<CompositionLayerContentRenderer> makeRenderer(
    const CompositionLayer& layer, const LayerInputs::Place& place, const LayerBuild& build) {
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

// Scenes that a preview keeps ready, since people go to and fro; a film that is written goes on.
constexpr std::size_t awakeInPreview = 4;

}   // namespace

imaging::Size canvasSize(const CompositionSpec& spec) {
    const auto side = [](std::int64_t px) {
        return static_cast<int>(std::clamp<std::int64_t>(px, 0, std::numeric_limits<int>::max()));
    };
    return {side(spec.output.widthPx), side(spec.output.heightPx)};
}

ResolvedComposition::ResolvedComposition(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
    const RenderLog& log, Composition3DRendererPool* rendererPool, BuildMemory* memory)
    : spec_(spec),
      timeline_(spec_), bounds_{0, 0, double(spec_.output.widthPx), double(spec_.output.heightPx)} {
    const RenderLog told = onceEach(log);
    BuildMemory own;
    BuildMemory& kept = memory ? *memory : own;
    hasMemory_ = memory != nullptr;
    const text::FontBook fonts;
    const auto documentRoot =
        spec_.assetRoot ? std::optional<std::filesystem::path>(*spec_.assetRoot) : std::nullopt;
    const LayerBuild build{bounds_, double(spec_.output.fps), assetRoot ? assetRoot : documentRoot, evaluator,
        kept.images(), fonts, told, rendererPool, kept.darkroom()};
    kept.begin({bounds_, build.framesPerSec, build.assetRoot}, told);
    buildBackgrounds(build, kept);
    buildLayers(build, kept);
    kept.end();
}

void ResolvedComposition::buildBackgrounds(const LayerBuild& build, BuildMemory& memory) {
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const CompositionScene& scene = spec_.scenes[i];
        memory.goTo(scene.background ? "scenes[" + std::to_string(i) + "].background" : "background");
        const BackgroundFill& fill = scene.background ? *scene.background : spec_.background;
        backgrounds_.push_back(memory.background(
            fill, filesOf(fill, build.assetRoot), [&] { return FillCompositionLayer::drawn(fill, build); }));
        transitionIDs_.push_back(scene.transition ? memory.transitionID(*scene.transition) : 0);
    }
}

void ResolvedComposition::buildLayers(const LayerBuild& build, BuildMemory& memory) {
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const CompositionScene& scene = spec_.scenes[i];
        auto& resolved = layers_.emplace_back();
        for (std::size_t j = 0; j < scene.layers.size(); ++j) {
            const CompositionLayer& layer = scene.layers[j];
            const LayerWindow window = shownWindow(layer, scene);
            if (!(window.startSec < window.endSec)) continue;
            const imaging::Point anchor{layer.position.x, bounds_.height - layer.position.y};
            const std::string path = CompositionLint::authoredPath(
                "scenes[" + std::to_string(i) + "].layers[" + std::to_string(j) + "]", spec_);
            memory.goTo(path);
            LayerBuild here = build;
            here.log = placedAt(path, build.log);
            const LayerInputs::Place place{
                spec_, build.assetRoot, window.lengthSec(), presetSeed(spec_.seed, i, j), {i, j}};
            auto [renderer, lookID] = memory.layer(LayerInputs::of(layer, place), layer, window,
                [&] { return makeRenderer(layer, place, here); });
            resolved.push_back({layer, std::move(renderer), window, anchor,
                {layer.effects, bounds_, vignettedOf(layer)}, lookID});
            hasDevicesInSpace_ = hasDevicesInSpace_ || resolved.back().renderer->hasDevicesInSpace();
        }
    }
}

void ResolvedComposition::addSceneKey(Hash& key, const CompositionTimeline::ActiveScene& active) const {
    key.add(backgrounds_[active.index].lookID);
    for (const ResolvedCompositionLayer* resolved : depthOrderedLayers(active.index, active.localSeconds))
        if (resolved->window.contains(active.localSeconds))
            key.add(resolved->lookID).add(active.localSeconds - resolved->window.startSec);
}

std::optional<Digest> ResolvedComposition::frameKey(double globalSec) const {
    if (!hasMemory_) return std::nullopt;
    Hash key;
    key.add(bounds_);
    if (const auto sample = timeline_.sample(globalSec)) {
        addSceneKey(key, sample->outgoing);
        if (sample->incoming && spec_.scenes[sample->outgoing.index].transition) {
            key.add(transitionIDs_[sample->outgoing.index]).add(sample->progress);
            addSceneKey(key, *sample->incoming);
        }
    }
    return key.digest();
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
    if (awake_.empty() && hasMemory_) {
        // What was taken over may be awake in any scene.
        awake_.resize(layers_.size());
        std::iota(awake_.begin(), awake_.end(), std::size_t(0));
    }
    for (const std::size_t scene : {incoming, outgoing}) {
        std::erase(awake_, scene);
        awake_.insert(awake_.begin(), scene);
    }
    const std::size_t shown = outgoing == incoming ? 1 : 2;
    for (const std::size_t most = hasMemory_ ? awakeInPreview : shown; awake_.size() > most;
         awake_.pop_back())
        for (const ResolvedCompositionLayer& layer : layers_[awake_.back()]) layer.renderer->rest();
}

Image ResolvedComposition::renderScene(std::size_t scene, double localSec) {
    std::vector<Image> bottomToTop{backgrounds_[scene].image};
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

template <class Job> void ResolvedComposition::forDevicesInSpace(Job job) {
    for (const auto& scene : layers_)
        for (const ResolvedCompositionLayer& resolved : scene)
            if (auto* device = dynamic_cast<Device3DCompositionLayer*>(resolved.renderer.get())) job(*device);
}

void ResolvedComposition::setScrubQuality(bool isOn) {
    forDevicesInSpace([isOn](Device3DCompositionLayer& device) { device.setScrubQuality(isOn); });
}

void ResolvedComposition::setRough(bool isOn) {
    forDevicesInSpace([isOn](Device3DCompositionLayer& device) { device.setRough(isOn); });
}

std::int64_t ResolvedComposition::presetSeed(
    std::int64_t documentSeed, std::size_t scene, std::size_t layerIndex) {
    // Unsigned, so that a large seed wraps around instead of overflowing.
    return static_cast<std::int64_t>(
        static_cast<std::uint64_t>(documentSeed) + seedStepOfScene * scene + seedStepOfLayer * layerIndex);
}

}   // namespace tavix
