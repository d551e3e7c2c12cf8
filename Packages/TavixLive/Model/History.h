// The steps of an editor's work, to be taken back and done again. A step is the difference of two documents,
// found by comparing them, so no edit needs an inverse.
#pragma once

#include "TavixCore/Paths/JsonPatch.h"
#include "TavixLive/Operations/EditState.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

// Comparing two documents takes long, so a step that is recorded first holds both of them whole, which costs
// nothing while they are shared; whoever has time packs it into patches, on any thread.
class History {
public:
    using StateRef = std::shared_ptr<const EditState>;
    // What a step leads from and to.
    struct Moment {
        StateRef state;
        double playheadSec = 0;
    };
    struct Limits {
        std::size_t mostSteps = 1000;
        std::size_t mostBytes = 32u << 20;        // of what packed steps hold, as text
        std::size_t mostWholeBytes = 16u << 20;   // of documents that are kept beside patches, as text
        std::size_t mostUnpacked = 64;            // more are packed at once
    };

    History() = default;
    explicit History(const Limits& limits) : limits_(limits) {}

    // From one document to another one. What was undone can be redone no more. The oldest steps are
    // forgotten.
    void record(std::string name, const Moment& before, const Moment& after);
    void clear();

    // The name of the step that the next undo or redo takes; null when there is none.
    const std::string* undoName() const { return done_.empty() ? nullptr : &done_.back().name; }
    const std::string* redoName() const { return undone_.empty() ? nullptr : &undone_.back().name; }
    // From the state in which the last step left the document. Nothing when there is no step.
    std::optional<Moment> undo(const EditState& now);
    std::optional<Moment> redo(const EditState& now);
    // What the next undo takes back, as a patch of the document.
    JsonPatch lastChange(const EditState& now) const;

    // A step that is whole; nothing when all are packed. `pack` may run on any thread, and `put` ignores a
    // step that has gone meanwhile.
    struct Unpacked {
        std::uint64_t id;
        StateRef before, after;
    };
    struct Packed {
        std::uint64_t id;
        std::optional<JsonPatch> back, forth;   // none: writing and reading does not lead there
        std::size_t bytes = 0, wholeBytes = 0;
    };
    std::optional<Unpacked> nextUnpacked();
    static Packed pack(const Unpacked& step);
    void put(Packed packed);
    void packAll();
    // Documents that no step needs any more: letting go of one may take long, too.
    std::vector<StateRef> takeSpent() { return std::exchange(spent_, {}); }

    std::size_t stepCount() const { return done_.size(); }
    std::size_t byteCount() const { return bytes_; }

private:
    // A way from one document to another: a patch, or the other document, or both.
    struct Way {
        std::optional<JsonPatch> patch;
        StateRef whole;
        Selection selection;
        double playheadSec = 0;

        Moment from(const EditState& now) const;
    };
    struct Step {
        std::uint64_t id;
        std::string name;
        Way back, forth;
        bool isPacked = false;
        std::size_t bytes = 0, wholeBytes = 0;
    };
    Step* find(std::uint64_t id);
    void forget(const Step& step);
    void forgetOldest();
    void dropWholes();

    Limits limits_;
    std::deque<Step> done_;
    std::deque<Step> undone_;   // the next to be redone last
    std::deque<std::uint64_t> unpacked_;
    std::vector<StateRef> spent_;
    std::size_t bytes_ = 0;
    std::uint64_t lastID_ = 0;
};

}   // namespace tavix
