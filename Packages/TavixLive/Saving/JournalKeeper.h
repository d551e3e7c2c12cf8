// Keeps a journal up to date with a document that is edited, a short time after every change, and never on
// the executor where it is edited.
#pragma once

#include "TavixLive/Saving/Journal.h"
#include "TavixPlatform/System/Continuation.h"
#include "TavixRender/Assets/RenderLog.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace tavix {

// Used on the main executor, of which both it and its document are a part. Its end is a healthy one: nothing
// is left on disk.
class JournalKeeper {
public:
    struct Surroundings {
        system::SerialExecutor& main;
        system::Executor& files;   // both outlive it
        std::filesystem::path journals;
        RenderLog log;   // told that a journal cannot be written, until one can be again
        // From a change until it is written: with the time of writing it is on disk within 5 seconds.
        double delaySec = usualDelaySec;
    };
    static constexpr double usualDelaySec = 2;
    // `unsaved` tells what there is to write, when it is time to.
    JournalKeeper(const Surroundings& surroundings, std::function<UnsavedWork()> unsaved);
    ~JournalKeeper();
    JournalKeeper(const JournalKeeper&) = delete;
    JournalKeeper& operator=(const JournalKeeper&) = delete;

    void noteChange();
    void noteSaved();
    // Whether a crash would cost nothing, or only what is under way outside of the document.
    bool isKept() const { return changes_ == written_; }
    // Told when something is on disk that was unsaved.
    void setOnWritten(std::function<void()> told) { onWritten_ = std::move(told); }

private:
    struct Disk;
    void step();

    Surroundings around_;
    std::function<UnsavedWork()> unsaved_;
    std::function<void()> onWritten_;
    std::shared_ptr<Disk> disk_;   // used by one job at a time, on the executor of files
    std::uint64_t changes_ = 0, written_ = 0;
    bool isUnsaved_ = false, isDue_ = false, isWriting_ = false, hasFailed_ = false;
    system::Timer timer_;
    system::Lifeline lifeline_;
};

}   // namespace tavix
