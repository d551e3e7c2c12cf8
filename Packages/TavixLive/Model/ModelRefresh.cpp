// How the preview follows the document.
#include "TavixLive/Model/CompositionEditorModel.h"
#include "TavixLive/Model/Overscan.h"

#include "TavixCore/Judge/CompositionLint.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double liveFrameStaysSec = 0.12;
constexpr double prewarmSec[] = {0.3, 0.55};   // into a scene: its first device has come in then

// The start of the first scene with a device in space, on the film's clock.
std::optional<double> first3DSceneStart(const CompositionSpec& spec) {
    const CompositionTimeline timeline(spec);
    for (std::size_t i = 0; i < spec.scenes.size(); ++i)
        for (const CompositionLayer& layer : spec.scenes[i].layers)
            if (const auto* device = std::get_if<DeviceContent>(&layer.content); device && device->scene3D)
                return timeline.startSec[i];
    return std::nullopt;
}

}   // namespace

// A burst of edits costs one refresh at once and one at its end.
void CompositionEditorModel::scheduleRefresh() {
    const bool isQuiet =
        !isRefreshing_ && (!lastRefreshAtSec_ || main_.nowSec() - *lastRefreshAtSec_ > quietSec);
    refreshTimer_ = main_.after(isQuiet ? 0 : coalesceSec, [this] {
        refreshTimer_.cancel();
        refreshNow();
    });
}

// One run of it, to its end.
struct CompositionEditorModel::Refresh {
    std::uint64_t epoch;
    Done then;
};

// The document as the preview shows it; nothing of one that has an error.
struct CompositionEditorModel::Judged {
    std::shared_ptr<const CompositionSpec> shown;
    std::string error;
};

// Judged elsewhere: a document may be long.
void CompositionEditorModel::refreshNow(Done then) {
    if (!state.isLoaded() || !state.bundle()) return;
    Refresh refresh{++refreshEpoch_, std::move(then)};
    isRefreshing_ = true;
    preview_.abandon();
    system::runThere(
        files(), main_,
        [edited = state.edited.shared(), overscan = state.previewOverscan()]() -> Judged {
            for (const CompositionLint::Finding& finding : CompositionLint::lint(edited->spec))
                if (finding.level == CompositionLint::Level::error)
                    return {nullptr, finding.path + ": " + finding.message};
            return {overscanned(edited, overscan), {}};
        },
        document_.guard([this, refresh = std::move(refresh)](
                            system::Outcome<Judged>& outcome) { showJudged(refresh, outcome); }));
}

void CompositionEditorModel::showJudged(const Refresh& refresh, system::Outcome<Judged>& outcome) {
    if (refresh.epoch != refreshEpoch_) return finishRefresh(refresh, {.isOvertaken = true, .failure = {}});
    Judged& judged = outcome.value();
    if (judged.shown)
        return preview_.show(std::move(judged.shown), *state.bundle(), room_,
            document_.guard(
                [this, refresh](const LivePreview::Ended& ended) { finishRefresh(refresh, ended); }));
    state.errorMessage = refreshProblem_ = judged.error;
    endRefresh();
    if (refresh.then) refresh.then();
}

void CompositionEditorModel::finishRefresh(const Refresh& refresh, const LivePreview::Ended& ended) {
    endRefresh();
    if (ended.isOvertaken || refresh.epoch != refreshEpoch_) {
        if (refresh.then) refresh.then();
        return;
    }
    if (ended.failure) {
        state.errorMessage = refreshProblem_ = "Preview failed: " + *ended.failure;
    } else {
        state.outputDuration = preview_.totalSec();
        state.currentTime = std::min(state.currentTime(), preview_.totalSec());
        clear(refreshProblem_);   // others do not go by drawing
        prewarm3D();
        // What is in the hand stays there.
        if (liveTarget_)
            liveApply();
        else
            letLiveFrameGo();
    }
    if (refresh.then) refresh.then();
}

void CompositionEditorModel::endRefresh() {
    isRefreshing_ = false;
    lastRefreshAtSec_ = main_.nowSec();
}

// The frame of a drag stays until that of the document has come.
void CompositionEditorModel::letLiveFrameGo() {
    if (!state.showsLiveFrame() || isLiveRenderInFlight()) return;
    liveFrameTimer_ = main_.after(liveFrameStaysSec, [this, epoch = refreshEpoch_] {
        if (epoch != refreshEpoch_ || isLiveRenderInFlight() || !state.showsLiveFrame()) return;
        state.showsLiveFrame = false;
        preview_.player().redraw();
    });
}

// Sets up the stages of devices before anybody comes to them. They stay while the player keeps its item.
void CompositionEditorModel::prewarm3D() {
    const auto startSec = first3DSceneStart(edited().spec);
    if (!startSec || !preview_.pictures()) return prewarmed_.reset();
    const auto& pictures = preview_.player().item()->pictures;
    if (prewarmed_.lock() == pictures && prewarmedSec_ == *startSec) return;
    prewarmed_ = pictures;
    prewarmedSec_ = *startSec;
    prewarm(0);
}

// One after another, and none for a document that has changed since.
void CompositionEditorModel::prewarm(std::size_t step) {
    if (step == std::size(prewarmSec)) return;
    preview_.pictures()->requestLive(prewarmedSec_ + prewarmSec[step],
        document_.guard([this, step, epoch = refreshEpoch_](const StagePicture&, const FrameSource::Drawn&) {
            if (epoch == refreshEpoch_)
                prewarm(step + 1);
            else
                prewarmed_.reset();   // the next one begins anew
        }));
}

void CompositionEditorModel::setStageRoom(imaging::Size room) {
    if (room == room_) return;
    room_ = room;
    scheduleRefresh();
}

void CompositionEditorModel::setStageSink(std::function<void(const StagePicture&)> sink) {
    sink_ = std::move(sink);
}

}   // namespace tavix
