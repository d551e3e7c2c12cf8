// The one object behind a window with a composition: the open document, its undo, its preview and its player.
// Every change of the document goes through `update`, which asks for a refresh of the preview.
#pragma once

#include "TavixLive/Files/Backups.h"
#include "TavixLive/Files/RecentProjects.h"
#include "TavixLive/Model/EditorState.h"
#include "TavixLive/Model/ExportQueue.h"
#include "TavixLive/Model/History.h"
#include "TavixLive/Model/SpareState.h"
#include "TavixLive/Playback/LivePreview.h"
#include "TavixLive/Saving/DocumentOnDisk.h"
#include "TavixLive/Saving/JournalKeeper.h"
#include "TavixPlatform/System/FolderWatcher.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tavix {

// Lives on the main executor. Long work comes back to it and is dropped when it is not wanted any more.
class CompositionEditorModel {
public:
    struct Services {
        LivePreview::Executors executors;
        std::shared_ptr<PreviewMaker> maker;
        media::AudioOutput* output = nullptr;
        RecentProjects* recents = nullptr;   // none: nothing is remembered
        LivePreview::Logs logs = {};
        // Reads and writes documents, while the workers may be busy with an export; without one they do it.
        system::Executor* files = nullptr;
        system::FolderWatcher* watcher =
            nullptr;                              // none: what others write is noticed when saving, or asked
        std::filesystem::path stateFolder = {};   // of journals; empty: nothing outlives a crash
        const Backups* backups = nullptr;         // none: what saving replaces is gone
        double journalDelaySec = JournalKeeper::usualDelaySec;
        // Where exports keep finished pieces of films; absent: nowhere.
        std::optional<std::filesystem::path> pieceStore = {};
    };
    using Done = std::function<void()>;

    explicit CompositionEditorModel(const Services& services);
    ~CompositionEditorModel();

    EditorState state;

    // Reads a bundle, and shows it. What fails is told in the state.
    void open(const std::filesystem::path& bundle, Done then = {});
    // A document that no bundle stands behind yet; its files hang from that folder.
    void loadInMemory(const CompositionSpec& spec, const std::filesystem::path& assetRoot, Done then = {});
    void close();
    // Changes the file where the document was edited. One that another program has written meanwhile is left
    // alone, unless that is asked for.
    void save(Done then = {}, DocumentOnDisk::IfChanged ifChanged = DocumentOnDisk::IfChanged::refuse);

    // Whether another program has written the file: asked when something changes in the bundle, and by a
    // window that comes to the front. What it changed becomes a step, merged with what is not saved yet;
    // where both changed the same value, nothing happens until it is chosen what to keep (`fileConflicts` of
    // the state).
    void lookAtFile() { look(false); }
    void chooseForConflict(std::size_t index, MergeSide side);
    void chooseForAllConflicts(MergeSide side);
    // Once everything is chosen.
    void takeInFile() { look(true); }

    // Asked once at the start: what sessions that crashed have left (`lostWork` of the state). Each is to be
    // brought back or given up; until then it is found again.
    void findLostWork(Done then = {});
    // As unsaved changes, in the place of the document that is open, and merged with what the file has
    // become.
    void recoverLostWork(std::size_t index, Done then = {});
    void forgetLostWork(std::size_t index);

    std::string specJSONText() const;
    // The text as the new document; otherwise what is wrong with it.
    std::optional<std::string> applySpecJSON(std::string_view text);

    // Works out what saving would write now, on any thread: the document as its author wrote it, changed
    // where it was edited. What it gives throws a `Failure`.
    std::function<std::string()> savedText() const;
    // Such a text, changed by hand, as a step of that name: what it says is saved as it is written, with keys
    // that nobody knows and without those that went. Otherwise what is wrong with it.
    std::optional<std::string> applySavedText(std::string text, const std::string& stepName);

    // The one way to change the document: a step of that name, unless nothing changes.
    void update(const std::string& stepName, const std::function<void(EditState&)>& mutate);
    // Everything in between is one step.
    void beginGesture(const std::string& stepName);
    void endGesture();
    void cancelGesture();   // and the drag in it: as if it had never begun
    void undo();
    void redo();
    const History& history() const { return history_; }

