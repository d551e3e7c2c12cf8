#include "TavixLive/Model/History.h"

#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Support/Document.h"

#include <utility>

namespace tavix {

namespace {

std::size_t bytesOf(const JsonPatch& patch, const std::optional<CompositionSpec>& whole) {
    return whole ? encodedJson(*whole).size() : writeJson(writePatch(patch)).size();
}

}   // namespace

History::Way History::way(const CompositionSpec& from, const Moment& to) {
    Way made{diff(from, to.state.spec), {}, to.state.selection, to.playheadSec};
    bool leadsThere = false;
    try {
        leadsThere = applyTo(from, made.patch) == to.state.spec;
    } catch (const Failure&) {}
    if (!leadsThere) made = {{}, to.state.spec, made.selection, made.playheadSec};
    return made;
}

History::Moment History::Way::from(const EditState& now) const {
    return {{whole ? *whole : applyTo(now.spec, patch), selection}, playheadSec};
}

void History::record(std::string name, const Moment& before, const Moment& after) {
    if (before.state.spec == after.state.spec) return;
    for (const Step& step : undone_) bytes_ -= step.bytes;
    undone_.clear();
    Step step{std::move(name), way(after.state.spec, before), way(before.state.spec, after), 0};
    step.bytes = bytesOf(step.back.patch, step.back.whole) + bytesOf(step.forth.patch, step.forth.whole);
    bytes_ += step.bytes;
    done_.push_back(std::move(step));
    while (done_.size() > limits_.mostSteps || (bytes_ > limits_.mostBytes && done_.size() > 1)) {
        bytes_ -= done_.front().bytes;
        done_.pop_front();
    }
}

void History::clear() {
    done_.clear();
    undone_.clear();
    bytes_ = 0;
}

std::optional<History::Moment> History::undo(const EditState& now) {
    if (done_.empty()) return std::nullopt;
    Moment before = done_.back().back.from(now);
    undone_.push_back(std::move(done_.back()));
    done_.pop_back();
    return before;
}

std::optional<History::Moment> History::redo(const EditState& now) {
    if (undone_.empty()) return std::nullopt;
    Moment after = undone_.back().forth.from(now);
    done_.push_back(std::move(undone_.back()));
    undone_.pop_back();
    return after;
}

JsonPatch History::lastChange(const EditState& now) const {
    if (done_.empty()) return {};
    const Way& back = done_.back().back;
    return back.whole ? diff(*back.whole, now.spec) : diff(back.from(now).state.spec, now.spec);
}

}   // namespace tavix
