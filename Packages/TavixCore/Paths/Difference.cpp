#include "TavixCore/Paths/Difference.h"

#include "TavixCore/Paths/Matching.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tavix {

namespace {

using Kind = PatchOperation::Kind;

// About how many characters it takes to say.
std::size_t lengthOf(const Json& json) {
    std::size_t length = 4;
    if (const std::string* text = json.text()) length += text->size();
    if (const JsonArray* elements = json.array())
        for (const Json& element : *elements) length += lengthOf(element);
    if (const JsonObject* members = json.object())
        for (const JsonMember& member : *members) length += member.key.size() + 4 + lengthOf(member.value);
    return length;
}

std::size_t lengthOf(const JsonPatch& patch) {
    constexpr std::size_t ofFrame = 24;   // "op", "path" and what is around them
    std::size_t length = 0;
    for (const PatchOperation& operation : patch)
        length +=
            ofFrame + operation.path.text().size() + operation.from.text().size() + lengthOf(operation.value);
    return length;
}

JsonPatch between(const Json& before, const Json& after, const JsonPointer& at);

void append(JsonPatch& patch, JsonPatch more) { std::ranges::move(more, std::back_inserter(patch)); }

JsonPatch betweenObjects(const JsonObject& before, const JsonObject& after, const JsonPointer& at) {
    JsonPatch patch;
    for (const JsonMember& member : before)
        if (!after.find(member.key)) patch.push_back({Kind::remove, at / member.key, {}, {}});
    for (const JsonMember& member : after)
        if (const Json* old = before.find(member.key))
            append(patch, between(*old, member.value, at / member.key));
        else
            patch.push_back({Kind::add, at / member.key, {}, member.value});
    return patch;
}

// First what is gone is removed, from the back; then what stays is moved into order, as little of it as can
// be; then what is new is added, from the front; and at last what changed is changed where it now stands.
class ListDifference {
public:
    ListDifference(const JsonArray& before, const JsonArray& after, const JsonPointer& at)
        : before_(before), after_(after), at_(at), from_(matched(before, after)) {}

    JsonPatch run() && {
        remove();
        move();
        for (std::size_t j = 0; j < after_.size(); ++j)
            if (!from_[j]) patch_.push_back({Kind::add, at_ / j, {}, after_[j]});
        for (std::size_t j = 0; j < after_.size(); ++j)
            if (from_[j]) append(patch_, between(before_[*from_[j]], after_[j], at_ / j));
        return std::move(patch_);
    }

private:
    void remove() {
        std::vector<bool> stays(before_.size());
        for (const auto& i : from_)
            if (i) stays[*i] = true;
        for (std::size_t i = before_.size(); i > 0; --i)
            if (!stays[i - 1]) patch_.push_back({Kind::remove, at_ / (i - 1), {}, {}});
    }

    void move() {
        std::vector<std::size_t> wanted;   // the elements that stay, in their new order
        for (const auto& i : from_)
            if (i) wanted.push_back(*i);
        std::vector<std::size_t> current = wanted;
        std::ranges::sort(current);
        std::vector<bool> isSettled(wanted.size());
        for (const std::size_t k : longestRising(wanted)) isSettled[k] = true;
        std::size_t settledEnd = 0;   // where, in the current order, all wanted so far are before
        for (std::size_t k = 0; k < wanted.size(); ++k) {
            const auto place = std::ranges::find(current, wanted[k]);
            const auto source = static_cast<std::size_t>(place - current.begin());
            if (isSettled[k]) {
                settledEnd = source + 1;
                continue;
            }
            const std::size_t target = source < settledEnd ? settledEnd - 1 : settledEnd;
            current.erase(place);
            current.insert(current.begin() + static_cast<std::ptrdiff_t>(target), wanted[k]);
            if (source != target) patch_.push_back({Kind::move, at_ / target, at_ / source, {}});
            settledEnd = target + 1;
        }
    }

    const JsonArray &before_, &after_;
    const JsonPointer& at_;
    std::vector<std::optional<std::size_t>> from_;
    JsonPatch patch_;
};

JsonPatch between(const Json& before, const Json& after, const JsonPointer& at) {
    if (before == after) return {};
    JsonPatch whole{{Kind::replace, at, {}, after}};
    JsonPatch parts;
    if (before.object() && after.object())
        parts = betweenObjects(*before.object(), *after.object(), at);
    else if (before.array() && after.array())
        parts = ListDifference(*before.array(), *after.array(), at).run();
    else
        return whole;
    return lengthOf(whole) < lengthOf(parts) ? whole : parts;
}

}   // namespace

JsonPatch diff(const Json& before, const Json& after) { return between(before, after, JsonPointer()); }

}   // namespace tavix