    void scheduleRefresh();
    void refreshNow(Done then = {});   // `then` also when another refresh has overtaken it
    // How much room the stage has, in pixels of the screen.
    void setStageRoom(imaging::Size room);
    void setStageSink(std::function<void(const StagePicture&)> sink);

    void seek(double toSec);
    void togglePlay();
    // A part of the film to play again and again; one that is empty or outside of the film is none.
    void setLoop(std::optional<FilmRange> loop);
    void selectScene(std::size_t scene, bool isSought);
    void selectLayer(std::size_t scene, std::size_t layer);
    void clearSelection();

    // Flat, or in space again as it was before, while the document is open.
    void setDevice3D(std::size_t scene, std::size_t layer, bool isEnabled);
    // A keyframe so many seconds after the end of the scene, which grows by them; the playhead goes there.
    void appendKeyframe(std::size_t scene, std::size_t layer, double extraSec);

    // Drags: shown at once, and a part of the document when they end.
    void liveUpdatePlacement(std::size_t scene, std::size_t layer, const DevicePlacementSpec& placement);
    void liveUpdateScene3D(std::size_t scene, std::size_t layer, const DeviceScene3D& scene3D);
    void commitLiveEdits();
    // A drag of a device over the stage, by the distance from where it began: a keyframe at the playhead
    // follows it, and it is one step. Flat devices follow through the document.
    void beginDeviceDrag(std::size_t scene, std::size_t layer);
    // By points of the view; nothing where the canvas has no height in it.
    void dragDeviceMove(
        double dxPoints, double dyPoints, double fittedHeight, DeviceOperations::DeviceMoveAxis axis);
    void dragDeviceRotate(const PixelPoint& from, const PixelPoint& to, const DeviceGizmoMath::Arcball& ball);
    void dragDeviceScale(double dyPoints);
    void endDeviceDrag();
    const std::optional<DeviceOperations::DeviceDragStart>& deviceDragStart() const {
        return deviceDragStart_;
    }
    void liveUpsertUnifiedKeyframe(
        std::size_t scene, std::size_t layer, double atSec, const DeviceKeyframes::UnifiedState& stands);
    // Turns a device in space, and all of its poses with it.
    void liveSetRestTilt(
        std::size_t scene, std::size_t layer, DeviceKeyframes::TiltAxis axis, double degrees);
    void setPreviewOverscan(double value);
    void zoomPreview(double factor);
    void setPreviewPan(double x, double y) { state.previewPan = NormalizedVec2{x, y}; }
    void resetPreviewView();

    // With the wishes of the state, on a copy of everything as it is; after those that were asked for before.
    void exportTo(const std::filesystem::path& file, Done then = {});
    CompositionRenderer::Config exportConfig() const;   // of a document that is open
    ExportQueue& exports() { return exports_; }
    void analyzeMusicGrid(Done then = {});

    LivePreview& preview() { return preview_; }

    static constexpr const char* takeInName = "Take in changes";   // of the step
    static constexpr double quietSec = 0.25, coalesceSec = 0.12, scrubEndSec = 0.3, overscanCommitSec = 0.25;

private:
    struct LiveTarget {
        std::size_t scene, layer;
        bool operator==(const LiveTarget&) const = default;
    };
    struct Gesture {
        std::string name;
        History::Moment before;
        bool wasUnsaved;
    };

    struct Look;

