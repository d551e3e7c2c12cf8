#include "TavixCore/Paths/Merge.h"

#include "TavixCore/Paths/Matching.h"
#include "TavixCore/Support/JsonWriter.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

bool areSame(const Json* a, const Json* b) { return a && b ? *a == *b : a == b; }

std::optional<Json> held(const Json* json) { return json ? std::optional(*json) : std::nullopt; }

bool isListOfObjects(const Json* json) {
    return json && json->array() &&
           std::ranges::all_of(*json->array(), [](const Json& element) { return element.object(); });
}

// An element of a list by the places that it has in the three documents.
struct Element {
    std::size_t base = none, ours = none, theirs = none;
};

using Place = std::size_t Element::*;

// Tells the elements of the base where they are in a list of one side, and returns the places of its new
// ones.
std::vector<std::size_t> place(
    std::vector<Element>& elements, Place side, const JsonArray& base, const JsonArray& list) {
    std::vector<std::size_t> added;
    const auto from = matched(base, list);
    for (std::size_t i = 0; i < list.size(); ++i)
        if (from[i])
            elements[*from[i]].*side = i;
        else
            added.push_back(i);
    return added;
}

// What both sides added is one element where it is equal or has the same id.
bool isSameAddition(const Json& ours, const Json& theirs) {
    const Json *a = ours.find("id"), *b = theirs.find("id");
    return ours == theirs || (a && b && a->text() && *a == *b);
}

// All elements of the three lists, those of the base first.
std::vector<Element> elementsOf(const JsonArray& base, const JsonArray& ours, const JsonArray& theirs) {
    std::vector<Element> elements(base.size());
    for (std::size_t i = 0; i < base.size(); ++i) elements[i].base = i;
    std::vector<std::size_t> newOurs = place(elements, &Element::ours, base, ours);
    for (const std::size_t j : place(elements, &Element::theirs, base, theirs)) {
        Element element{none, none, j};
        const auto shared =
            std::ranges::find_if(newOurs, [&](std::size_t i) { return isSameAddition(ours[i], theirs[j]); });
        if (shared != newOurs.end()) {
            element.ours = *shared;
            newOurs.erase(shared);
        }
        elements.push_back(element);
    }
    for (const std::size_t i : newOurs) elements.push_back({none, i, none});
    return elements;
}

class Merger {
public:
    std::vector<MergeConflict> conflicts;

    // Null where nothing is left.
    std::optional<Json> value(const Json* base, const Json* ours, const Json* theirs, const JsonPointer& at) {
        if (areSame(ours, theirs) || areSame(base, theirs)) return held(ours);
        if (areSame(base, ours)) return held(theirs);
        if (ours && theirs) {
            if (ours->object() && theirs->object())
                return object(base ? base->object() : nullptr, *ours->object(), *theirs->object(), at);
            if (isListOfObjects(base) && isListOfObjects(ours) && isListOfObjects(theirs))
                return list(*base->array(), *ours->array(), *theirs->array(), at);
        }
        conflicts.push_back({at, held(base), held(ours), held(theirs)});
        return held(ours);
    }

private:
    Json object(
        const JsonObject* base, const JsonObject& ours, const JsonObject& theirs, const JsonPointer& at) {
        JsonObject merged;
        const auto member = [&](const std::string& key) {
            const Json* const old = base ? base->find(key) : nullptr;
            if (auto both = value(old, ours.find(key), theirs.find(key), at / key))
                merged.set(key, *std::move(both));
        };
        for (const JsonMember& ourMember : ours) member(ourMember.key);
        for (const JsonMember& theirMember : theirs)
            if (!ours.find(theirMember.key)) member(theirMember.key);
        return merged;
    }

