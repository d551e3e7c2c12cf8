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

#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Tables.h"

#include <concepts>
#include <optional>
#include <string_view>
#include <type_traits>
#include <variant>
#include <vector>

namespace tavix {

// A row of the table of U while it is being said.
template <class U> struct AlternativeOf : Alternative {
    // A payload that is missing counts as a fresh one; otherwise it is required.
    AlternativeOf orDefault() const {
        AlternativeOf changed = *this;
        changed.isDefaultWhenAbsent = true;
        return changed;
    }
    // A payload that is missing reads as what this makes: a lambda over the union, without captures.
    template <std::invocable<U&> Make> AlternativeOf orElse(Make) const {
        static_assert(std::is_empty_v<Make>, "a lambda without captures");
        AlternativeOf changed = orDefault();
        changed.makeDefault = [](void* choice) { Make{}(*static_cast<U*>(choice)); };
        return changed;
    }
    // In a union without a tag: chosen when the object has this key.
    AlternativeOf whenPresent(std::string_view key) const {
        AlternativeOf changed = *this;
        changed.presentKey = key;
        return changed;
    }
};

namespace detail {

template <class U> std::size_t indexOf(const void* choice) { return static_cast<const U*>(choice)->index(); }

template <class U, class A, std::size_t I = 0> constexpr std::size_t indexIn() {
    if constexpr (std::is_same_v<std::variant_alternative_t<I, U>, A>)
        return I;
    else
        return indexIn<U, A, I + 1>();
}

template <class U, class A> AlternativeOf<U> alternative(std::string_view tag, std::string_view payloadKey) {
    return {{tag, payloadKey, indexIn<U, A>(), &TypeOf<A>::get,
        [](void* choice) -> void* { return &static_cast<U*>(choice)->template emplace<A>(); },
        [](void* choice) -> void* { return std::get_if<A>(static_cast<U*>(choice)); },
        [](void* choice) { static_cast<U*>(choice)->template emplace<A>(); }}};
}

}   // namespace detail

template <class U, class A> AlternativeOf<U> flat(std::string_view tag) {
    return detail::alternative<U, A>(tag, {});
}
template <class U, class A> AlternativeOf<U> keyed(std::string_view tag, std::string_view payloadKey) {
    return detail::alternative<U, A>(tag, payloadKey);
}

template <class U> struct Alternatives {
    using Tag = ChoiceType::Tag;

    std::string_view name, noun;
    std::vector<Alternative> rows;
    Tag tag = Tag::required;
    std::optional<std::string_view> fallbackTag = {};
    std::string_view tagKey = "kind";
    ChoiceType type{name, noun, rows, tag, fallbackTag, tagKey, &detail::indexOf<U>};
};

template <class T>
concept TaggedUnion = requires {
    { alternativesOf(std::type_identity<T>{}) } -> std::same_as<const Alternatives<T>&>;
};

template <TaggedUnion U> const Alternative& alternativeOf(const U& value) {
    return alternativesOf(std::type_identity<U>{}).type.heldBy(&value);
}

// The tags, in the order of the table, without the one of unknown tags.
template <TaggedUnion U> std::vector<std::string_view> allTags() {
    return alternativesOf(std::type_identity<U>{}).type.tags();
}

}   // namespace tavix
