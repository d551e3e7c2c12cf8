#include "TavixReelLive/Model/ReelFile.h"

#include "TavixCore/Support/Document.h"
#include "TavixLive/Saving/ReplacedFile.h"
#include "TavixReel/Project/ReelAssets.h"

#include <chrono>
#include <exception>
#include <system_error>
#include <utility>

namespace tavix {

namespace {

namespace fs = std::filesystem;

constexpr double settleSec = 0.05;           // a program may write a file in more than one step
constexpr double recordingSettleSec = 0.5;   // and a recording in many

}   // namespace

// What looking at the file found.
struct ReelFile::Look {
    std::shared_ptr<const ReelOnDisk> theirs;   // none: the file is as it was
    EffectsSpec ours;
    DocumentMerge::Conflicts conflicts;
    std::optional<EffectsSpec> merged;   // when nothing is left to choose
};

ReelFile::ReelFile(const Surroundings& surroundings, Place place, Owner owner, ReelOnDisk onDisk)
    : around_(surroundings), place_(std::move(place)), owner_(std::move(owner)),
      onDisk_(std::make_shared<ReelOnDisk>(std::move(onDisk))) {
    if (!around_.journals.empty()) {
        journal_.emplace(JournalKeeper::Surroundings{around_.main, around_.files, around_.journals,
                             around_.log, around_.journalDelaySec},
            [this] { return unsavedWork(); });
        journal_->setOnWritten([this] {
            owner_.state.isKept = journal_->isKept();
            if (const auto kept = std::exchange(onKept_, {})) kept();
        });
    }
    watch();
}

UnsavedWork ReelFile::unsavedWork() const {
    return {place_.project, onDisk_->text,
        [spec = edited()] { return writeValue(typeOf<EffectsSpec>(), &spec); },
        std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now())};
}

void ReelFile::noteEdit() {
    // What is to be chosen may be something else now.
    if (!owner_.state.fileConflicts().empty())
        lookTimer_ = around_.main.after(settleSec, [this] { look(false); });
    noteUnsaved();
}

void ReelFile::noteDragEnd() {
    if (isLookDue_) look(false);
}

void ReelFile::noteUnsaved() {
    const bool isUnsaved = !(edited() == onDisk_->spec);
    owner_.state.hasUnsavedChanges = isUnsaved;
    if (!journal_) return;
    if (isUnsaved)
        journal_->noteChange();
    else
        journal_->noteSaved();
    owner_.state.isKept = journal_->isKept();
}

void ReelFile::save(Done then, IfChanged ifChanged) {
    if (isSaving_) {
        saveAgain_ = [this, then = std::move(then), ifChanged] { save(then, ifChanged); };
        return;
    }
    isSaving_ = true;
    system::runThere(
        around_.files, around_.main,
        [before = onDisk_, spec = edited(), place = place_, ifChanged, backups = around_.backups,
            log = around_.log] {
            if (backups) keepReplaced(*backups, place.project, place.effects, log);
            return before->saved(spec, place.effects, ifChanged);
        },
        lifeline_.guard([this, then = std::move(then)](system::Outcome<ReelOnDisk>& outcome) {
            isSaving_ = false;
            ReelEditorState& state = owner_.state;
            const std::string name = place_.effects.filename().string();
            try {
                const bool wasDamaged = onDisk_->damage && onDisk_->text;
                onDisk_ = std::make_shared<ReelOnDisk>(std::move(outcome.value()));
                state.fileConflicts = DocumentMerge::Conflicts();
                clearProblem();
                noteUnsaved();   // what was changed while it was written is not saved yet
                state.statusMessage = "Saved " + name + ".";
                if (wasDamaged)
                    state.statusMessage = "Saved " + name + "; what could not be read of it is kept as " +
                                          ReelOnDisk::damagedName(place_.effects).filename().string() + ".";
            } catch (const FileChanged& refusal) {
                state.errorMessage = problem_ = refusal.message();
                state.statusMessage = refusal.message();
                look(false);
            } catch (const std::exception& error) {
                state.errorMessage = problem_ = error.what();
                state.statusMessage = error.what();
            }
            const auto again = std::exchange(saveAgain_, {});
            if (isLookDue_) look(false);
            if (again) again();
            if (then) then();
        }));
}

