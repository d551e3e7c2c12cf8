// The file behind the document: saving, and other hands on it.
#include "TavixLive/Model/CompositionEditorModel.h"

#include "TavixCore/Project/AssetReferences.h"
#include "TavixCore/Project/CompositionProjectBundle.h"
#include "TavixLive/Model/FollowedSelection.h"
#include "TavixLive/Saving/ReplacedFile.h"

#include <exception>
#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

constexpr double settleSec = 0.05;         // a program may write a file in more than one step
constexpr double assetsSettleSec = 0.25;   // and many files one after another

// Whether a file of that name belongs to the sound.
bool isHeard(const CompositionSpec& spec, const std::string& name) {
    bool isFound = false;
    CompositionSpec soundOnly;
    soundOnly.audio = spec.audio;
    forEachAsset(soundOnly, [&](AssetKind kind, const std::string& path) {
        isFound |= kind == AssetKind::sound && fs::path(path).filename() == name;
    });
    return isFound;
}

}   // namespace

// What looking at the file found.
struct CompositionEditorModel::Look {
    std::shared_ptr<const DocumentOnDisk> theirs;   // none: the file is as it was
    std::shared_ptr<const EditState> ours;
    DocumentMerge::Conflicts conflicts;
    std::optional<EditState> merged;   // when nothing is left to choose
};

void CompositionEditorModel::save(Done then, DocumentOnDisk::IfChanged ifChanged) {
    if (!state.bundle() || !onDisk_) return;
    if (isSaving_) {
        saveAgain_ = [this, then = std::move(then), ifChanged] { save(then, ifChanged); };
        return;
    }
    isSaving_ = true;
    struct Written {
        std::shared_ptr<const EditState> edited;
        DocumentOnDisk onDisk;
    };
    system::runThere(
        files(), main_,
        [before = onDisk_, form = writtenForm(), edited = state.edited.shared(), bundle = *state.bundle(),
            ifChanged, backups = services_.backups, log = services_.logs.render] {
            if (backups) keepReplaced(*backups, bundle, CompositionProjectBundle::specFile(bundle), log);
            return Written{edited, before->replaced(form.textFor(edited->spec, bundle), bundle, ifChanged)};
        },
        document_.guard([this, then = std::move(then), byHand = byHand_](system::Outcome<Written>& outcome) {
            isSaving_ = false;
            try {
                Written& written = outcome.value();
                onDisk_ = std::make_shared<DocumentOnDisk>(std::move(written.onDisk));
                state.fileConflicts = DocumentMerge::Conflicts();
                clear(fileProblem_);
                clear(saveProblem_);
                // What was changed while it was written is not saved yet.
                if (byHand_ == byHand) byHand_.reset();
                const bool isSame =
                    written.edited == state.edited.shared() || written.edited->spec == edited().spec;
                noteUnsaved(byHand_ || liveTarget_ || !isSame);
                state.statusMessage = "Saved composition.json.";
            } catch (const DocumentOnDisk::Changed& refusal) {
                state.errorMessage = fileProblem_ = refusal.message();
                lookAtFile();
            } catch (const std::exception& error) {
                state.errorMessage = saveProblem_ = error.what();
            }
            if (then) then();
            if (const auto again = std::exchange(saveAgain_, {})) again();
            if (isLookDue_) lookAtFile();
        }));
}

void CompositionEditorModel::noteUnsaved(bool isUnsaved) {
    state.hasUnsavedChanges = isUnsaved;
    // What is to be chosen may be something else now.
    if (isUnsaved && !state.fileConflicts().empty())
        lookTimer_ = main_.after(settleSec, [this] { lookAtFile(); });
    if (!journal_) return;
    if (isUnsaved)
        journal_->noteChange();
    else
        journal_->noteSaved();
    state.isKept = journal_->isKept();
}

void CompositionEditorModel::watchFile() {
    watches_.clear();
    if (services_.watcher == nullptr || !onDisk_) return;
    const fs::path bundle = *state.bundle();
    const auto watch = [&](const fs::path& folder,
                           void (CompositionEditorModel::*noted)(const std::string&)) {
        watches_.push_back(services_.watcher->watch(folder, main_,
            document_.guard([this, noted](const std::string& name) { (this->*noted)(name); })));
    };
    try {
        watch(bundle, &CompositionEditorModel::noteBundleEvent);
    } catch (const std::system_error& error) {
        tell(services_.logs.render,
            Finding::warning("file-not-watched",
                std::string("What other programs change is noticed late: ") + error.what() + "."));
    }
    std::error_code ignored;
    const fs::path assets = CompositionProjectBundle::assetsFolder(bundle);
    if (fs::is_directory(assets, ignored)) try {
            watch(assets, &CompositionEditorModel::noteAssetEvent);
        } catch (const std::system_error&) {}   // told already, or gone a moment later
}

