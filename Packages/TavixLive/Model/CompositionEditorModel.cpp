#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixBase/Utf8.h"
#include "TavixCore/Judge/CompositionRoad.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Time/CompositionTimeline.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <utility>

namespace tavix {

namespace {

std::string formatted(const char* format, auto... values) {
    char text[256];
    std::snprintf(text, sizeof text, format, values...);
    return text;
}

std::string sizeText(const CompositionOutput& output) {
    return std::to_string(output.widthPx) + "×" + std::to_string(output.heightPx);
}

// What was wrong with a text that is no document.
std::string decodeErrorMessage(const DecodingError& error) {
    const std::string place = error.path().empty() ? "root" : error.path();
    switch (error.kind()) {
    case DecodingError::Kind::keyNotFound: {
        const auto dot = place.rfind('.');
        const std::string key = dot == std::string::npos ? place : place.substr(dot + 1);
        return "Missing key \"" + key + "\" at " +
               (dot == std::string::npos ? "root" : place.substr(0, dot)) + ".";
    }
    case DecodingError::Kind::valueNotFound:
    case DecodingError::Kind::typeMismatch: return error.message() + " (at " + place + ")";
    case DecodingError::Kind::dataCorrupted: break;
    }
    return "Invalid JSON — " + error.message();
}

bool isUtf8(std::string_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8::lengthAt(text, at);
        if (length == 0) return false;
        at += length;
    }
    return true;
}

// A project that cannot be remembered opens all the same.
void remember(const std::filesystem::path& bundle, const RecentProjects& recents, const RenderLog& log) {
    using namespace std::chrono;
    try {
        recents.add(bundle, floor<seconds>(system_clock::now()));
    } catch (const Failure& failure) {
        tell(log, Finding::warning("project-not-remembered", failure.message()));
    }
}

void run(const CompositionEditorModel::Done& done) {
    if (done) done();
}

}   // namespace

CompositionEditorModel::CompositionEditorModel(const Services& services)
    : services_(services), main_(services.executors.main),
      preview_(services.executors, services.maker, services.output, services.logs),
      exports_(services.executors.main, services.executors.workers, services.logs.render) {
    exporting_ = watch([this] { showExports(); }, exports_.jobs);
    preparing_ = watch([this] { spare_.prepare(state.edited.shared()); }, state.edited);
    Player& player = preview_.player();
    player.setSink([this](const StagePicture& picture) {
        if (!state.showsLiveFrame() && sink_) sink_(picture);
    });
    player.setTimeObserver(1.0 / 30, [this] {
        if (!isScrubbing_) state.currentTime = preview_.player().currentSec();
        state.isPlaying = preview_.player().isPlaying();
        followLoop();
    });
    preview_.ahead().setOnCached(
        [this](const std::vector<FilmRange>& cached) { state.cachedRanges = cached; });
    player.setOnEnd([this] { reachEnd(); });
}

CompositionEditorModel::~CompositionEditorModel() = default;

void CompositionEditorModel::open(const std::filesystem::path& bundle, Done then) {
    close();
    system::runThere(
        files(), main_,
        [bundle, recents = services_.recents, log = services_.logs.render] {
            DocumentOnDisk onDisk = DocumentOnDisk::read(bundle);
            if (recents) remember(bundle, *recents, log);
            return onDisk;
        },
        document_.guard([this, bundle, then = std::move(then)](system::Outcome<DocumentOnDisk>& outcome) {
            try {
                onDisk_ = std::make_shared<DocumentOnDisk>(std::move(outcome.value()));
                arrive(onDisk_->spec, bundle, [this, then] {
                    const CompositionSpec& spec = edited().spec;
                    state.statusMessage = sizeText(spec.output) + " @ " + spec.output.fps.shown() + "fps — " +
                                          std::to_string(spec.scenes.size()) + " scene(s), " +
                                          formatted("%.1fs.", CompositionTimeline(spec).totalSec);
                    run(then);
                });
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Could not open: ") + error.what();
                state.statusMessage = "Open failed.";
                run(then);
            }
        }));
}

