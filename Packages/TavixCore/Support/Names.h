// Enumerations stored as words.
#pragma once

#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Tables.h"

#include <optional>
#include <stdexcept>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tavix {

// The words of an enumeration, in its order. With a fallback an unknown word reads as that case, in silence;
// without one it fails with: Unknown <noun> "x" — must be one of ...
template <class E> struct Names {
    std::string_view noun;
    std::vector<std::pair<E, std::string_view>> words;
    std::optional<E> fallback = {};
};

template <class E>
concept NamedEnum = std::is_enum_v<E> && requires {
    namesOf(std::type_identity<E>{});
};

template <NamedEnum E> std::string_view nameOf(E value) {
    for (const auto& [named, word] : namesOf(std::type_identity<E>{}).words)
        if (named == value) return word;
    throw std::logic_error("An enumerator has no word in its table.");
}

// The case that bears this name, or nothing.
template <NamedEnum E> std::optional<E> named(std::string_view name) {
    for (const auto& [value, word] : namesOf(std::type_identity<E>{}).words)
        if (word == name) return value;
    return std::nullopt;
}

template <NamedEnum E> std::vector<E> allCases() {
    std::vector<E> cases;
    for (const auto& entry : namesOf(std::type_identity<E>{}).words) cases.push_back(entry.first);
    return cases;
}

template <NamedEnum E> std::vector<std::string_view> allNames() {
    std::vector<std::string_view> names;
    for (const auto& entry : namesOf(std::type_identity<E>{}).words) names.push_back(entry.second);
    return names;
}

template <NamedEnum E> struct Codec<E> {
    static void read(const Json& json, E& into, const KeyPath& at) {
        const std::string& word = textAt(json, at);
        const Names<E>& table = namesOf(std::type_identity<E>{});
        const std::optional<E> known = named<E>(word);
        if (!known && !table.fallback) failWithWord(at, table.noun, word, allNames<E>());
        into = known ? *known : *table.fallback;
    }
    static Json write(E from) { return nameOf(from); }
    static Json schema(SchemaBook&) {
        JsonArray words;
        for (const std::string_view name : allNames<E>()) words.emplace_back(name);
        return JsonObject{{"enum", std::move(words)}, {"type", "string"}};
    }
};

}   // namespace tavix
