// The one object behind a window with a reel: the open project, its undo, its preview and its player. Every
// change of the document goes through `update`, which has the preview follow.
#pragma once

#include "TavixLive/Files/RecentProjects.h"
#include "TavixLive/Playback/Player.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixReelLive/Model/ReelFile.h"
#include "TavixReelLive/Operations/TimelineEdits.h"
#include "TavixReelLive/Preview/ReelSource.h"
#include "TavixReelLive/Project/ReelProject.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix {

// Lives on the main executor. Long work comes back to it and is dropped when it is not wanted any more.
class ReelEditorModel {
public:
    struct Services {
        system::SerialExecutor& main;
        system::SerialExecutor& render;
        system::Executor& workers;
        std::function<ReelProject(const std::filesystem::path&)> load = ReelProject::load;
        // On the render executor.
        std::function<ReelPreview(const EffectsSpec&, const ReelFootage&,
            const std::filesystem::path& assetRoot, imaging::Size room)>
            preview = [transitions = std::make_shared<TransitionCache>()](
                          const auto& spec, const auto& footage, const auto& assetRoot, imaging::Size room) {
                return reelPreview(spec, footage, assetRoot, room, {}, *transitions);
            };
        media::AudioOutput* output = nullptr;
        RecentProjects* recents = nullptr;   // none: nothing is remembered
        // Reads and writes documents, while the workers may be busy with an export; without one they do it.
        system::Executor* files = nullptr;
        system::FolderWatcher* watcher =
            nullptr;                              // none: what others write is noticed when saving, or asked
        std::filesystem::path stateFolder = {};   // of journals; empty: nothing outlives a crash
        const Backups* backups = nullptr;         // none: what saving replaces is gone
        double journalDelaySec = JournalKeeper::usualDelaySec;
        RenderLog scrubLog = {};    // what frames cost
        RenderLog exportLog = {};   // what could not be drawn or heard as it is asked for
        // Where pieces of films are kept for the next export; absent: nowhere.
        std::optional<std::filesystem::path> pieceStore = {};
    };
    using Done = std::function<void()>;

    explicit ReelEditorModel(const Services& services);
    ~ReelEditorModel();

    ReelEditorState state;

    // A bundle, or a video with its documents beside it. What fails is told in the state.
    void open(const std::filesystem::path& bundleOrVideo, Done then = {});
    void close();
    // Changes the file where the document was edited. One that another program has written meanwhile is left
    // alone, unless that is asked for.
    void save(Done then = {}, IfChanged ifChanged = IfChanged::refuse);
    const ReelProject* project() const { return project_ ? &*project_ : nullptr; }

    // Whether another program has written the document: asked when something changes in its folder, and by a
    // window that comes to the front. What it changed becomes a step, merged with what is not saved yet;
    // where both changed the same value, nothing happens until it is chosen what to keep (`fileConflicts`).
    void lookAtFile();
    void chooseForConflict(std::size_t index, MergeSide side);
    void chooseForAllConflicts(MergeSide side);
    void takeInFile();   // once everything is chosen

    // Asked once at the start: what sessions that crashed have left (`lostWork`). Each is to be brought back,
    // as unsaved changes and merged with what the file has become, or given up; until then it is found again.
    void findLostWork(Done then = {});
    void recoverLostWork(std::size_t index, Done then = {});
    void forgetLostWork(std::size_t index);

    // The one way to change the document: a step of that name, unless nothing changes. The playhead stays on
    // the footage that it shows.
    void update(const std::string& stepName, const std::function<void(EffectsSpec&)>& mutate);
    void undo();
    void redo();
    // The name of the step that the next undo or redo takes; null when there is none.
    const std::string* undoName() const { return done_.empty() ? nullptr : &done_.back().name; }
    const std::string* redoName() const { return undone_.empty() ? nullptr : &undone_.back().name; }

    // Of the recording, in its own seconds. No step, as it is no part of the document.
    void setTrim(double startSec, double endSec);
    // The camera, cuts and paces as they are authored from the sidecar.
    void reAutoAuthor();
    void generateCaptions();