void CompositionEditorModel::loadInMemory(
    const CompositionSpec& spec, const std::filesystem::path& assetRoot, Done then) {
    close();
    arrive(spec, assetRoot, [this, then = std::move(then)] {
        state.statusMessage = sizeText(edited().spec.output) +
                              formatted(" — %.2fs", CompositionTimeline(edited().spec).totalSec);
        run(then);
    });
}

void CompositionEditorModel::arrive(
    const CompositionSpec& spec, const std::filesystem::path& assetRoot, Done then) {
    {
        const Batch together;
        state.bundle = assetRoot;
        state.edited = EditState{spec, {}};
        state.isLoaded = true;
        state.hasUnsavedChanges = false;
        state.errorMessage = std::nullopt;
    }
    startJournal();
    watchFile();
    refreshNow(then ? Done(document_.guard(std::move(then))) : Done());
}

void CompositionEditorModel::close() {
    document_.cut();
    ++refreshEpoch_;
    for (system::Timer* timer :
        {&refreshTimer_, &scrubTimer_, &overscanTimer_, &liveFrameTimer_, &lookTimer_, &assetsTimer_})
        timer->cancel();
    preview_.close();
    preview_.ahead().setLoop(std::nullopt);
    history_.clear();
    packHistory();
    gesture_.reset();
    onDisk_.reset();
    byHand_.reset();
    journal_.reset();
    recovered_.reset();
    watches_.clear();
    saveAgain_ = {};
    scene3DStash_.clear();
    for (auto* problem : {&fileProblem_, &saveProblem_, &refreshProblem_}) problem->reset();
    isSaving_ = isLooking_ = isLookDue_ = isLookAsked_ = areWatchesStale_ = false;
    isPacking_ = isRefreshing_ = isSeekInFlight_ = isScrubbing_ = isLiveRenderDirty_ = false;
    seekTarget_.reset();
    liveRender_.reset();
    liveTarget_.reset();
    liveScene3D_.reset();
    livePlacement_.reset();
    deviceDragStart_.reset();
    const Batch together;
    state.isPlaying = false;
    state.isLoaded = false;
    state.hasUnsavedChanges = false;
    state.fileConflicts = DocumentMerge::Conflicts();
    state.takenIn = std::nullopt;
    state.isKept = true;
    state.bundle = std::nullopt;
    state.edited = EditState{};
    noteHistory();
    state.outputDuration = 0;
    state.currentTime = 0;
    state.statusMessage = "";
    state.loop = std::nullopt;
    state.isAnalyzingMusic = false;
    state.musicAnalysis = std::nullopt;
    state.showsLiveFrame = false;
}

std::string CompositionEditorModel::specJSONText() const { return encodedJson(edited().spec); }

std::optional<std::string> CompositionEditorModel::applySpecJSON(std::string_view text) {
    return applyText(text, "Edit JSON");
}

std::optional<std::string> CompositionEditorModel::applyText(
    std::string_view text, const std::string& stepName) {
    if (!isUtf8(text)) return "Text is not valid UTF-8.";
    try {
        EditState changed{decodeJson<CompositionSpec>(text), edited().selection};
        const CompositionRoad::AssetRoot root =
            state.bundle() ? CompositionRoad::AssetRoot(*state.bundle()) : std::nullopt;
        changed.spec = CompositionRoad::resolve(std::move(changed.spec), root).spec;
        letGo();
        clampSelection(changed);
        become(stepName, std::move(changed));
        return std::nullopt;
    } catch (const DecodingError& error) {
        return decodeErrorMessage(error);
    } catch (const Failure& failure) {
        return failure.message();
    }
}

// A text that was applied counts while the document goes on from it, and the file where all of that was
// undone.
const DocumentOnDisk& CompositionEditorModel::writtenForm() const {
    const bool isUndone = onDisk_->spec == edited().spec && byHand_ && !(byHand_->spec == edited().spec);
    return byHand_ && !isUndone ? *byHand_ : *onDisk_;
}

std::function<std::string()> CompositionEditorModel::savedText() const {
    if (!onDisk_ || !state.bundle()) return [spec = edited().spec] { return encodedJson(spec); };
    return [form = writtenForm(), spec = edited().spec, bundle = *state.bundle()] {
        return form.textFor(spec, bundle);
    };
}

