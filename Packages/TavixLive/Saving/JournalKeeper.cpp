#include "TavixLive/Saving/JournalKeeper.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace tavix {

struct JournalKeeper::Disk {
    // The folder is made with the first change: most documents are only looked at.
    void keep(const std::filesystem::path& journals, const std::optional<UnsavedWork>& work) {
        if (!journal && work) journal.emplace(journals);
        if (work)
            journal->write(*work);
        else if (journal)
            journal->clear();
    }
    std::optional<Journal> journal;
};

JournalKeeper::JournalKeeper(const Surroundings& surroundings, std::function<UnsavedWork()> unsaved)
    : around_(surroundings), unsaved_(std::move(unsaved)), disk_(std::make_shared<Disk>()) {}

JournalKeeper::~JournalKeeper() {
    around_.files.post([disk = std::move(disk_)]() mutable { disk.reset(); });
}

void JournalKeeper::noteChange() {
    isUnsaved_ = true;
    ++changes_;
    if (timer_.isSet()) return;   // the first of many changes tells the time
    timer_ = around_.main.after(around_.delaySec, [this] {
        timer_.cancel();
        isDue_ = true;
        step();
    });
}

void JournalKeeper::noteSaved() {
    timer_.cancel();
    isUnsaved_ = false;
    written_ = changes_;
    isDue_ = true;
    step();
}

void JournalKeeper::step() {
    if (isWriting_ || !isDue_) return;
    isWriting_ = true;
    isDue_ = false;
    auto work = isUnsaved_ ? std::optional(unsaved_()) : std::nullopt;
    const bool isKept = work.has_value();
    system::runThere(
        around_.files, around_.main,
        [disk = disk_, journals = around_.journals, work = std::move(work)] {
            disk->keep(journals, work);
            return true;
        },
        lifeline_.guard([this, isKept, changes = changes_](system::Outcome<bool>& outcome) {
            isWriting_ = false;
            try {
                outcome.value();
                hasFailed_ = false;
                written_ = std::max(written_, changes);
                if (isKept && onWritten_) onWritten_();
            } catch (const std::exception& error) {
                if (!std::exchange(hasFailed_, true))
                    tell(around_.log,
                        Finding::warning("journal-not-written",
                            std::string("A crash would cost what is not saved: ") + error.what()));
            }
            step();
        }));
}

}   // namespace tavix
