#include "TavixRender/Composition2D/BuildMemory.h"

#include "TavixRender/DeviceScene/DeviceDarkroom.h"

#include <algorithm>
#include <utility>

namespace tavix {

BuildMemory::BuildMemory()
    : images_([this](const Finding& finding) { tell(placedAt(path_, log_), finding); }),
      darkroom_(std::make_shared<DeviceDarkroom>()) {}

BuildMemory::~BuildMemory() = default;

void BuildMemory::begin(const Canvas& canvas, RenderLog log) {
    log_ = std::move(log);
    path_.clear();
    images_.renew(mostPictureBytes);
    layersBefore_ = std::exchange(layers_, {});
    backgroundsBefore_ = std::exchange(backgrounds_, {});
    transitionsBefore_ = std::exchange(transitions_, {});
    if (canvas == canvas_) return;
    canvas_ = canvas;
    layersBefore_.clear();
    backgroundsBefore_.clear();
    transitionsBefore_.clear();
}

void BuildMemory::end() {
    layersBefore_.clear();
    backgroundsBefore_.clear();
    transitionsBefore_.clear();
}

BuildMemory::KeptLayer& BuildMemory::taken(const LayerInputs& inputs) {
    const auto kept = std::ranges::find_if(layersBefore_,
        [&](const KeptLayer& layer) { return layer.renderer != nullptr && layer.inputs == inputs; });
    if (kept == layersBefore_.end()) return layers_.emplace_back(KeptLayer{inputs, nullptr, {}, {}});
    KeptLayer& layer = layers_.emplace_back(std::move(*kept));
    kept->renderer = nullptr;
    layer.renderer->takenOver();
    return layer;
}

BuildMemory::Layer BuildMemory::shown(
    KeptLayer& kept, const CompositionLayer& record, const LayerWindow& window) {
    if (kept.record != record || kept.window != window) {
        kept.record = record;
        kept.window = window;
        kept.lookID = ++lastID_;
    }
    return {kept.renderer, kept.lookID};
}

const BuildMemory::KeptBackground* BuildMemory::known(
    const BackgroundFill& fill, const std::vector<UsedFile>& files) {
    const auto isIt = [&](const KeptBackground& kept) { return kept.fill == fill && kept.files == files; };
    if (const auto here = std::ranges::find_if(backgrounds_, isIt); here != backgrounds_.end()) return &*here;
    const auto before = std::ranges::find_if(backgroundsBefore_, isIt);
    return before == backgroundsBefore_.end() ? nullptr : &backgrounds_.emplace_back(*before);
}

std::uint64_t BuildMemory::transitionID(const SceneTransition& transition) {
    const auto isIt = [&](const KeptTransition& kept) { return kept.transition == transition; };
    if (const auto here = std::ranges::find_if(transitions_, isIt); here != transitions_.end())
        return here->id;
    const auto before = std::ranges::find_if(transitionsBefore_, isIt);
    const KeptTransition kept =
        before == transitionsBefore_.end() ? KeptTransition{transition, ++lastID_} : *before;
    return transitions_.emplace_back(kept).id;
}

}   // namespace tavix
