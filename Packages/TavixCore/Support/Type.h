// What a value of a document is, told at run time. A `Type` is a handful of functions over values of one C++
// type; reading, writing, describing, comparing and walking are ordinary functions over types, compiled once.
// A `void*` beside a type always points at a value of that type.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavix {

struct Type {
    enum class Kind { boolean, number, integer, text, json, word, list, map, optional, record, choice, own };

    Kind kind;   // and so which of the structures below it is
};
using TypeGetter = const Type& (*)();

// The type that describes T. Plain types are known here; lists, maps and optional values in Containers.h; a
// record by its `fieldsOf`, an enumeration by its `namesOf`, a union by its `alternativesOf`, and any other
// type by a `typeOf(std::type_identity<T>)` of its own.
template <class T> struct TypeOf { static const Type& get(); };
template <class T> const Type& typeOf() { return TypeOf<T>::get(); }

class Json;
template <> const Type& TypeOf<bool>::get();
template <> const Type& TypeOf<double>::get();
template <> const Type& TypeOf<std::int64_t>::get();
template <> const Type& TypeOf<std::string>::get();
template <> const Type& TypeOf<Json>::get();

class KeyPath;

// A value with a form of its own in JSON, which no other kind has.
struct OwnType : Type {
    void (*read)(const Json& json, void* into, const KeyPath& at);
    Json (*write)(const void* value);
    Json (*schema)();
    bool (*areEqual)(const void* a, const void* b);
};

struct ListType : Type {
    TypeGetter element;
    std::size_t (*size)(const void* list);
    void* (*at)(void* list, std::size_t index);
    void (*renew)(void* list, std::size_t size);   // all elements are fresh ones
};

struct MapType : Type {
    struct Entry {
        const std::string* key;
        void* value;
    };

    TypeGetter value;
    std::vector<Entry> (*entries)(void* map);   // sorted by key
    void* (*place)(void* map, const std::string& key);
    void (*clear)(void* map);
};

struct OptionalType : Type {
    TypeGetter value;
    void* (*held)(void* optional);   // null when there is none
    void* (*emplace)(void* optional);
    void (*reset)(void* optional);
};

// A value that is one of a set of words, in their order.
struct Word {
    std::int64_t value;
    std::string_view name;
};

struct WordType : Type {
    std::string_view noun;   // in messages
    std::span<const Word> words;
    std::optional<std::int64_t> fallback;   // what an unknown word reads as, in silence
    bool isListed = true;                   // whether messages tell all words
    std::int64_t (*load)(const void* value);
    void (*store)(void* value, std::int64_t word);

    const Word* find(std::string_view name) const;
    std::string_view name(std::int64_t value) const;
    std::vector<std::string_view> names() const;
};

// The value that an optional holds, or the value itself; null when there is none.
struct Held {
    const Type* type;
    void* value;
};
Held heldIn(const Type& type, void* value);

// The number that a value holds; nothing when it holds none, or is of another type.
std::optional<double> numberIn(const Type& type, const void* value);

// Whether two values say the same in a document: of a record, its keys count.
bool areEqual(const Type& type, const void* a, const void* b);

template <class T> const Type& TypeOf<T>::get() {
    constexpr std::type_identity<T> of;
    if constexpr (requires { fieldsOf(of); })
        return fieldsOf(of).type;
    else if constexpr (requires { namesOf(of); })
        return namesOf(of).type;
    else if constexpr (requires { alternativesOf(of); })
        return alternativesOf(of).type;
    else
        return typeOf(of);
}

}   // namespace tavix