void ReelFile::watch() {
    watch_.reset();
    if (!around_.watcher) return;
    try {
        watch_ = around_.watcher->watch(place_.effects.parent_path(), around_.main,
            lifeline_.guard([this](const std::string& name) { noteEvent(name); }));
    } catch (const std::system_error& error) {
        tell(around_.log,
            Finding::warning("file-not-watched",
                std::string("What other programs change is noticed late: ") + error.what() + "."));
    }
}

void ReelFile::noteEvent(const std::string& name) {
    if (name.starts_with('.')) return;   // a file that is being made
    const bool isOtherFolder = name.empty();
    if (isOtherFolder || name == place_.effects.filename())
        lookTimer_ = around_.main.after(settleSec, [this, isOtherFolder] {
            if (isOtherFolder) watch();
            look(false);
        });
    if (isOtherFolder || name == place_.video.filename() || name == place_.timeline.filename())
        recordingTimer_ = around_.main.after(recordingSettleSec, [this] { owner_.reopenRecording(); });
    else if (isNamed(name))
        pictureTimer_ = around_.main.after(recordingSettleSec, [this] { owner_.drawAnew(); });
}

// By the document; a folder with a loose video may hold many other files.
bool ReelFile::isNamed(const std::string& name) const {
    bool isNamed = false;
    EffectsSpec spec = edited();
    ReelAssets::forEach(
        spec, [&](AssetKind, std::string& path) { isNamed = isNamed || fs::path(path).filename() == name; });
    return isNamed;
}

void ReelFile::look(bool isAsked) {
    isLookAsked_ |= isAsked;
    isLookDue_ = isSaving_ || isLooking_ || owner_.isInHand();
    if (isLookDue_) return;
    isLooking_ = true;
    system::runThere(
        around_.files, around_.main,
        [base = onDisk_, ours = edited(), file = place_.effects, chosen = owner_.state.fileConflicts(),
            mayTakeIn = std::exchange(isLookAsked_, false)] {
            Look found;
            found.ours = ours;
            const auto text = ReelOnDisk::textIn(file);
            if (text == base->text) return found;
            if (!text) throw Failure("\"" + file.string() + "\" is not there any more.");
            found.theirs = std::make_shared<ReelOnDisk>(ReelOnDisk::of(*text));
            MergeOf merge(base->spec, ours, found.theirs->spec);
            merge.chooseAsIn(chosen);
            found.conflicts = merge.conflicts();
            if (found.conflicts.empty() || (mayTakeIn && merge.isDecided())) found.merged = merge.document();
            return found;
        },
        lifeline_.guard([this](system::Outcome<Look>& outcome) { finishLook(outcome); }));
}

void ReelFile::finishLook(system::Outcome<Look>& outcome) {
    isLooking_ = false;
    ReelEditorState& state = owner_.state;
    const std::string name = place_.effects.filename().string();
    try {
        Look& found = outcome.value();
        if (found.conflicts.empty()) clearProblem();
        if (!found.theirs) {
            state.fileConflicts = DocumentMerge::Conflicts();
        } else if (isSaving_ || owner_.isInHand() || !(found.ours == edited())) {
            isLookDue_ = true;   // the document went on meanwhile
            isLookAsked_ |= found.merged && !found.conflicts.empty();
        } else if (found.merged) {
            clearProblem();
            onDisk_ = found.theirs;
            state.fileConflicts = DocumentMerge::Conflicts();
            if (!(*found.merged == edited())) owner_.takeIn(std::move(*found.merged));
            noteUnsaved();
            state.statusMessage = "Took in what another program changed.";
        } else {
            state.fileConflicts = std::move(found.conflicts);
            state.statusMessage =
                "Another program changed " + name + " where you did, too; choose what to keep.";
        }
    } catch (const std::exception& error) {
        problem_ = "Another program changed " + name + ", which cannot be taken in: " + error.what() +
                   " The document stays as it is here.";
        state.errorMessage = problem_;
    }
    if (isLookDue_) look(false);
}

void ReelFile::clearProblem() {
    if (problem_ && owner_.state.errorMessage() == problem_) owner_.state.errorMessage = std::nullopt;
    problem_.reset();
}

}   // namespace tavix
