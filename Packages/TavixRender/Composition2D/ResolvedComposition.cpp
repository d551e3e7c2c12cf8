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
#include "TavixRender/Composition2D/LayerWhenShown.h"
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
                return std::make_unique<VideoCompositionLayer>(video, build, peakMagnification(layer));
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

// Of a build with a memory, that memory; a build without one makes things late, with one of its own.
struct ResolvedComposition::Workshop {
    Workshop(const imaging::Rect& bounds, const CompositionSpec& spec,
        const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
        const RenderLog& log, Composition3DRendererPool* rendererPool, BuildMemory* given,
        const RenderRoom& room)
        : memory(given ? *given : own.emplace()),
          mostPictureBytes(given ? BuildMemory::mostPictureBytes : room.pictureBytes),
          isLean(!given), build{bounds, double(spec.output.fps), assetRoot, evaluator, memory.images(), fonts,
                              onceEach(log), rendererPool, memory.darkroom(), &memory.screens()} {
        if (isLean) build.decoders = std::make_shared<media::DecoderRoom>(room.decoderBytes);
        memory.begin({bounds, build.framesPerSec, build.assetRoot}, build.log);
    }

    const BackgroundFill& fillOf(const CompositionSpec& spec, std::size_t scene) const {
        const CompositionScene& it = spec.scenes[scene];
        return it.background ? *it.background : spec.background;
    }
    std::string pathOfFill(const CompositionSpec& spec, std::size_t scene) const {
        return spec.scenes[scene].background ? "scenes[" + std::to_string(scene) + "].background"
                                             : "background";
    }
    std::unique_ptr<CompositionLayerContentRenderer> make(const CompositionLayer& layer,
        const LayerInputs::Place& place, const LayerWindow& window, const std::string& path) {
        memory.goTo(path);
        LayerBuild here = build;
        here.log = placedAt(path, build.log);
        here.scene = place.poolKey.scene;
        here.window = window;
        auto made = makeRenderer(layer, place, here);
        forgetPictures();
        return made;
    }
    // Decoded files that are not likely to be asked for again. What was made of them needs them no more.
    void forgetPictures() { memory.images().renew(mostPictureBytes); }

    const text::FontBook fonts = {};
    std::optional<BuildMemory> own;
    BuildMemory& memory;
    std::size_t mostPictureBytes;
    bool isLean;
    LayerBuild build;
};

ResolvedComposition::ResolvedComposition(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
    const RenderLog& log, Composition3DRendererPool* rendererPool, BuildMemory* memory,
    const RenderRoom& room)
    : spec_(spec),
      timeline_(spec_), bounds_{0, 0, double(spec_.output.widthPx), double(spec_.output.heightPx)} {
    const auto documentRoot =
        spec_.assetRoot ? std::optional<std::filesystem::path>(*spec_.assetRoot) : std::nullopt;
    workshop_ = std::make_unique<Workshop>(
        bounds_, spec_, assetRoot ? assetRoot : documentRoot, evaluator, log, rendererPool, memory, room);
    buildBackgrounds();
    buildLayers();
    if (memory) memory->end();
}

ResolvedComposition::~ResolvedComposition() = default;

void ResolvedComposition::buildBackgrounds() {
    backgrounds_.resize(spec_.scenes.size());
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const auto& transition = spec_.scenes[i].transition;
        transitionIDs_.push_back(transition ? workshop_->memory.transitionID(*transition) : 0);
        if (workshop_->isLean) continue;
        const BackgroundFill& fill = workshop_->fillOf(spec_, i);
        workshop_->memory.goTo(workshop_->pathOfFill(spec_, i));
        backgrounds_[i] = workshop_->memory.background(fill, filesOf(fill, workshop_->build.assetRoot),
            [&] { return std::optional(FillCompositionLayer::drawn(fill, workshop_->build)); });
        workshop_->forgetPictures();
    }
}

const Image& ResolvedComposition::backgroundOf(std::size_t scene) {
    std::optional<Image>& image = backgrounds_[scene].image;
    if (image) return *image;
    const BackgroundFill& fill = workshop_->fillOf(spec_, scene);
    for (const std::size_t shown : awake_)
        if (!image && backgrounds_[shown].image && workshop_->fillOf(spec_, shown) == fill)
            image = backgrounds_[shown].image;
    if (image) return *image;
    workshop_->memory.goTo(workshop_->pathOfFill(spec_, scene));
    image = FillCompositionLayer::drawn(fill, workshop_->build);
    workshop_->forgetPictures();
    return *image;
}

void ResolvedComposition::buildLayers() {
    for (std::size_t i = 0; i < spec_.scenes.size(); ++i) {
        const CompositionScene& scene = spec_.scenes[i];
        auto& resolved = layers_.emplace_back();
        for (std::size_t j = 0; j < scene.layers.size(); ++j) {
            const LayerWindow window = shownWindow(scene.layers[j], scene);
            if (!(window.startSec < window.endSec)) continue;
            resolved.push_back(resolvedLayer(i, j, window));
            hasDevicesInSpace_ = hasDevicesInSpace_ || resolved.back().renderer->hasDevicesInSpace();
        }
    }
}

