// Drags, which go past the document until they end, and the zoom of the stage.
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Model/Overscan.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {

namespace {

constexpr double leastOverscan = 0.1, leastZoomStep = 0.0001;

}   // namespace

void CompositionEditorModel::liveUpdatePlacement(
    std::size_t scene, std::size_t layer, const DevicePlacementSpec& placement) {
    if (!hold({scene, layer})) return;
    livePlacement_ = placement;
    liveApply();
}

void CompositionEditorModel::liveUpdateScene3D(
    std::size_t scene, std::size_t layer, const DeviceScene3D& scene3D) {
    if (!hold({scene, layer})) return;
    liveScene3D_ = scene3D;
    liveApply();
}

// Takes a device into the hand, which lets go of another one.
bool CompositionEditorModel::hold(const LiveTarget& target) {
    if (edited().content<DeviceContent>(target.scene, target.layer) == nullptr) return false;
    if (liveTarget_ && !(*liveTarget_ == target)) letGo();
    liveTarget_ = target;
    return true;
}

void CompositionEditorModel::liveApply() {
    const LiveTarget target = *liveTarget_;
    const auto* device = edited().content<DeviceContent>(target.scene, target.layer);
    if (device == nullptr) return;
    noteUnsaved(true);
    const auto scene3D = liveScene3D_ ? liveScene3D_ : device->scene3D;
    auto placement = livePlacement_ ? livePlacement_ : device->placement;
    if (placement) placement = overscanned(std::move(*placement), state.previewOverscan());
    if (scene3D)
        preview_.onMaker([key = Composition3DRendererPool::Key{target.scene, target.layer}, scene3D,
                             placement](PreviewMaker& maker) {
            maker.setLiveMode(true);
            maker.liveApply(key, *scene3D, placement);
        });
    wantLiveRender();
}

// As fast as frames can be drawn, and never more than one at a time.
void CompositionEditorModel::wantLiveRender() {
    if (isLiveRenderInFlight())
        isLiveRenderDirty_ = true;
    else
        issueLiveRender();
}

void CompositionEditorModel::issueLiveRender() {
    if (!preview_.pictures()) return;
    preview_.ahead().disturb();
    liveRender_ = preview_.player().item()->pictures;
    isLiveRenderDirty_ = false;
    preview_.pictures()->requestLive(
        state.currentTime(), document_.guard([this](const StagePicture& picture, const FrameSource::Drawn&) {
            liveRender_.reset();
            state.showsLiveFrame = true;
            if (sink_) sink_(picture);
            if (isLiveRenderDirty_) issueLiveRender();
        }));
}

void CompositionEditorModel::applyLiveEdits(DeviceContent& device) const {
    if (liveScene3D_) device.scene3D = liveScene3D_;
    if (livePlacement_) device.placement = livePlacement_;
}

void CompositionEditorModel::applyLiveEdits(EditState& changed) const {
    auto* device =
        liveTarget_ ? changed.content<DeviceContent>(liveTarget_->scene, liveTarget_->layer) : nullptr;
    if (device != nullptr) applyLiveEdits(*device);
}

void CompositionEditorModel::commitLiveEdits() {
    if (!liveTarget_) return;
    EditState changed = draft();
    applyLiveEdits(changed);
    dropLiveEdits();
    become("Move device", std::move(changed));
    noteUnsaved(true);
    scheduleRefresh();
    if (isLookDue_) lookAtFile();
}

void CompositionEditorModel::dropLiveEdits() {
    isLiveRenderDirty_ = false;
    liveTarget_.reset();
    liveScene3D_.reset();
    livePlacement_.reset();
    preview_.onMaker([](PreviewMaker& maker) { maker.setLiveMode(false); });
}

void CompositionEditorModel::setPreviewOverscan(double value) {
    overscanTimer_.cancel();
    state.previewOverscan = std::clamp(value, leastOverscan, 1.0);
    scheduleRefresh();
}

void CompositionEditorModel::zoomPreview(double factor) {
    const double zoomed = std::clamp(state.previewOverscan() * factor, leastOverscan, 1.0);
    if (std::abs(zoomed - state.previewOverscan()) < leastZoomStep) return;
    state.previewOverscan = zoomed;
    livePreviewTransform();
}

void CompositionEditorModel::resetPreviewView() {
    state.previewPan = NormalizedVec2{};
    setPreviewOverscan(1);
}

void CompositionEditorModel::livePreviewTransform() {
    preview_.onMaker(
        [edited = state.edited.shared(), overscan = state.previewOverscan()](PreviewMaker& maker) {
            const auto spec = overscanned(edited, overscan);
            maker.setLiveMode(true);
            for (std::size_t i = 0; i < spec->scenes.size(); ++i)
                for (std::size_t j = 0; j < spec->scenes[i].layers.size(); ++j) {
                    const auto* device = std::get_if<DeviceContent>(&spec->scenes[i].layers[j].content);
                    if (device && device->scene3D)
                        maker.liveApply({i, j}, *device->scene3D, device->placement);
                }
        });
    wantLiveRender();
    overscanTimer_ = main_.after(overscanCommitSec, [this] {
        preview_.onMaker([](PreviewMaker& maker) { maker.setLiveMode(false); });
        scheduleRefresh();
    });
}

}   // namespace tavix
