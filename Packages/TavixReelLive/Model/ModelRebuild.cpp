// How the preview of a reel follows its document.
#include "TavixReelLive/Model/ReelEditorModel.h"

#include <algorithm>
#include <utility>

namespace tavix {

void ReelEditorModel::scheduleRebuild() {
    if (!project_) return;
    const double now = services_.main.nowSec();
    const bool isQuiet = !isRebuilding_ && (!lastRebuildAtSec_ || now - *lastRebuildAtSec_ > quietSec);
    rebuildTimer_ = services_.main.after(isQuiet ? 0 : coalesceSec, [this] {
        rebuildTimer_.cancel();
        rebuildNow();
    });
}

EffectsSpec ReelEditorModel::shownSpec() const {
    EffectsSpec spec = state.spec();
    if (excludedCaption_ && spec.narration && *excludedCaption_ < spec.narration->captions.size())
        spec.narration->captions.erase(
            spec.narration->captions.begin() + static_cast<std::ptrdiff_t>(*excludedCaption_));
    return spec;
}

void ReelEditorModel::rebuildNow() {
    if (!project_) return;
    const std::uint64_t generation = ++rebuildGeneration_;
    isRebuilding_ = true;
    system::runThere(
        services_.render, services_.main,
        [make = services_.preview, spec = shownSpec(), footage = project_->footage(),
            assetRoot = project_->assetRoot(), room = room_] { return make(spec, footage, assetRoot, room); },
        lifeline_.guard([this, generation, key = timingKey(state.spec(), project_->footage())](
                            system::Outcome<ReelPreview>& outcome) {
            if (generation != rebuildGeneration_) return;   // another one is under way
            isRebuilding_ = false;
            lastRebuildAtSec_ = services_.main.nowSec();
            try {
                finishRebuild(key, std::move(outcome.value()));
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Preview failed: ") + error.what();
            }
        }));
}

// Where the timing is the same the player keeps its item and its time, and only draws from another source.
void ReelEditorModel::finishRebuild(const std::string& key, ReelPreview preview) {
    const double totalSec = preview.pictures->totalSec();
    turnDevice_ = std::move(preview.turnDevice);
    state.errorMessage = std::nullopt;
    state.outputDuration = totalSec;
    if (shownKey_ == key && player_.item()) {
        keptPreCutSec_.reset();
        player_.item()->pictures->setFrameSource(preview.pictures);
        return player_.redraw();
    }
    const double footageSec = keptPreCutSec_.value_or(preCutSec(state.currentTime()));
    const bool wasPlaying = player_.isPlaying();
    const bool isFirst = !shownKey_;
    shownKey_ = key;
    PlayerItem item{
        std::make_shared<RenderChain>(services_.render, services_.main, preview.pictures, services_.scrubLog),
        std::nullopt, totalSec, double(std::clamp<std::int64_t>(state.spec().output.fps, 1, 30))};
    if (preview.sound) item.sound.emplace(std::move(*preview.sound), RenderLog());
    player_.setItem(std::move(item));
    const double atSec = isFirst ? 0 : std::min(compositionSec(footageSec), totalSec);
    keptPreCutSec_.reset();
    state.currentTime = atSec;
    player_.seek(atSec);
    if (wasPlaying) player_.play();
    state.isPlaying = player_.isPlaying();
}

}   // namespace tavix
