// Tagged unions: a `std::variant` whose case is told by a word in the object.
//
//     using ShapeFill = std::variant<RGBAColor, LinearGradient>;
//     const Alternatives<ShapeFill>& alternativesOf(std::type_identity<ShapeFill>) {
//         static const Alternatives<ShapeFill> table{.name = "ShapeFill", .noun = "fill kind",
//             .rows = {keyed<ShapeFill, RGBAColor>("solid", "color").orDefault(), ...},
//             .fallbackTag = "solid"};
//         return table;
//     }
//
// `flat` alternatives have their keys beside the tag, `keyed` ones a payload under a key of its own.
#pragma once

#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Tables.h"

#include <concepts>
#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace tavix {

template <class U> struct Alternative {
    std::string_view tag, payloadKey;   // no payload key: flat
    std::size_t index = 0;              // in the variant
    void (*read)(const Json&, U&, const KeyPath&) = nullptr;
    Json (*write)(const U&) = nullptr;
    Json (*schema)(SchemaBook&) = nullptr;
    void (*makeDefault)(U&) = nullptr;
    bool isDefaultWhenAbsent = false;
    std::string_view presentKey = {};

    // A payload that is missing counts as a fresh one; otherwise it is required.
    constexpr Alternative orDefault() const {
        Alternative changed = *this;
        changed.isDefaultWhenAbsent = true;
        return changed;
    }
    // A payload that is missing reads as what this makes.
    constexpr Alternative orElse(void (*make)(U&)) const {
        Alternative changed = orDefault();
        changed.makeDefault = make;
        return changed;
    }
    // In a union without a tag: chosen when the object has this key.
    constexpr Alternative whenPresent(std::string_view presentKeyName) const {
        Alternative changed = *this;
        changed.presentKey = presentKeyName;
        return changed;
    }
};

template <class U> struct Alternatives {
    enum class Tag {
        required,        // a missing tag is a missing key
        emptyIfAbsent,   // a missing tag counts as an unknown empty one
        none,            // no tag at all: the first alternative whose `whenPresent` key is there, or the last
    };

    std::string_view name, noun;   // of the definition in the schema; of the tag in messages
    std::vector<Alternative<U>> rows;
    Tag tag = Tag::required;
    // The tag that a missing or unknown one reads as. An alternative with the empty tag writes none: its
    // record has the key itself, and so keeps the word it was read with.
    std::optional<std::string_view> fallbackTag = {};
    std::string_view tagKey = "kind";
};

template <class T>
concept TaggedUnion = requires {
    { alternativesOf(std::type_identity<T>{}) } -> std::same_as<const Alternatives<T>&>;
};

namespace detail {

template <class U, class A, std::size_t I = 0> constexpr std::size_t indexIn() {
    if constexpr (std::is_same_v<std::variant_alternative_t<I, U>, A>)
        return I;
    else
        return indexIn<U, A, I + 1>();
}

template <class U, class A>
constexpr Alternative<U> alternative(std::string_view tag, std::string_view payloadKey) {
    return {tag, payloadKey, indexIn<U, A>(),
        [](const Json& json, U& into, const KeyPath& at) {
            Codec<A>::read(json, into.template emplace<A>(), at);
        },
        [](const U& from) { return Codec<A>::write(std::get<A>(from)); },
        [](SchemaBook& book) { return Codec<A>::schema(book); }, [](U& into) { into.template emplace<A>(); }};
}

}   // namespace detail

template <class U, class A> constexpr Alternative<U> flat(std::string_view tag) {
    return detail::alternative<U, A>(tag, {});
}
template <class U, class A>
constexpr Alternative<U> keyed(std::string_view tag, std::string_view payloadKey) {
    return detail::alternative<U, A>(tag, payloadKey);
}

template <TaggedUnion U> const Alternative<U>& alternativeOf(const U& value) {
    for (const Alternative<U>& row : alternativesOf(std::type_identity<U>{}).rows)
        if (row.index == value.index()) return row;
    throw std::logic_error("An alternative has no row in its table.");
}

