// The types of lists, maps and optional values.
#pragma once

#include "TavixCore/Support/Type.h"

#include <map>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

template <class T> struct TypeOf<std::vector<T>> {
    static_assert(!std::is_same_v<T, bool>, "its elements have no address");
    using List = std::vector<T>;

    static std::size_t size(const void* list) { return static_cast<const List*>(list)->size(); }
    static void* at(void* list, std::size_t index) { return static_cast<List*>(list)->data() + index; }
    static void renew(void* list, std::size_t size) { *static_cast<List*>(list) = List(size); }

    static constexpr ListType type{{Type::Kind::list}, &TypeOf<T>::get, size, at, renew};
    static const Type& get() { return type; }
};

template <class T> struct TypeOf<std::map<std::string, T>> {
    using Map = std::map<std::string, T>;

    static std::vector<MapType::Entry> entries(void* map) {
        std::vector<MapType::Entry> all;
        for (auto& [key, value] : *static_cast<Map*>(map)) all.push_back({&key, &value});
        return all;
    }
    static void* place(void* map, const std::string& key) { return &(*static_cast<Map*>(map))[key]; }
    static void clear(void* map) { static_cast<Map*>(map)->clear(); }

    static constexpr MapType type{{Type::Kind::map}, &TypeOf<T>::get, entries, place, clear};
    static const Type& get() { return type; }
};

template <class T> struct TypeOf<std::optional<T>> {
    using Optional = std::optional<T>;

    static void* held(void* optional) {
        auto& value = *static_cast<Optional*>(optional);
        return value ? &*value : nullptr;
    }
    static void* emplace(void* optional) { return &static_cast<Optional*>(optional)->emplace(); }
    static void reset(void* optional) { static_cast<Optional*>(optional)->reset(); }

    static constexpr OptionalType type{{Type::Kind::optional}, &TypeOf<T>::get, held, emplace, reset};
    static const Type& get() { return type; }
};

// The commonest ones are made once, in Type.cpp.
extern template struct TypeOf<std::vector<double>>;
extern template struct TypeOf<std::vector<std::int64_t>>;
extern template struct TypeOf<std::vector<std::string>>;
extern template struct TypeOf<std::map<std::string, std::string>>;
extern template struct TypeOf<std::optional<bool>>;
extern template struct TypeOf<std::optional<double>>;
extern template struct TypeOf<std::optional<std::int64_t>>;
extern template struct TypeOf<std::optional<std::string>>;

}   // namespace tavix
