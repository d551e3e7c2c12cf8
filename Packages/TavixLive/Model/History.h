// The steps of an editor's work, to be taken back and done again. A step is the difference of two documents,
// found by comparing them, so no edit needs an inverse.
#pragma once

#include "TavixCore/Paths/JsonPatch.h"
#include "TavixLive/Operations/EditState.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>

namespace tavix {

class History {
public:
    // What a step leads from and to.
    struct Moment {
        EditState state;
        double playheadSec = 0;
    };
    struct Limits {
        std::size_t mostSteps = 1000;
        std::size_t mostBytes = 32u << 20;   // of what the steps hold, as text
    };

    History() = default;
    explicit History(const Limits& limits) : limits_(limits) {}

    // What was undone can be redone no more. Equal documents are no step. The oldest steps are forgotten.
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

    std::size_t stepCount() const { return done_.size(); }
    std::size_t byteCount() const { return bytes_; }

private:
    // A way from one document to another: a patch, or the other document where writing and reading does not
    // give the same one back.
    struct Way {
        JsonPatch patch;
        std::optional<CompositionSpec> whole;
        Selection selection;
        double playheadSec = 0;

        Moment from(const EditState& now) const;
    };
    struct Step {
        std::string name;
        Way back, forth;
        std::size_t bytes;
    };
    static Way way(const CompositionSpec& from, const Moment& to);

    Limits limits_;
    std::deque<Step> done_;
    std::deque<Step> undone_;   // the next to be redone last
    std::size_t bytes_ = 0;
};

}   // namespace tavix
