// What a session that crashed has left.
#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <chrono>
#include <exception>
#include <utility>

namespace tavix {

namespace {

std::filesystem::path journalsIn(const std::filesystem::path& stateFolder) {
    return stateFolder / "journals";
}

}   // namespace

UnsavedWork CompositionEditorModel::unsavedWork() const {
    EditState held = edited();
    applyLiveEdits(held);
    UnsavedWork work;
    work.assetRoot = *state.bundle();
    if (onDisk_) work.writtenText = onDisk_->text;
    work.document = [spec = std::move(held.spec)] { return writeValue(typeOf<CompositionSpec>(), &spec); };
    work.at = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    return work;
}

void CompositionEditorModel::startJournal() {
    if (services_.stateFolder.empty()) return;
    journal_.emplace(JournalKeeper::Surroundings{main_, files(), journalsIn(services_.stateFolder),
                         services_.logs.render, services_.journalDelaySec},
        [this] { return unsavedWork(); });
    journal_->setOnWritten([this] { noteJournal(); });
}

void CompositionEditorModel::noteJournal() {
    state.isKept = journal_->isKept();
    if (const auto kept = std::exchange(recovered_, std::nullopt)) lost_.forget(*kept);
}

void CompositionEditorModel::findLostWork(Done then) {
    const std::filesystem::path& folder = services_.stateFolder;
    lost_.find(folder.empty() ? folder : journalsIn(folder), std::move(then));
}

void CompositionEditorModel::forgetLostWork(std::size_t index) {
    if (const auto lost = lost_.take(index)) lost_.forget(*lost);
}

void CompositionEditorModel::recoverLostWork(std::size_t index, Done then) {
    const auto lost = lost_.take(index);
    if (!lost) return;
    close();
    struct Found {
        UnsavedWork work;
        CompositionSpec spec;
        std::shared_ptr<const DocumentOnDisk> onDisk;
    };
    system::runThere(
        files(), main_,
        [lost = *lost] {
            Found found{lost.read(), {}, {}};
            found.spec = decodeValue<CompositionSpec>(found.work.document());
            if (found.work.writtenText)
                found.onDisk = std::make_shared<DocumentOnDisk>(
                    DocumentOnDisk::of(*found.work.writtenText, found.work.assetRoot));
            return found;
        },
        document_.guard([this, lost = *lost, then = std::move(then)](system::Outcome<Found>& outcome) {
            try {
                Found& found = outcome.value();
                onDisk_ = found.onDisk;
                arrive(onDisk_ ? onDisk_->spec : found.spec, found.work.assetRoot, then);
                become("Recover changes", EditState{found.spec, {}});
                recovered_ = lost;
                noteUnsaved(true);
                state.statusMessage = "Brought back what was not saved.";
                lookAtFile();   // others may have gone on with it
            } catch (const std::exception& error) {
                state.errorMessage = std::string("Could not bring back what was not saved: ") + error.what();
                if (then) then();
            }
        }));
}

}   // namespace tavix
