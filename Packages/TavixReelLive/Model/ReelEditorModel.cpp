#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReelLive/Operations/CaptionEdits.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double observeEverySec = 1 / 30.0;

ReelFormat formatOf(const EffectsOutput& output, const VideoProbe& probe) {
    for (const ReelFormat format : {ReelFormat::vertical, ReelFormat::horizontal})
        if (const EffectsOutput usual = outputOf(format, 0, 0, 0);
            usual.widthPx == output.widthPx && usual.heightPx == output.heightPx)
            return format;
    return probe.widthPx > 0 ? ReelFormat::deviceNative : ReelFormat::vertical;
}

}   // namespace

int snapExportFps(double fps) { return fps < 45 ? 30 : 60; }

std::string exportFileName(ExportFormat format, VideoCodec codec, ExportContainer container) {
    if (format == ExportFormat::gif) return "reel.gif";
    if (container == ExportContainer::mov || isProRes(codec)) return "reel.mov";
    return container == ExportContainer::webm ? "reel.webm" : "reel.mp4";
}

ReelEditorModel::ReelEditorModel(const Services& services)
    : services_(services), player_(services.main, services.output) {
    player_.setTimeObserver(observeEverySec, [this] { observeTime(); });
    player_.setOnEnd([this] {
        observeTime();
        state.isPlaying = false;
    });
}

ReelEditorModel::~ReelEditorModel() { exportStop_.request_stop(); }

void ReelEditorModel::observeTime() { state.currentTime = player_.currentSec(); }

void ReelEditorModel::close() {
    ++openGeneration_;
    ++rebuildGeneration_;
    rebuildTimer_.cancel();
    player_.setItem(std::nullopt);
    file_.reset();
    turnDevice_ = {};
    beforeLive_.reset();
    project_.reset();
    done_.clear();
    undone_.clear();
    shownKey_.reset();
    excludedCaption_.reset();
    keptPreCutSec_.reset();
    lastRebuildAtSec_.reset();
    isRebuilding_ = false;
    const Batch together;
    state.isLoaded = false;
    state.isPlaying = false;
    state.hasUnsavedChanges = false;
    state.isKept = true;
    state.fileConflicts = DocumentMerge::Conflicts();
    state.spec = EffectsSpec{};
    clampSelection();
    state.outputDuration = 0;
    state.currentTime = 0;
    state.statusMessage = "Open a reel to begin.";
}

void ReelEditorModel::become(EffectsSpec spec) {
    const Batch together;
    if (!keptPreCutSec_) keptPreCutSec_ = clock().playheadSec;
    state.spec = std::move(spec);
    clampSelection();
    state.currentTime = compositionSec(*keptPreCutSec_);
    file_->noteEdit();
    scheduleRebuild();
}

void ReelEditorModel::clampSelection() {
    const EffectsSpec& spec = state.spec();
    const auto clamp = [](Observable<std::set<std::size_t>>& selected, std::size_t count) {
        std::set<std::size_t> left = selected();
        left.erase(left.lower_bound(count), left.end());
        selected = std::move(left);
    };
    clamp(state.selectedCaptions, spec.narration ? spec.narration->captions.size() : 0);
    clamp(state.selectedTransitions, spec.transitions().size());
    if (state.selectedCard().value_or(0) >= spec.titleCards.size()) state.selectedCard = std::nullopt;
}

void ReelEditorModel::noteStep(std::string name, EffectsSpec before) {
    undone_.clear();
    done_.push_back({std::move(name), std::move(before)});
    if (done_.size() > mostSteps) done_.pop_front();
}

void ReelEditorModel::update(const std::string& stepName, const std::function<void(EffectsSpec&)>& mutate) {
    if (!project_) return;
    commitLiveEdits();
    EffectsSpec changed = state.spec();
    mutate(changed);
    if (changed == state.spec()) return;
    noteStep(stepName, state.spec());
    become(std::move(changed));
}

void ReelEditorModel::step(std::deque<Step>& from, std::deque<Step>& to) {
    commitLiveEdits();
    if (from.empty()) return;
    Step taken = std::move(from.back());
    from.pop_back();
    to.push_back({taken.name, state.spec()});
    become(std::move(taken.spec));
}

void ReelEditorModel::undo() { step(done_, undone_); }
void ReelEditorModel::redo() { step(undone_, done_); }

void ReelEditorModel::setTrim(double startSec, double endSec) {
    if (!project_) return;
    project_->trimStartSec = std::clamp(startSec, 0.0, project_->rawDurationSec);
    project_->trimEndSec = std::clamp(endSec, project_->trimStartSec, project_->rawDurationSec);
    scheduleRebuild();
}

void ReelEditorModel::reAutoAuthor() {
    if (!project_ || !project_->timeline) return;
    update("Author Again", [this](EffectsSpec& spec) {
        EffectsSpec authored = EffectsAuthor::author(*project_->timeline, Background{},
            MotionSpec::smoothGlide, formatOf(spec.output, project_->probe));
        spec.cameraTrack = std::move(authored.cameraTrack);
        spec.motion = authored.motion;
        spec.cuts = std::move(authored.cuts);
        spec.retimeTrack = std::move(authored.retimeTrack);
    });
}

void ReelEditorModel::generateCaptions() {
    if (!project_) return;
    std::size_t count = 0;
    if (project_->timeline)
        update("Generate Captions", [&](EffectsSpec& spec) {
            count = CaptionEdits::generate(
                spec, project_->flow ? &*project_->flow : nullptr, *project_->timeline);
        });
    state.statusMessage = count == 0 ? std::string("No hero beats to caption.")
                                     : "Generated " + std::to_string(count) + " caption(s).";
}

std::vector<ReelTimeline::ReelSegment> ReelEditorModel::segments() const {
    return ReelTimeline::segmentsOf(
        state.spec(), ReelClock::of(project_->trimStartSec, project_->trimEndSec, 0).lengthSec);
}

double ReelEditorModel::preCutSec(double forCompositionSec) const {
    return project_ ? ReelTimeline::preCutSec(forCompositionSec, segments()) : 0;
}

double ReelEditorModel::compositionSec(double forPreCutSec) const {
    return project_ ? ReelTimeline::compositionSec(forPreCutSec, segments()) : 0;
}

ReelClock ReelEditorModel::clock() const {
    if (!project_) return {};
    return ReelClock::of(project_->trimStartSec, project_->trimEndSec, preCutSec(state.currentTime()));
}

void ReelEditorModel::seek(double toSec) {
    const double inside = std::clamp(toSec, 0.0, state.outputDuration());
    state.currentTime = inside;
    keptPreCutSec_.reset();
    player_.seek(inside);
}

void ReelEditorModel::togglePlay() {
    if (!player_.item()) return;
    if (player_.isPlaying())
        player_.pause();
    else
        player_.play();
    state.isPlaying = player_.isPlaying();
}

void ReelEditorModel::setStageRoom(imaging::Size room) {
    if (room == room_) return;
    room_ = room;
    scheduleRebuild();
}

}   // namespace tavix