void CompositionEditorModel::noteBundleEvent(const std::string& name) {
    const bool isOtherFolder = name.empty() || name == CompositionProjectBundle::assetsDirName;
    if (name == CompositionProjectBundle::specName || isOtherFolder) {
        areWatchesStale_ |= isOtherFolder;
        lookTimer_ = main_.after(settleSec, [this] {
            if (std::exchange(areWatchesStale_, false)) watchFile();
            lookAtFile();
        });
    }
    if (name != CompositionProjectBundle::specName) noteAssetEvent(name);
}

void CompositionEditorModel::noteAssetEvent(const std::string& name) {
    if (name.starts_with('.')) return;   // a file that is being made
    if (isHeard(edited().spec, name)) preview_.noteSoundChanged();
    assetsTimer_ = main_.after(assetsSettleSec, [this] { scheduleRefresh(); });
}

void CompositionEditorModel::look(bool isAsked) {
    if (!onDisk_) return;
    isLookAsked_ |= isAsked;
    isLookDue_ = isSaving_ || gesture_ || liveTarget_ || isLooking_;
    if (isLookDue_) return;
    isLooking_ = true;
    system::runThere(
        files(), main_,
        [base = onDisk_, ours = state.edited.shared(), bundle = *state.bundle(),
            chosen = state.fileConflicts(), mayTakeIn = std::exchange(isLookAsked_, false)] {
            Look found;
            found.ours = ours;
            if (DocumentOnDisk::textIn(bundle) == base->text) return found;
            found.theirs = std::make_shared<DocumentOnDisk>(DocumentOnDisk::read(bundle));
            MergeOf merge(base->spec, ours->spec, found.theirs->spec);
            merge.chooseAsIn(chosen);
            found.conflicts = merge.conflicts();
            if (found.conflicts.empty() || (mayTakeIn && merge.isDecided())) {
                found.merged.emplace(EditState{merge.document(), {}});
                found.merged->selection = followedSelection(*ours, found.merged->spec);
            }
            return found;
        },
        document_.guard([this](system::Outcome<Look>& outcome) { finishLook(outcome); }));
}

void CompositionEditorModel::finishLook(system::Outcome<Look>& outcome) {
    isLooking_ = false;
    try {
        Look& found = outcome.value();
        if (found.conflicts.empty()) clear(fileProblem_);
        if (!found.theirs) {
            state.fileConflicts = DocumentMerge::Conflicts();
        } else if (isSaving_ || gesture_ || liveTarget_ || !(found.ours->spec == edited().spec)) {
            isLookDue_ = true;   // the document went on meanwhile
            isLookAsked_ |= found.merged && !found.conflicts.empty();
        } else if (found.merged) {
            takeIn(found);
        } else {
            state.fileConflicts = std::move(found.conflicts);
            state.statusMessage =
                "Another program changed composition.json where you did, too; choose what to keep.";
        }
    } catch (const std::exception& error) {
        fileProblem_ = std::string("Another program changed composition.json, which cannot be taken in: ") +
                       error.what() + " The document stays as it is here.";
        state.errorMessage = fileProblem_;
    }
    if (isLookDue_) look(false);
}

void CompositionEditorModel::takeIn(Look& found) {
    const History::Moment before = moment();
    const bool isChanged = !(found.merged->spec == before.state->spec);
    const bool isSelectionKept = edited().selection == found.ours->selection;
    const Batch together;
    clear(fileProblem_);
    const TakenIn taken{std::exchange(onDisk_, found.theirs), found.theirs};
    byHand_.reset();
    state.fileConflicts = DocumentMerge::Conflicts();
    if (isChanged) {
        if (!isSelectionKept) found.merged->selection = edited().selection;
        clampSelection(*found.merged);
        state.edited = std::move(*found.merged);
        record(takeInName, before);
        state.takenIn = taken;
        scheduleRefresh();
    }
    noteUnsaved(!(edited().spec == onDisk_->spec));
    state.statusMessage = "Took in what another program changed.";
}

void CompositionEditorModel::clear(std::optional<std::string>& problem) {
    if (problem && state.errorMessage() == problem) state.errorMessage = std::nullopt;
    problem.reset();
}

void CompositionEditorModel::chooseForConflict(std::size_t index, MergeSide side) {
    state.fileConflicts = DocumentMerge::chosen(state.fileConflicts(), index, side);
}

void CompositionEditorModel::chooseForAllConflicts(MergeSide side) {
    state.fileConflicts = DocumentMerge::allChosen(state.fileConflicts(), side);
}

}   // namespace tavix
