// What is shown while a hand moves it, and becomes a step when the hand is gone.
#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixReelLive/Operations/CaptionEdits.h"
#include "TavixReelLive/Operations/LookEdits.h"
#include "TavixRender/Assets/AlphaCutout.h"

#include <utility>

namespace tavix {

void ReelEditorModel::setExcludedCaption(std::optional<std::size_t> index) {
    if (index == excludedCaption_) return;
    excludedCaption_ = index;
    scheduleRebuild();
}

void ReelEditorModel::endCaptionDrag(const NormalizedPoint& position) {
    const auto dragged = std::exchange(excludedCaption_, std::nullopt);
    if (!dragged) return;
    update("Move Caption", [&](EffectsSpec& spec) { CaptionEdits::setPosition(spec, *dragged, position); });
    scheduleRebuild();
}

void ReelEditorModel::liveSetDeviceTilt(const Vector3& tiltDegrees) {
    if (!project_) return;
    EffectsSpec turned = state.spec();
    LookEdits::setDeviceTilt(turned, tiltDegrees);
    if (turned == state.spec()) return;
    if (!beforeLive_) beforeLive_ = state.spec();
    state.spec = std::move(turned);
    file_->noteEdit();
    if (!turnDevice_) return;
    services_.render.post([turn = turnDevice_, tiltDegrees] { turn(tiltDegrees); });
    player_.redraw();
}

void ReelEditorModel::commitLiveEdits() {
    if (!beforeLive_) return;
    noteStep("Turn Device", *std::exchange(beforeLive_, std::nullopt));
    scheduleRebuild();
    file_->noteDragEnd();
}

void ReelEditorModel::importDeviceFrame(const std::filesystem::path& picture, Done then) {
    system::runThere(
        services_.workers, services_.main, [picture] { return DeviceFrameCutoutService::find(picture); },
        lifeline_.guard([this, picture, generation = openGeneration_, then = std::move(then)](
                            system::Outcome<std::optional<AlphaCutout::Result>>& outcome) {
            if (generation != openGeneration_ || !project_) return;
            try {
                const auto& found = outcome.value();
                const auto screen = found ? std::optional(found->screen) : std::nullopt;
                update("Device Frame", [&](EffectsSpec& spec) {
                    LookEdits::setDeviceFrame(
                        spec, picture.string(), screen, found ? found->cornerRadiusFraction : 0);
                });
                state.statusMessage = "Device frame " + picture.filename().string() +
                                      (screen ? " (cutout auto-detected)." : "; its screen was not found.");
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Could not load frame: ") + error.what();
            }
            if (then) then();
        }));
}

}   // namespace tavix