    const EditState& edited() const { return state.edited(); }
    system::Executor& files() const {
        return services_.files ? *services_.files : services_.executors.workers;
    }
    History::Moment moment() const { return {state.edited.shared(), state.currentTime()}; }
    void become(const std::string& stepName, EditState changed);
    void select(Selection selection);
    EditState draft() { return spare_.take(state.edited.shared()); }   // of a change
    void replaceEdited(EditState changed);
    void record(const std::string& stepName, const History::Moment& before);
    void noteHistory();
    void packHistory();
    std::optional<std::string> applyText(std::string_view text, const std::string& stepName);
    void show(const History::Moment& moment);
    void arrive(const CompositionSpec& spec, const std::filesystem::path& assetRoot, Done then);
    void noteUnsaved(bool isUnsaved);
    void watchFile();
    void noteBundleEvent(const std::string& name);
    void noteAssetEvent(const std::string& name);
    void look(bool isAsked);
    void finishLook(system::Outcome<Look>& outcome);
    void takeIn(Look& found);
    const DocumentOnDisk& writtenForm() const;
    void showExports();
    void clear(std::optional<std::string>& problem);
    void startJournal();
    void noteJournal();
    UnsavedWork unsavedWork() const;
    struct Refresh;
    struct Judged;
    void showJudged(const Refresh& refresh, system::Outcome<Judged>& outcome);
    void finishRefresh(const Refresh& refresh, const LivePreview::Ended& ended);
    void endRefresh();
    void letLiveFrameGo();
    void prewarm3D();
    void prewarm(std::size_t step);
    void issueChainedSeek();
    void lowerScrubQuality();
    void endScrub();
    void reachEnd();
    void followLoop();
    bool hold(const LiveTarget& target);
    void letGo();
    void liveApply();
    void dropLiveEdits();
    void applyLiveEdits(DeviceContent& device) const;
    void applyLiveEdits(EditState& changed) const;
    bool isLiveRenderInFlight() const { return !liveRender_.expired(); }
    void wantLiveRender();
    void issueLiveRender();
    void livePreviewTransform();
    std::optional<DeviceContent> liveDevice(std::size_t scene, std::size_t layer) const;
    void follow(const DeviceKeyframes::UnifiedState& stands);

    Services services_;
    system::SerialExecutor& main_;
    LivePreview preview_;
    History history_;
    SpareState spare_{main_, services_.executors.workers};
    Connection preparing_;
    std::optional<Gesture> gesture_;
    std::shared_ptr<const DocumentOnDisk> onDisk_;   // of a bundle that is open
    std::shared_ptr<const DocumentOnDisk> byHand_;   // a text that was applied since it was saved
    std::optional<JournalKeeper> journal_;           // of a document that is open
    DeviceOperations::Scene3DStash scene3DStash_;    // of the open document
    LostWorkShelf lost_{{main_, files(), state.lostWork}};
    std::optional<LostWork> recovered_;   // until it is in the journal of this session
    std::vector<system::FolderWatcher::Watch> watches_;
    bool isSaving_ = false, isLooking_ = false, isLookDue_ = false, isLookAsked_ = false;
    bool areWatchesStale_ = false;
    Done saveAgain_;   // asked for while it was saving
    // Those that are told as the error message: each goes when what it is about goes well.
    std::optional<std::string> fileProblem_, saveProblem_, refreshProblem_;
    system::Lifeline lifeline_, document_;   // of the model, and of the open document
    imaging::Size room_{540, 960};

    system::Timer refreshTimer_, scrubTimer_, overscanTimer_, liveFrameTimer_, lookTimer_, assetsTimer_;
    std::uint64_t refreshEpoch_ = 0;
    bool isRefreshing_ = false, isPacking_ = false;
    std::optional<double> lastRefreshAtSec_;
    std::weak_ptr<RenderChain> prewarmed_;
    double prewarmedSec_ = 0;

    bool isSeekInFlight_ = false, isScrubbing_ = false;
    std::optional<double> seekTarget_;

    std::optional<LiveTarget> liveTarget_;
    std::optional<DeviceScene3D> liveScene3D_;
    std::optional<DevicePlacementSpec> livePlacement_;
    std::optional<DeviceOperations::DeviceDragStart> deviceDragStart_;
    std::weak_ptr<RenderChain> liveRender_;   // draws a frame of a drag, unless it goes
    bool isLiveRenderDirty_ = false;
    std::function<void(const StagePicture&)> sink_;
    ExportQueue exports_;
    Connection exporting_;
};

}   // namespace tavix