ResolvedCompositionLayer ResolvedComposition::resolvedLayer(
    std::size_t scene, std::size_t index, const LayerWindow& window) {
    const CompositionLayer& layer = spec_.scenes[scene].layers[index];
    const imaging::Point anchor{layer.position.x, bounds_.height - layer.position.y};
    const LayerInputs::Place place{spec_, workshop_->build.assetRoot, window.lengthSec(),
        presetSeed(spec_.seed, scene, index), {scene, index}};
    const auto make = [&workshop = *workshop_, &layer, place, window, scene, index] {
        return workshop.make(layer, place, window,
            CompositionLint::authoredPath(
                "scenes[" + std::to_string(scene) + "].layers[" + std::to_string(index) + "]", place.spec));
    };
    BuildMemory::Layer built;
    if (workshop_->isLean) {
        const auto* device = std::get_if<DeviceContent>(&layer.content);
        built.renderer = std::make_shared<LayerWhenShown>(
            make, device != nullptr && Device3DCompositionLayer::canMake(*device));
    } else {
        built = workshop_->memory.layer(LayerInputs::of(layer, place), layer, window, make);
    }
    return {layer, std::move(built.renderer), window, anchor, {layer.effects, bounds_, vignettedOf(layer)},
        built.lookID};
}

void ResolvedComposition::addSceneKey(Hash& key, const CompositionTimeline::ActiveScene& active) const {
    key.add(backgrounds_[active.index].lookID);
    for (const ResolvedCompositionLayer* resolved : depthOrderedLayers(active.index, active.localSeconds))
        if (resolved->window.contains(active.localSeconds))
            key.add(resolved->lookID).add(active.localSeconds - resolved->window.startSec);
}

std::optional<Digest> ResolvedComposition::frameKey(double globalSec) const {
    if (workshop_->isLean) return std::nullopt;
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
    if (awake_.empty() && !workshop_->isLean) {
        // What was taken over may be awake in any scene.
        awake_.resize(layers_.size());
        std::iota(awake_.begin(), awake_.end(), std::size_t(0));
    }
    for (const std::size_t scene : {incoming, outgoing}) {
        std::erase(awake_, scene);
        awake_.insert(awake_.begin(), scene);
    }
    const std::size_t shown = outgoing == incoming ? 1 : 2;
    for (const std::size_t most = !workshop_->isLean ? awakeInPreview : shown; awake_.size() > most;
         awake_.pop_back())
        restScene(awake_.back(), outgoing);
}

bool ResolvedComposition::prepareScene(std::size_t scene) {
    for (const ResolvedCompositionLayer& layer : layers_[scene])
        if (layer.renderer->prepare()) return true;
    return false;
}

bool ResolvedComposition::prepare(double globalSec) {
    const auto sample = timeline_.sample(globalSec);
    if (!sample || workshop_->isLean || awake_.empty()) return false;
    const std::size_t next = (sample->incoming ? *sample->incoming : sample->outgoing).index + 1;
    if (next < layers_.size() && prepareScene(next)) {
        if (std::ranges::find(awake_, next) != awake_.end()) return true;
        awake_.insert(awake_.begin() + 1, next);
        if (awake_.size() > awakeInPreview) {
            restScene(awake_.back(), next);
            awake_.pop_back();
        }
        return true;
    }
    return std::ranges::any_of(awake_, [&](std::size_t scene) { return prepareScene(scene); });
}

void ResolvedComposition::restScene(std::size_t scene, std::size_t outgoing) {
    for (const ResolvedCompositionLayer& layer : layers_[scene]) layer.renderer->rest();
    if (!workshop_->isLean) return;
    auto& left = backgrounds_[scene].image;
    auto& next = backgrounds_[outgoing].image;
    if (left && !next && workshop_->fillOf(spec_, scene) == workshop_->fillOf(spec_, outgoing)) next = left;
    left.reset();
}

Image ResolvedComposition::renderScene(std::size_t scene, double localSec) {
    std::vector<Image> bottomToTop{backgroundOf(scene)};
    for (const ResolvedCompositionLayer* resolved : depthOrderedLayers(scene, localSec)) {
        if (!resolved->window.contains(localSec)) {
            if (workshop_->isLean) resolved->renderer->rest();
            continue;
        }
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
        for (const ResolvedCompositionLayer& resolved : scene) resolved.renderer->setScrubQuality(isOn);
}

void ResolvedComposition::setRough(bool isOn) {
    for (const auto& scene : layers_)
        for (const ResolvedCompositionLayer& resolved : scene) resolved.renderer->setRough(isOn);
}

std::int64_t ResolvedComposition::presetSeed(
    std::int64_t documentSeed, std::size_t scene, std::size_t layerIndex) {
    // Unsigned, so that a large seed wraps around instead of overflowing.
    return static_cast<std::int64_t>(
        static_cast<std::uint64_t>(documentSeed) + seedStepOfScene * scene + seedStepOfLayer * layerIndex);
}

}   // namespace tavix