    // Where edits happen.
    ReelClock clock() const;
    double preCutSec(double forCompositionSec) const;
    double compositionSec(double forPreCutSec) const;

    void seek(double toSec);
    void seekPreCut(double toSec) { seek(compositionSec(toSec)); }
    void togglePlay();
    void redrawCurrentFrame() { player_.redraw(); }
    // While a caption is dragged its window draws it, and the preview does not. The place where it ends is a
    // step.
    void beginCaptionDrag(std::size_t index) { setExcludedCaption(index); }
    void endCaptionDrag(const NormalizedPoint& position);
    void cancelCaptionDrag() { setExcludedCaption(std::nullopt); }
    void setExcludedCaption(std::optional<std::size_t> index);

    // A turn of the device in space that is shown at once, without a rebuild, and becomes a step when it
    // ends.
    void liveSetDeviceTilt(const Vector3& tiltDegrees);
    void commitLiveEdits();
    // A picture of a device's frame, with the place of the screen that was found in it.
    void importDeviceFrame(const std::filesystem::path& picture, Done then = {});

    void setStageRoom(imaging::Size room);
    void setStageSink(std::function<void(const StagePicture&)> sink) { player_.setSink(std::move(sink)); }

    void exportTo(const std::filesystem::path& file, Done then = {});
    void stopExport() { exportStop_.request_stop(); }

    // At once when nothing was asked for lately, otherwise when a burst of edits is over.
    void scheduleRebuild();
    void rebuildNow();

    static constexpr double quietSec = 0.25, coalesceSec = 0.12;
    static constexpr std::size_t mostSteps = 500;

private:
    struct Opened {
        ReelProject project;
        std::optional<EffectsSpec> recovered;
    };
    struct Step {
        std::string name;
        EffectsSpec spec;   // as it was on the other side of the step
    };
    system::Executor& files() const { return services_.files ? *services_.files : services_.workers; }
    std::filesystem::path journals() const;
    void openWith(const std::filesystem::path& place, std::function<Opened()> load, const char* failed,
        std::function<void(Opened&)> andThen, Done then);
    void arrive(ReelProject project);
    void reopenRecording();
    void noteStep(std::string name, EffectsSpec before);
    void become(EffectsSpec spec);
    void clampSelection();
    void step(std::deque<Step>& from, std::deque<Step>& to);
    void finishRebuild(const std::string& key, ReelPreview preview);
    std::vector<ReelTimeline::ReelSegment> segments() const;
    EffectsSpec shownSpec() const;
    void observeTime();

    Services services_;
    Player player_;
    std::optional<ReelProject> project_;
    std::deque<Step> done_, undone_;   // the next to be taken last
    std::unique_ptr<ReelFile> file_;   // of the open project
    LostWorkShelf lost_{{services_.main, files(), state.lostWork}};
    std::optional<std::size_t> excludedCaption_;
    std::optional<EffectsSpec> beforeLive_;                        // while a turn of the device has not ended
    std::function<void(const Vector3& tiltDegrees)> turnDevice_;   // of the preview that is shown
    std::optional<double> keptPreCutSec_;   // of footage that the playhead stays on, until it is shown
    imaging::Size room_{540, 960};
    std::optional<std::string> shownKey_;   // of the player's item
    std::uint64_t openGeneration_ = 0, rebuildGeneration_ = 0;
    bool isRebuilding_ = false;
    std::optional<double> lastRebuildAtSec_;
    system::Timer rebuildTimer_;
    system::Lifeline lifeline_;
    std::stop_source exportStop_;
};

// The rates that a reel is exported at.
inline constexpr std::array exportFpsOptions{30, 60};
int snapExportFps(double fps);   // 30 below 45, otherwise 60
// "reel.gif", "reel.mov" or "reel.mp4".
std::string exportFileName(ExportFormat format, VideoCodec codec, ExportContainer container);

}   // namespace tavix
