// The playhead and the selection.
#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double atEndSec = 0.05;    // as good as the end
constexpr double insideSec = 0.02;   // of a scene or a layer
constexpr double afterEnteringSec = 0.05;

}   // namespace

// At most one seek is on its way; of those that come meanwhile the last one wins.
void CompositionEditorModel::seek(double toSec) {
    const double sec = std::clamp(toSec, 0.0, state.outputDuration());
    state.currentTime = sec;
    seekTarget_ = sec;
    if (!isSeekInFlight_) issueChainedSeek();
    lowerScrubQuality();
}

void CompositionEditorModel::issueChainedSeek() {
    const auto target = std::exchange(seekTarget_, std::nullopt);
    if (!target) return;
    isSeekInFlight_ = true;
    preview_.player().seek(*target, document_.guard([this](bool) {
        isSeekInFlight_ = false;
        if (seekTarget_) issueChainedSeek();
    }));
}

void CompositionEditorModel::lowerScrubQuality() {
    if (!std::exchange(isScrubbing_, true) && preview_.pictures()) preview_.pictures()->setScrubQuality(true);
    scrubTimer_ = main_.after(scrubEndSec, [this] { endScrub(); });
}

void CompositionEditorModel::endScrub() {
    isScrubbing_ = false;
    if (preview_.pictures()) preview_.pictures()->setScrubQuality(false);
    if (preview_.player().isPlaying()) return;
    seekTarget_ = state.currentTime();
    if (!isSeekInFlight_) issueChainedSeek();
}

void CompositionEditorModel::togglePlay() {
    Player& player = preview_.player();
    if (player.isPlaying()) {
        player.pause();
    } else {
        if (state.currentTime() >= state.outputDuration() - atEndSec) seek(0);
        player.play();
    }
    state.isPlaying = player.isPlaying();
}

void CompositionEditorModel::reachEnd() {
    preview_.player().seek(0);
    const Batch together;
    state.isPlaying = false;
    state.currentTime = 0;
}

void CompositionEditorModel::selectScene(std::size_t scene, bool isSought) {
    if (scene >= edited().spec.scenes.size()) return;
    EditState changed = edited();
    changed.selection = {scene, std::nullopt};
    state.edited = std::move(changed);
    if (isSought) seek(CompositionTimeline(edited().spec).startSec[scene] + insideSec);
}

void CompositionEditorModel::selectLayer(std::size_t scene, std::size_t layer) {
    EditState changed = edited();
    const CompositionLayer* selected = changed.layer(scene, layer);
    if (selected == nullptr) return;
    const double sceneSec = CompositionTimeline(changed.spec).startSec[scene];
    const double startSec = sceneSec + selected->fromSec;
    const double endSec = selected->durationSec ? startSec + *selected->durationSec
                                                : sceneSec + changed.scene(scene)->durationSec;
    double inSec = afterEnteringSec;
    if (selected->enter)
        inSec = std::min(selected->enter->durationSec + afterEnteringSec, (endSec - startSec) / 2);
    changed.selection = {scene, layer};
    state.edited = std::move(changed);
    if (state.currentTime() < startSec || state.currentTime() >= endSec - insideSec)
        seek(std::min(endSec - insideSec, startSec + inSec));
}

void CompositionEditorModel::clearSelection() {
    EditState changed = edited();
    changed.selection = {};
    state.edited = std::move(changed);
}

}   // namespace tavix
