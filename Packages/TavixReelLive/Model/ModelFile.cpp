// The files behind the document: opening, saving, other hands on them, and what a crash has left.
#include "TavixReelLive/Model/ReelEditorModel.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixCore/Support/Document.h"

#include <chrono>
#include <utility>

namespace tavix {

namespace {

std::string nameOf(const std::filesystem::path& path) { return path.filename().string(); }

}   // namespace

// Of two, the later counts. What was open stays when it fails.
void ReelEditorModel::openWith(const std::filesystem::path& place, std::function<Opened()> load,
    const char* failed, std::function<void(Opened&)> andThen, Done then) {
    const std::uint64_t generation = ++openGeneration_;
    state.statusMessage = "Probing " + nameOf(place) + "…";
    system::runThere(services_.workers, services_.main, std::move(load),
        lifeline_.guard([this, generation, failed, andThen = std::move(andThen), then = std::move(then)](
                            system::Outcome<Opened>& outcome) {
            if (generation != openGeneration_) return;
            try {
                Opened& opened = outcome.value();
                arrive(std::move(opened.project));
                andThen(opened);
            } catch (const std::exception& error) {
                state.errorMessage = std::string(failed) + error.what();
                state.statusMessage = "Open failed.";
            }
            if (then) then();
        }));
}

void ReelEditorModel::open(const std::filesystem::path& bundleOrVideo, Done then) {
    openWith(
        bundleOrVideo,
        [load = services_.load, bundleOrVideo] {
            return Opened{load(bundleOrVideo), {}};
        },
        "Could not open: ", [](Opened&) {}, std::move(then));
}

void ReelEditorModel::arrive(ReelProject project) {
    close();
    project_ = std::move(project);
    const Batch together;
    state.spec = project_->onDisk.spec;
    state.errorMessage = std::nullopt;
    state.isLoaded = true;
    file_ = std::make_unique<ReelFile>(
        ReelFile::Surroundings{services_.main, files(), services_.watcher, journals(), services_.backups,
            services_.exportLog, services_.journalDelaySec},
        ReelFile::Place{project_->place(), project_->rawVideo, project_->timelineFile, project_->effectsFile},
        ReelFile::Owner{state,
            [this](EffectsSpec theirs) {
                noteStep("Take in changes", state.spec());
                become(std::move(theirs));
            },
            [this] { reopenRecording(); }, [this] { scheduleRebuild(); },
            [this] { return beforeLive_.has_value(); }},
        project_->onDisk);
    if (services_.recents) {
        const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
        try {
            services_.recents->add(project_->place(), now);
        } catch (const Failure& failure) {
            state.errorMessage = failure.message();
        }
    }
    std::string ignored;
    for (const std::string& sentence : project_->ignored) ignored += (ignored.empty() ? "" : "\n") + sentence;
    if (!ignored.empty()) state.errorMessage = ignored;
    const VideoProbe& probe = project_->probe;
    state.statusMessage = std::to_string(probe.widthPx) + "×" + std::to_string(probe.heightPx) + " @ " +
                          decimals(probe.fps, 1) + " fps — " +
                          std::to_string(state.spec().cameraTrack.size()) + " keyframe(s), " +
                          std::to_string(state.spec().cuts.size()) + " cut(s).";
    rebuildNow();
}

// The document stays; what is known of the recording is found out anew.
void ReelEditorModel::reopenRecording() {
    if (!project_) return;
    system::runThere(
        services_.workers, services_.main,
        [load = services_.load, place = project_->place()] { return load(place); },
        lifeline_.guard([this, generation = openGeneration_](system::Outcome<ReelProject>& outcome) {
            if (generation != openGeneration_ || !project_) return;
            try {
                ReelProject fresh = std::move(outcome.value());
                fresh.onDisk = std::move(project_->onDisk);
                project_ = std::move(fresh);
                shownKey_.reset();   // the same clock may show other pictures
                keptPreCutSec_ = keptPreCutSec_.value_or(clock().playheadSec);
                scheduleRebuild();
                state.statusMessage = "Took in the changed recording.";
            } catch (const std::exception& error) {
                state.errorMessage =
                    "The recording has changed and cannot be opened: " + std::string(error.what()) +
                    " What is shown may be the old one.";
            }
        }));
}

void ReelEditorModel::save(Done then, IfChanged ifChanged) {
    if (file_) file_->save(std::move(then), ifChanged);
}

void ReelEditorModel::lookAtFile() {
    if (file_) file_->lookAtFile();
}
void ReelEditorModel::takeInFile() {
    if (file_) file_->takeInFile();
}

void ReelEditorModel::chooseForConflict(std::size_t index, MergeSide side) {
    state.fileConflicts = DocumentMerge::chosen(state.fileConflicts(), index, side);
}

void ReelEditorModel::chooseForAllConflicts(MergeSide side) {
    state.fileConflicts = DocumentMerge::allChosen(state.fileConflicts(), side);
}

std::filesystem::path ReelEditorModel::journals() const {
    const std::filesystem::path& folder = services_.stateFolder;
    return folder.empty() ? folder : folder / "reel-journals";
}

void ReelEditorModel::findLostWork(Done then) { lost_.find(journals(), std::move(then)); }

void ReelEditorModel::forgetLostWork(std::size_t index) {
    if (const auto lost = lost_.take(index)) lost_.forget(*lost);
}

void ReelEditorModel::recoverLostWork(std::size_t index, Done then) {
    const auto lost = lost_.take(index);
    if (!lost) return;
    openWith(
        lost->assetRoot(),
        [lost = *lost, load = services_.load] {
            const UnsavedWork work = lost.read();
            Opened opened{load(work.assetRoot), decodeValue<EffectsSpec>(work.document())};
            // What it was edited from; others may have gone on with the file.
            if (work.writtenText) opened.project.onDisk = ReelOnDisk::of(*work.writtenText);
            return opened;
        },
        "Could not bring back what was not saved: ",
        [this, lost = *lost](Opened& opened) {
            file_->setOnKept([this, lost] { lost_.forget(lost); });
            update("Recover changes", [&](EffectsSpec& spec) { spec = std::move(*opened.recovered); });
            state.statusMessage = "Brought back what was not saved.";
            lookAtFile();
        },
        std::move(then));
}

}   // namespace tavix