    // The elements are put in order first, so that conflicts in them tell where they are.
    Json list(const JsonArray& base, const JsonArray& ours, const JsonArray& theirs, const JsonPointer& at) {
        std::vector<Element> elements = elementsOf(base, ours, theirs);
        std::erase_if(elements, [&](const Element& e) { return isGone(e, base, ours, theirs); });
        inOrder(elements, base, ours, theirs, at);
        JsonArray merged;
        const auto in = [](const JsonArray& list, std::size_t i) { return i == none ? nullptr : &list[i]; };
        for (const Element& e : elements)
            if (auto both =
                    value(in(base, e.base), in(ours, e.ours), in(theirs, e.theirs), at / merged.size()))
                merged.push_back(*std::move(both));
        return merged;
    }

    // Removed by one side, and not changed by the other.
    static bool isGone(
        const Element& e, const JsonArray& base, const JsonArray& ours, const JsonArray& theirs) {
        if (e.base == none || (e.ours != none && e.theirs != none)) return false;
        return (e.ours == none || ours[e.ours] == base[e.base]) &&
               (e.theirs == none || theirs[e.theirs] == base[e.base]);
    }

    static bool isReordered(const std::vector<Element>& elements, Place side) {
        std::size_t last = 0;
        for (const Element& e : elements) {   // in the order of the base
            if (e.base == none || e.*side == none) continue;
            if (e.*side < last) return true;
            last = e.*side;
        }
        return false;
    }

    // The order is that of the side that changed it, ours if both did; what only the other side has comes
    // after the element that it follows there.
    void inOrder(std::vector<Element>& elements, const JsonArray& base, const JsonArray& ours,
        const JsonArray& theirs, const JsonPointer& at) {
        const bool ourOrder = isReordered(elements, &Element::ours);
        const bool theirOrder = isReordered(elements, &Element::theirs);
        if (ourOrder && theirOrder && !agree(elements))
            conflicts.push_back({at, Json(base), Json(ours), Json(theirs)});
        const Place leading = theirOrder && !ourOrder ? &Element::theirs : &Element::ours;
        const Place other = theirOrder && !ourOrder ? &Element::ours : &Element::theirs;
        std::vector<Element> ordered;
        for (const Element& e : elements)
            if (e.*leading != none) ordered.push_back(e);
        std::ranges::sort(ordered, {}, leading);
        std::vector<Element> rest;
        for (const Element& e : elements)
            if (e.*leading == none) rest.push_back(e);
        std::ranges::sort(rest, {}, other);
        for (const Element& e : rest) {
            std::size_t place = 0, nearest = none;
            for (std::size_t i = 0; i < ordered.size(); ++i) {
                const std::size_t there = ordered[i].*other;
                if (there == none || there > e.*other || (nearest != none && there < nearest)) continue;
                nearest = there;
                place = i + 1;
            }
            ordered.insert(ordered.begin() + static_cast<std::ptrdiff_t>(place), e);
        }
        elements = std::move(ordered);
    }

    static bool agree(const std::vector<Element>& elements) {
        std::vector<Element> both;
        for (const Element& e : elements)
            if (e.ours != none && e.theirs != none) both.push_back(e);
        std::ranges::sort(both, {}, &Element::ours);
        return std::ranges::is_sorted(both, {}, &Element::theirs);
    }
};

std::string shown(const std::optional<Json>& value) {
    constexpr std::size_t mostCharacters = 60;
    if (!value) return "absent";
    std::string text;
    for (const char c : writeJson(*value))
        if (c != '\n' && !(c == ' ' && text.ends_with(' '))) text += c;
    if (text.size() <= mostCharacters) return text;
    std::size_t end = mostCharacters;
    while ((text[end] & 0xC0) == 0x80) --end;   // not within a character
    return text.substr(0, end) + "…";
}

}   // namespace

std::string MergeConflict::message() const {
    const std::string place =
        path.isRoot() ? "The document" : std::string("\"").append(path.text()).append("\"");
    return place + " was " + shown(base) + "; one side made it " + shown(ours) + ", the other " +
           shown(theirs) + ".";
}

Merged merge(const Json& base, const Json& ours, const Json& theirs) {
    Merger merger;
    std::optional<Json> document = merger.value(&base, &ours, &theirs, JsonPointer());
    return {*std::move(document), std::move(merger.conflicts)};
}

}   // namespace tavix
