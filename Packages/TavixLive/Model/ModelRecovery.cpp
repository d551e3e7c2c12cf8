// What a session that crashed has left.
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
    work.spec = std::move(held.spec);
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
    if (const auto kept = std::exchange(recovered_, std::nullopt))
        files().post([lost = *kept] { lost.forget(); });
}

void CompositionEditorModel::findLostWork(Done then) {
    if (services_.stateFolder.empty()) {
        if (then) main_.post(lifeline_.guard(std::move(then)));
        return;
    }
    system::runThere(
        files(), main_, [journals = journalsIn(services_.stateFolder)] { return LostWork::find(journals); },
        lifeline_.guard([this, then = std::move(then)](system::Outcome<std::vector<LostWork>>& outcome) {
            if (!outcome.hasFailed()) lost_ = std::move(outcome.value());
            offerLostWork();
            if (then) then();
        }));
}

void CompositionEditorModel::offerLostWork() {
    std::vector<LostWorkOffer> offers;
    for (const LostWork& lost : lost_) offers.push_back({lost.assetRoot(), lost.at()});
    state.lostWork = std::move(offers);
}

std::optional<LostWork> CompositionEditorModel::takeLostWork(std::size_t index) {
    if (index >= lost_.size()) return std::nullopt;
    LostWork taken = lost_[index];
    lost_.erase(lost_.begin() + std::ptrdiff_t(index));
    offerLostWork();
    return taken;
}

void CompositionEditorModel::forgetLostWork(std::size_t index) {
    if (const auto lost = takeLostWork(index)) files().post([lost = *lost] { lost.forget(); });
}

void CompositionEditorModel::recoverLostWork(std::size_t index, Done then) {
    auto lost = takeLostWork(index);
    if (!lost) return;
    close();
    struct Found {
        UnsavedWork work;
        std::shared_ptr<const DocumentOnDisk> onDisk;
    };
    system::runThere(
        files(), main_,
        [lost = *lost] {
            Found found{lost.read(), {}};
            if (found.work.writtenText)
                found.onDisk = std::make_shared<DocumentOnDisk>(
                    DocumentOnDisk::of(*found.work.writtenText, found.work.assetRoot));
            return found;
        },
        document_.guard([this, lost = *lost, then = std::move(then)](system::Outcome<Found>& outcome) {
            try {
                Found& found = outcome.value();
                onDisk_ = found.onDisk;
                arrive(onDisk_ ? onDisk_->spec : found.work.spec, found.work.assetRoot, then);
                become("Recover changes", EditState{found.work.spec, {}});
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
