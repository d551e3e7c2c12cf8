#include "TavixLive/Model/History.h"

#include "TavixCore/Paths/Difference.h"
#include "TavixCore/Support/Document.h"
#include "TavixLive/Model/ScenePatch.h"

#include <algorithm>

namespace tavix {

namespace {

// Nothing where following the patch does not give the document.
std::optional<JsonPatch> patchTo(const CompositionSpec& to, const Json& from, const Json& written) {
    JsonPatch patch = diff(from, written);
    try {
        CompositionSpec reached;
        readValue(typeOf<CompositionSpec>(), applyPatch(patch, from), &reached, KeyPath());
        if (reached == to) return patch;
    } catch (const Failure&) {}
    return std::nullopt;
}

}   // namespace

History::Moment History::Way::from(const EditState& now) const {
    if (whole) return {whole, playheadSec};
    return {std::make_shared<const EditState>(EditState{followed(now.spec, *patch), selection}), playheadSec};
}

void History::record(std::string name, const Moment& before, const Moment& after) {
    for (const Step& step : undone_) forget(step);
    undone_.clear();
    const auto way = [](const Moment& to) { return Way{{}, to.state, to.state->selection, to.playheadSec}; };
    done_.push_back({++lastID_, std::move(name), way(before), way(after)});
    unpacked_.push_back(lastID_);
    while (unpacked_.size() > limits_.mostUnpacked) put(pack(*nextUnpacked()));
    forgetOldest();
}

void History::clear() {
    for (auto* steps : {&done_, &undone_}) {
        for (const Step& step : *steps) forget(step);
        steps->clear();
    }
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
    if (const auto& patch = done_.back().forth.patch) return *patch;
    return diff(done_.back().back.from(now).state->spec, now.spec);
}

History::Step* History::find(std::uint64_t id) {
    for (auto* steps : {&done_, &undone_}) {
        const auto it = std::ranges::find(*steps, id, &Step::id);
        if (it != steps->end()) return &*it;
    }
    return nullptr;
}

std::optional<History::Unpacked> History::nextUnpacked() {
    if (unpacked_.empty()) return std::nullopt;
    const Step& step = *find(unpacked_.front());
    return Unpacked{step.id, step.back.whole, step.forth.whole};
}

History::Packed History::pack(const Unpacked& step) {
    const CompositionSpec &before = step.before->spec, &after = step.after->spec;
    Packed packed{step.id, {}, {}};
    try {
        const Json first = writeValue(typeOf<CompositionSpec>(), &before);
        const Json second = writeValue(typeOf<CompositionSpec>(), &after);
        packed.back = patchTo(before, second, first);
        packed.forth = patchTo(after, first, second);
        packed.wholeBytes = writeJson(first).size() + writeJson(second).size();
    } catch (const Failure&) {}   // what cannot be written stays whole
    for (const auto* patch : {&packed.back, &packed.forth})
        packed.bytes += *patch ? writeJson(writePatch(**patch)).size() : packed.wholeBytes / 2;
    return packed;
}

void History::put(Packed packed) {
    std::erase(unpacked_, packed.id);
    Step* step = find(packed.id);
    if (step == nullptr || step->isPacked) return;
    step->isPacked = true;
    step->bytes = packed.bytes;
    step->wholeBytes = packed.wholeBytes;
    step->back.patch = std::move(packed.back);
    step->forth.patch = std::move(packed.forth);
    bytes_ += step->bytes;
    forgetOldest();
    dropWholes();
}

void History::packAll() {
    while (const auto step = nextUnpacked()) put(pack(*step));
}

void History::forget(const Step& step) {
    bytes_ -= step.bytes;
    std::erase(unpacked_, step.id);
    for (const Way* way : {&step.back, &step.forth})
        if (way->whole) spent_.push_back(way->whole);
}

void History::forgetOldest() {
    while (done_.size() > limits_.mostSteps || (bytes_ > limits_.mostBytes && done_.size() > 1)) {
        forget(done_.front());
        done_.pop_front();
    }
}

// Those of the steps that undo and redo come to next stay, so that these take no time.
void History::dropWholes() {
    for (auto* steps : {&done_, &undone_}) {
        std::size_t bytes = 0;
        for (auto step = steps->rbegin(); step != steps->rend(); ++step) {
            if (!step->isPacked) continue;
            bytes += step->wholeBytes;
            // Of a long document that of the very next one stays all the same.
            if (bytes <= limits_.mostWholeBytes || step == steps->rbegin()) continue;
            for (Way* way : {&step->back, &step->forth})
                if (way->whole && way->patch) spent_.push_back(std::exchange(way->whole, nullptr));
        }
    }
}

}   // namespace tavix
