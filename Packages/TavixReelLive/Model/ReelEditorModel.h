// The one object behind a window with a reel: the open project, its undo, its preview and its player. Every
// change of the document goes through `update`, which has the preview follow.
#pragma once

#include "TavixLive/Files/RecentProjects.h"
#include "TavixLive/Observing/Observable.h"
#include "TavixLive/Playback/Player.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixReelLive/Operations/TimelineEdits.h"
#include "TavixReelLive/Preview/ReelSource.h"
#include "TavixReelLive/Project/ReelProject.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace tavix {

struct ReelEditorState {
    Observable<bool> isLoaded{false};
    Observable<EffectsSpec> spec;
    Observable<bool> hasUnsavedChanges{false};
    Observable<double> outputDuration{0}, currentTime{0};   // seconds of the finished reel
    Observable<bool> isPlaying{false};
    Observable<std::optional<std::string>> errorMessage;   // the one that the user must see
    Observable<std::string> statusMessage{"Open a reel to begin."};
    Observable<bool> isExporting{false};
    Observable<double> exportProgress{0};   // 0 to 1
    Observable<ExportFormat> exportFormat{ExportFormat::video};
    Observable<VideoCodec> exportVideoCodec{VideoCodec::h264};
    Observable<ExportContainer> exportContainer{ExportContainer::mp4};
    Observable<ResolutionPreset> exportResolution{ResolutionPreset::native};
};

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
            preview = [](const auto& spec, const auto& footage, const auto& assetRoot, imaging::Size room) {
                return reelPreview(spec, footage, assetRoot, room, {});
            };
        media::AudioOutput* output = nullptr;
        RecentProjects* recents = nullptr;   // none: nothing is remembered
        RenderLog scrubLog = {};             // what frames cost
        RenderLog exportLog = {};            // what could not be drawn or heard as it is asked for
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
    void save();
    const ReelProject* project() const { return project_ ? &*project_ : nullptr; }

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
    // While a caption is dragged its window draws it, and the preview does not.
    void setExcludedCaption(std::optional<std::size_t> index);
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
    struct Step {
        std::string name;
        EffectsSpec spec;   // as it was on the other side of the step
    };
    void arrive(ReelProject project);
    void become(EffectsSpec spec);
    void step(std::deque<Step>& from, std::deque<Step>& to);
    void finishRebuild(const std::string& key, ReelPreview preview);
    std::vector<ReelTimeline::ReelSegment> segments() const;
    EffectsSpec shownSpec() const;
    void observeTime();

    Services services_;
    Player player_;
    std::optional<ReelProject> project_;
    std::deque<Step> done_, undone_;   // the next to be taken last
    EffectsSpec saved_;
    std::optional<std::size_t> excludedCaption_;
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

// 30 below 45, otherwise 60: the rates that a reel is exported at.
int snapExportFps(double fps);
// "reel.gif", "reel.mov" or "reel.mp4".
std::string exportFileName(ExportFormat format, VideoCodec codec, ExportContainer container);

}   // namespace tavix