std::optional<std::string> CompositionEditorModel::applySavedText(
    std::string text, const std::string& stepName) {
    const bool isOther = !onDisk_ || text != writtenForm().text;
    const auto fault = applyText(text, stepName);
    if (fault || !onDisk_ || !isOther) return fault;
    byHand_ = std::make_shared<const DocumentOnDisk>(DocumentOnDisk{std::move(text), edited().spec});
    noteUnsaved(true);
    return std::nullopt;
}

void CompositionEditorModel::update(
    const std::string& stepName, const std::function<void(EditState&)>& mutate) {
    letGo();
    EditState changed = draft();
    mutate(changed);
    become(stepName, std::move(changed));
}

void CompositionEditorModel::become(const std::string& stepName, EditState changed) {
    if (changed.spec == edited().spec) return select(std::move(changed.selection));
    History::Moment before = moment();
    replaceEdited(std::move(changed));
    if (!gesture_) record(stepName, before);
    files().post([before = std::move(before)]() mutable { before = {}; });   // unless it is kept
    noteUnsaved(true);
    scheduleRefresh();
}

void CompositionEditorModel::select(Selection selection) {
    if (selection == edited().selection) return spare_.prepare(state.edited.shared());
    EditState changed = draft();
    changed.selection = std::move(selection);
    replaceEdited(std::move(changed));
}

void CompositionEditorModel::replaceEdited(EditState changed) {
    state.edited.become(std::make_shared<const EditState>(std::move(changed)));
}

void CompositionEditorModel::record(const std::string& stepName, const History::Moment& before) {
    history_.record(stepName, before, moment());
    noteHistory();
    packHistory();
}

void CompositionEditorModel::noteHistory() {
    const auto nameOf = [](const std::string* name) { return name ? std::optional(*name) : std::nullopt; };
    const Batch together;
    state.undoName = nameOf(history_.undoName());
    state.redoName = nameOf(history_.redoName());
}

// Steps one after another; what they do not need any more is let go of there, too.
void CompositionEditorModel::packHistory() {
    auto spent = history_.takeSpent();
    if (!spent.empty()) files().post([spent = std::move(spent)]() mutable { spent.clear(); });
    if (isPacking_) return;
    auto step = history_.nextUnpacked();
    if (!step) return;
    isPacking_ = true;
    system::runThere(
        files(), main_, [step = std::move(*step)] { return History::pack(step); },
        document_.guard([this](system::Outcome<History::Packed>& packed) {
            isPacking_ = false;
            history_.put(std::move(packed.value()));
            noteHistory();
            packHistory();
        }));
}

void CompositionEditorModel::beginGesture(const std::string& stepName) {
    if (!gesture_) gesture_ = Gesture{stepName, moment(), state.hasUnsavedChanges()};
}

void CompositionEditorModel::endGesture() {
    if (!gesture_) return;
    const Gesture ended = *std::exchange(gesture_, std::nullopt);
    if (const auto& before = ended.before.state;
        before != state.edited.shared() && !(before->spec == edited().spec))
        record(ended.name, ended.before);
    if (isLookDue_) lookAtFile();
}

void CompositionEditorModel::cancelGesture() {
    deviceDragStart_.reset();
    dropLiveEdits();
    if (gesture_) {
        const Gesture ended = *std::exchange(gesture_, std::nullopt);
        state.edited = ended.before.state;
        // It may have been saved in between.
        noteUnsaved(ended.wasUnsaved || (onDisk_ && !(onDisk_->spec == edited().spec)));
    }
    scheduleRefresh();
    if (isLookDue_) lookAtFile();
}

void CompositionEditorModel::undo() {
    letGo();
    endGesture();
    if (const auto before = history_.undo(edited())) show(*before);
}

void CompositionEditorModel::redo() {
    letGo();
    endGesture();
    if (const auto after = history_.redo(edited())) show(*after);
}

void CompositionEditorModel::show(const History::Moment& moment) {
    {
        const Batch together;
        state.edited.become(moment.state);
        noteHistory();
    }
    noteUnsaved(true);
    scheduleRefresh();
    if (state.outputDuration() > 0 && !state.isPlaying()) seek(moment.playheadSec);
}

}   // namespace tavix
