#include "TavixLive/Saving/DocumentMerge.h"

#include "TavixCore/Paths/JsonPatch.h"
#include "TavixCore/Paths/Matching.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

bool isListOfObjects(const std::optional<Json>& value) {
    return value && value->array() &&
           std::ranges::all_of(*value->array(), [](const Json& element) { return element.object(); });
}

// Lists of objects are merged element by element; what is left to choose is their order.
bool isAboutOrder(const MergeConflict& values) {
    return isListOfObjects(values.base) && isListOfObjects(values.ours) && isListOfObjects(values.theirs);
}

// In the order of the other list; what is not in it stays behind the element that it follows.
JsonArray inOrderOf(const JsonArray& wanted, const JsonArray& list) {
    const auto places = matched(wanted, list);
    std::vector<std::pair<std::size_t, std::size_t>> order;   // the place there, and here
    std::size_t last = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        if (places[i]) last = *places[i] + 1;
        order.emplace_back(last, i);
    }
    std::ranges::stable_sort(order, {}, &std::pair<std::size_t, std::size_t>::first);
    JsonArray ordered;
    for (const auto& [there, here] : order) ordered.push_back(list[here]);
    return ordered;
}

// The way from our value to theirs.
PatchOperation towardsTheirs(const MergeConflict& values, const Json& document) {
    if (!values.theirs) return {PatchOperation::Kind::remove, values.path, {}, {}};
    if (!values.ours) return {PatchOperation::Kind::add, values.path, {}, *values.theirs};
    if (!isAboutOrder(values)) return {PatchOperation::Kind::replace, values.path, {}, *values.theirs};
    const Json* const list = find(document, values.path);
    return {PatchOperation::Kind::replace, values.path, {},
        inOrderOf(*values.theirs->array(), list && list->array() ? *list->array() : JsonArray())};
}

}   // namespace

void DocumentMerge::take(Merged merged) {
    merged_ = std::move(merged.document);
    for (MergeConflict& values : merged.conflicts) conflicts_.push_back({std::move(values), {}});
}

void DocumentMerge::takeWhole(Json base, Json ours, Json theirs) {
    conflicts_ = {{{{}, std::move(base), std::move(ours), std::move(theirs)}, {}}};
}

bool DocumentMerge::isDecided() const {
    return std::ranges::all_of(conflicts_, [](const Conflict& one) { return one.chosen.has_value(); });
}

DocumentMerge::Conflicts DocumentMerge::chosen(Conflicts conflicts, std::size_t index, MergeSide side) {
    if (index < conflicts.size()) conflicts[index].chosen = side;
    return conflicts;
}

DocumentMerge::Conflicts DocumentMerge::allChosen(Conflicts conflicts, MergeSide side) {
    for (Conflict& conflict : conflicts) conflict.chosen = side;
    return conflicts;
}

void DocumentMerge::chooseAsIn(const Conflicts& before) {
    for (Conflict& conflict : conflicts_)
        for (const Conflict& earlier : before)
            if (earlier.values == conflict.values) conflict.chosen = earlier.chosen;
}

bool DocumentMerge::hasTheirs() const {
    return std::ranges::any_of(
        conflicts_, [](const Conflict& one) { return one.chosen == MergeSide::theirs; });
}

Json DocumentMerge::decided() const {
    // The last first: what comes or goes in a list moves what stands behind it, and the order of a list is
    // told before what is in it.
    Json document = merged_;
    for (auto conflict = conflicts_.rbegin(); conflict != conflicts_.rend(); ++conflict)
        if (conflict->chosen == MergeSide::theirs) {
            const JsonPatch way{towardsTheirs(conflict->values, document)};
            document = applyPatch(way, std::move(document));
        }
    return document;
}

}   // namespace tavix