// The tags, in the order of the table, without the one of unknown tags.
template <TaggedUnion U> std::vector<std::string_view> allTags() {
    std::vector<std::string_view> tags;
    for (const Alternative<U>& row : alternativesOf(std::type_identity<U>{}).rows)
        if (!row.tag.empty()) tags.push_back(row.tag);
    return tags;
}

template <TaggedUnion U> struct Codec<U> {
    static void read(const Json& json, U& into, const KeyPath& at) {
        const JsonObject& object = objectAt(json, at);
        const Alternative<U>& row = choose(object, at);
        if (row.payloadKey.empty()) return row.read(json, into, at);
        const KeyPath here(at, row.payloadKey);
        const Json* payload = object.find(row.payloadKey);
        if (payload && !payload->isNull())
            row.read(*payload, into, here);
        else if (row.isDefaultWhenAbsent)
            row.makeDefault(into);
        else
            failWithMissing(here, payload);
    }

    static Json write(const U& from) {
        const Alternatives<U>& table = alternativesOf(std::type_identity<U>{});
        const Alternative<U>& row = alternativeOf(from);
        Json payload = row.write(from);
        JsonObject object;
        if (!row.payloadKey.empty())
            object.set(row.payloadKey, std::move(payload));
        else
            object = std::move(*payload.object());
        if (!row.tag.empty() && table.tag != Alternatives<U>::Tag::none) object.set(table.tagKey, row.tag);
        return object;
    }

    static Json schema(SchemaBook& book) {
        const Alternatives<U>& table = alternativesOf(std::type_identity<U>{});
        return book.reference(table.name, [&] {
            JsonArray any;
            for (const Alternative<U>& row : table.rows)
                if (!row.tag.empty() || table.tag == Alternatives<U>::Tag::none)
                    any.push_back(describe(row, table, book));
            return Json(JsonObject{{"anyOf", std::move(any)}});
        });
    }

private:
    static const Alternative<U>& choose(const JsonObject& object, const KeyPath& at) {
        const Alternatives<U>& table = alternativesOf(std::type_identity<U>{});
        if (table.tag == Alternatives<U>::Tag::none) return chooseByKey(object, table);
        const KeyPath here(at, table.tagKey);
        const Json* held = object.find(table.tagKey);
        const bool isThere = held && !held->isNull();
        if (!isThere && !table.fallbackTag && table.tag == Alternatives<U>::Tag::required)
            failWithMissing(here, held);
        const std::string_view tag = isThere ? std::string_view(textAt(*held, here)) : std::string_view();
        if (const Alternative<U>* known = find(tag, table)) return *known;
        if (!table.fallbackTag) failWithWord(here, table.noun, tag, allTags<U>());
        return *find(*table.fallbackTag, table);
    }

    static const Alternative<U>& chooseByKey(const JsonObject& object, const Alternatives<U>& table) {
        for (const Alternative<U>& row : table.rows)
            if (!row.presentKey.empty() && object.find(row.presentKey)) return row;
        return table.rows.back();
    }

    static const Alternative<U>* find(std::string_view tag, const Alternatives<U>& table) {
        for (const Alternative<U>& row : table.rows)
            if (row.tag == tag) return &row;
        return nullptr;
    }

    // The tag is pinned, so that a validator knows which alternative an object means to be.
    static Json describe(const Alternative<U>& row, const Alternatives<U>& table, SchemaBook& book) {
        Json payload = row.schema(book);
        if (table.tag == Alternatives<U>::Tag::none) return payload;
        JsonObject properties{{std::string(table.tagKey), JsonObject{{"const", row.tag}}}};
        JsonArray needed;
        if (table.fallbackTag != row.tag) needed.emplace_back(table.tagKey);
        JsonObject description{{"type", "object"}};
        if (row.payloadKey.empty()) {
            description.set("allOf", JsonArray{std::move(payload)});
        } else {
            properties.set(row.payloadKey, std::move(payload));
            if (!row.isDefaultWhenAbsent) needed.emplace_back(row.payloadKey);
        }
        description.set("properties", std::move(properties));
        if (!needed.empty()) description.set("required", std::move(needed));
        return description;
    }
};

}   // namespace tavix
