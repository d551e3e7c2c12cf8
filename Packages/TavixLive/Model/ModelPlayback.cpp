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
constexpr double loopedLateSec = 0.25;   // the clock is looked at some thirty times a second

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
    preview_.ahead().disturb();
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
        const auto& loop = state.loop();
        if (loop && (state.currentTime() < loop->startSec || state.currentTime() >= loop->endSec - atEndSec))
            seek(loop->startSec);
        else if (state.currentTime() >= state.outputDuration() - atEndSec)
            seek(0);
        player.play();
    }
    preview_.ahead().disturb();
    state.isPlaying = player.isPlaying();
}

void CompositionEditorModel::setLoop(std::optional<FilmRange> loop) {
    if (loop) {
        loop->startSec = std::max(loop->startSec, 0.0);
        loop->endSec = std::min(loop->endSec, state.outputDuration());
        if (!(loop->endSec - loop->startSec > atEndSec)) loop.reset();
    }
    state.loop = loop;
    preview_.ahead().setLoop(loop);
}

// A playhead that comes to the end of the loop goes on from its start; one that was set outside goes on
// there.
void CompositionEditorModel::followLoop() {
    Player& player = preview_.player();
    const auto& loop = state.loop();
    if (!loop || !player.isPlaying() || isScrubbing_) return;
    const double nowSec = player.currentSec();
    if (nowSec >= loop->endSec && nowSec < loop->endSec + loopedLateSec) player.seek(loop->startSec);
}

void CompositionEditorModel::reachEnd() {
    preview_.ahead().disturb();
    if (const auto& loop = state.loop(); loop && loop->endSec >= state.outputDuration() - atEndSec) {
        preview_.player().seek(loop->startSec);
        preview_.player().play();
        return;
    }
    preview_.player().seek(0);
    const Batch together;
    state.isPlaying = false;
    state.currentTime = 0;
}

void CompositionEditorModel::selectScene(std::size_t scene, bool isSought) {
    if (scene >= edited().spec.scenes.size()) return;
    select({scene, std::nullopt});
    if (isSought) seek(CompositionTimeline(edited().spec).startSec[scene] + insideSec);
}

void CompositionEditorModel::selectLayer(std::size_t scene, std::size_t layer) {
    const std::shared_ptr<const EditState> now = state.edited.shared();
    const CompositionLayer* selected = now->layer(scene, layer);
    if (selected == nullptr) return;
    const double sceneSec = CompositionTimeline(now->spec).startSec[scene];
    const double startSec = sceneSec + selected->fromSec;
    const double endSec =
        selected->durationSec ? startSec + *selected->durationSec : sceneSec + now->scene(scene)->durationSec;
    double inSec = afterEnteringSec;
    if (selected->enter)
        inSec = std::min(selected->enter->durationSec + afterEnteringSec, (endSec - startSec) / 2);
    select({scene, layer});
    if (state.currentTime() < startSec || state.currentTime() >= endSec - insideSec)
        seek(std::min(endSec - insideSec, startSec + inSec));
}

void CompositionEditorModel::clearSelection() { select({}); }

}   // namespace tavix
