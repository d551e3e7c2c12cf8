#include "TavixCore/Time/CompositionMarksFinder.h"

#include "TavixBase/NearestWord.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tavix::CompositionMarks {
namespace {

using CompositionLint::worded;

// Ends the name of a mark whose end is wanted; no part of the label.
constexpr std::string_view endSuffix = "#end";

Marks marksIn(Timeline timeline) {
    Marks marks;
    for (Timeline::Event& event : timeline.events)
        if (event.label) marks[*event.label].push_back(std::move(event));
    return marks;
}

std::vector<std::string_view> labelsOf(const Marks& marks) {
    std::vector<std::string_view> labels;
    for (const auto& [label, events] : marks) labels.push_back(label);
    return labels;
}

}   // namespace

const Marks* Sidecars::marksOf(const std::string& clipPath) {
    auto known = read_.find(clipPath);
    if (known == read_.end()) {
        std::optional<Timeline> timeline = load_(fileOf(clipPath));
        known = read_.emplace(clipPath, std::nullopt).first;
        if (timeline) known->second = marksIn(*std::move(timeline));
    }
    return known->second ? &*known->second : nullptr;
}

std::optional<MarkFinder::Moment> MarkFinder::find(
    const MarkRef& ref, const std::optional<std::string>& clip, const KeyPath& at) {
    DeviceEntry* const entry = entryOf(ref, clip, at);
    if (!entry || !hasMarks(*entry, at)) return std::nullopt;
    const bool wantsEnd = ref.mark.ends_with(endSuffix);
    const std::string label = ref.mark.substr(0, ref.mark.size() - (wantsEnd ? endSuffix.size() : 0));
    const Timeline::Event* const event = eventOf(*entry, label, at);
    if (!event) return std::nullopt;
    if (!wantsEnd) return Moment{entry, event->actionSec.value_or(event->tSec) + ref.offsetSec};
    if (event->endSec) return Moment{entry, *event->endSec + ref.offsetSec};
    report_.tell(CompositionLint::Rule::markEnd, at,
        worded(
            "Mark \"{}\" has no end time — only scripted steps (a `durationSec` scroll) land \"#end\" marks.",
            {label}));
    return std::nullopt;
}

DeviceEntry* MarkFinder::entryOf(
    const MarkRef& ref, const std::optional<std::string>& clip, const KeyPath& at) {
    if (!clip) {
        if (entries_.size() == 1) return &entries_.front();
        report_.tell(CompositionLint::Rule::markDevice, at,
            worded("{} has {} device layers — set \"clip\" on the mark reference to pick one{}.",
                {scene_, std::to_string(entries_.size()), idsInBrackets()}));
        return nullptr;
    }
    const auto entry = std::ranges::find(entries_, clip, &DeviceEntry::id);
    if (entry != entries_.end()) return &*entry;
    report_.tell(CompositionLint::Rule::markDevice, at,
        worded("Mark \"{}\" references clip \"{}\", but {} has no device layer with that id{}.",
            {ref.mark, *clip, scene_, idsInBrackets()}));
    return nullptr;
}

std::string MarkFinder::idsInBrackets() const {
    std::vector<std::string_view> ids;
    for (const DeviceEntry& entry : entries_)
        if (entry.id) ids.push_back(*entry.id);
    return ids.empty() ? "" : worded(" (device ids: {})", {CompositionLint::listed(ids)});
}

bool MarkFinder::hasMarks(DeviceEntry& entry, const KeyPath& at) {
    if (entry.marks || entry.sidecarMissing) return entry.marks;
    if (entry.clipPath) entry.marks = sidecars_.marksOf(*entry.clipPath);
    if (entry.marks) return true;
    entry.sidecarMissing = true;
    if (!entry.clipPath)
        report_.tell(CompositionLint::Rule::markRecording, at,
            "Mark references need a VIDEO device screen — the device layer plays a still, which has no timeline sidecar.");
    else
        report_.tell(CompositionLint::Rule::markRecording, at,
            worded(
                "No timeline sidecar for \"{}\" — expected {} next to the clip (tavix run writes it; the .tavixcomp bundler copies it).",
                {*entry.clipPath, sidecars_.fileOf(*entry.clipPath).filename().string()}),
            "Re-copy the recording together with its .timeline.json, or drop the mark references.");
    return false;
}

const Timeline::Event* MarkFinder::eventOf(
    const DeviceEntry& entry, const std::string& label, const KeyPath& at) {
    const auto found = entry.marks->find(label);
    if (found == entry.marks->end()) {
        const std::vector<std::string_view> labels = labelsOf(*entry.marks);
        report_.tell(CompositionLint::Rule::markUnknown, at,
            worded("Mark \"{}\" not found in the sidecar for \"{}\". Available marks: {}.",
                {label, *entry.clipPath,
                    labels.empty() ? "none (older recording without labels — re-record)"
                                   : CompositionLint::listed(labels)}),
            didYouMean(label, labels));
        return nullptr;
    }
    const std::vector<Timeline::Event>& events = found->second;
    if (events.size() == 1) return &events.front();
    report_.tell(CompositionLint::Rule::markTwice, at,
        worded(
            "Mark \"{}\" is ambiguous — {} steps carry it. Give each step a distinct target.label in the FlowSpec.",
            {label, std::to_string(events.size())}));
    return nullptr;
}

}   // namespace tavix::CompositionMarks
