#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"
#include "TavixReel/Camera/EffectsAuthor.h"
#include "TavixReelLive/Operations/CaptionEdits.h"

#include <algorithm>
#include <chrono>
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
    const bool isMovie = container == ExportContainer::mov || codec == VideoCodec::proRes422HQ ||
                         codec == VideoCodec::proRes4444;
    return isMovie ? "reel.mov" : "reel.mp4";
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

void ReelEditorModel::open(const std::filesystem::path& bundleOrVideo, Done then) {
    const std::uint64_t generation = ++openGeneration_;
    state.statusMessage = "Probing " + bundleOrVideo.filename().string() + "…";
    system::runThere(
        services_.workers, services_.main,
        [load = services_.load, bundleOrVideo] { return load(bundleOrVideo); },
        lifeline_.guard([this, generation, then = std::move(then)](system::Outcome<ReelProject>& outcome) {
            if (generation != openGeneration_) return;
            try {
                arrive(std::move(outcome.value()));
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Could not open: ") + error.what();
                state.statusMessage = "Open failed.";
            }
            if (then) then();
        }));
}

void ReelEditorModel::arrive(ReelProject project) {
    close();
    project_ = std::move(project);
    saved_ = project_->spec;
    const Batch together;
    state.spec = project_->spec;
    state.errorMessage = std::nullopt;
    state.isLoaded = true;
    if (services_.recents) {
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        try {
            services_.recents->add(project_->bundle.value_or(project_->rawVideo), now);
        } catch (const Failure& failure) {
            state.errorMessage = failure.message();
        }
    }
    const VideoProbe& probe = project_->probe;
    state.statusMessage = std::to_string(probe.widthPx) + "×" + std::to_string(probe.heightPx) + " @ " +
                          decimals(probe.fps, 1) + " fps — " +
                          std::to_string(state.spec().cameraTrack.size()) + " keyframe(s), " +
                          std::to_string(state.spec().cuts.size()) + " cut(s).";
    rebuildNow();
}

void ReelEditorModel::close() {
    ++openGeneration_;
    ++rebuildGeneration_;
    rebuildTimer_.cancel();
    player_.setItem(std::nullopt);
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
    state.spec = EffectsSpec{};
    state.outputDuration = 0;
    state.currentTime = 0;
    state.statusMessage = "Open a reel to begin.";
}

void ReelEditorModel::save() {
    if (!project_) return;
    try {
        writeFile(state.spec(), project_->effectsFile);
        saved_ = state.spec();
        state.hasUnsavedChanges = false;
        state.statusMessage = "Saved " + project_->effectsFile.filename().string() + ".";
    } catch (const Failure& failure) {
        state.errorMessage = failure.message();
        state.statusMessage = failure.message();
    }
}

void ReelEditorModel::become(EffectsSpec spec) {
    const Batch together;
    if (!keptPreCutSec_) keptPreCutSec_ = clock().playheadSec;
    state.spec = std::move(spec);
    state.currentTime = compositionSec(*keptPreCutSec_);
    state.hasUnsavedChanges = state.spec() != saved_;
    scheduleRebuild();
}

void ReelEditorModel::update(const std::string& stepName, const std::function<void(EffectsSpec&)>& mutate) {
    if (!project_) return;
    EffectsSpec changed = state.spec();
    mutate(changed);
    if (changed == state.spec()) return;
    undone_.clear();
    done_.push_back({stepName, state.spec()});
    if (done_.size() > mostSteps) done_.pop_front();
    become(std::move(changed));
}

void ReelEditorModel::step(std::deque<Step>& from, std::deque<Step>& to) {
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
    if (!project_ || !project_->timeline) return;
    std::size_t count = 0;
    update("Generate Captions", [&](EffectsSpec& spec) {
        count =
            CaptionEdits::generate(spec, project_->flow ? &*project_->flow : nullptr, *project_->timeline);
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

void ReelEditorModel::setExcludedCaption(std::optional<std::size_t> index) {
    if (index == excludedCaption_) return;
    excludedCaption_ = index;
    scheduleRebuild();
}

void ReelEditorModel::setStageRoom(imaging::Size room) {
    if (room == room_) return;
    room_ = room;
    scheduleRebuild();
}

}   // namespace tavix
