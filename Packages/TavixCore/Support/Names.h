// Enumerations stored as words.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Support/Type.h"

#include <initializer_list>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavix {

void addWord(std::vector<Word>& words, std::int64_t value, std::string_view name);

// The words of an enumeration, in its order. With a fallback an unknown word reads as that case, in silence;
// without one it fails with: Unknown <noun> "x" — must be one of ...
template <class E> struct Names {
    struct Case {
        E value;
        std::string_view name;
    };

    Names(std::string_view noun, std::initializer_list<Case> cases, std::optional<E> fallback = {}) {
        for (const Case& each : cases) addWord(words, static_cast<std::int64_t>(each.value), each.name);
        type.noun = noun;
        type.words = words;
        if (fallback) type.fallback = static_cast<std::int64_t>(*fallback);
        type.load = [](const void* value) {
            return static_cast<std::int64_t>(*static_cast<const E*>(value));
        };
        type.store = [](void* value, std::int64_t word) { *static_cast<E*>(value) = static_cast<E>(word); };
    }
    Names(const Names&) = delete;
    Names& operator=(const Names&) = delete;

    std::vector<Word> words;
    WordType type{{Type::Kind::word}, {}, {}, {}, true, nullptr, nullptr};
};

template <class E>
concept NamedEnum = std::is_enum_v<E> && requires {
    namesOf(std::type_identity<E>{});
};

template <NamedEnum E> const WordType& wordTypeOf() { return namesOf(std::type_identity<E>{}).type; }

template <NamedEnum E> std::string_view nameOf(E value) {
    return wordTypeOf<E>().name(static_cast<std::int64_t>(value));
}

// The case that bears this name, or nothing.
template <NamedEnum E> std::optional<E> named(std::string_view name) {
    const Word* word = wordTypeOf<E>().find(name);
    return word ? std::optional(static_cast<E>(word->value)) : std::nullopt;
}

template <NamedEnum E> std::vector<E> allCases() {
    std::vector<E> cases;
    for (const Word& word : wordTypeOf<E>().words) cases.push_back(static_cast<E>(word.value));
    return cases;
}

template <NamedEnum E> std::vector<std::string_view> allNames() { return wordTypeOf<E>().names(); }

}   // namespace tavix
