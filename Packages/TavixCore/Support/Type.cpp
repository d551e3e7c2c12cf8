#include "TavixCore/Support/Type.h"

#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Containers.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/Names.h"

#include <stdexcept>

namespace tavix {

namespace {

constexpr Type boolean{Type::Kind::boolean}, number{Type::Kind::number}, integer{Type::Kind::integer},
    text{Type::Kind::text}, jsonType{Type::Kind::json};

template <class T> bool areEqualAs(const void* a, const void* b) {
    return *static_cast<const T*>(a) == *static_cast<const T*>(b);
}

// Containers give their elements only to those who may change them; nobody here does.
void* mutableOf(const void* value) { return const_cast<void*>(value); }

bool areEqualLists(const ListType& type, const void* a, const void* b) {
    const std::size_t size = type.size(a);
    if (type.size(b) != size) return false;
    const Type& element = type.element();
    for (std::size_t i = 0; i < size; ++i)
        if (!areEqual(element, type.at(mutableOf(a), i), type.at(mutableOf(b), i))) return false;
    return true;
}

bool areEqualMaps(const MapType& type, const void* a, const void* b) {
    const auto ofA = type.entries(mutableOf(a)), ofB = type.entries(mutableOf(b));
    if (ofA.size() != ofB.size()) return false;
    for (std::size_t i = 0; i < ofA.size(); ++i)
        if (*ofA[i].key != *ofB[i].key || !areEqual(type.value(), ofA[i].value, ofB[i].value)) return false;
    return true;
}

bool areEqualOptionals(const OptionalType& type, const void* a, const void* b) {
    const void *inA = type.held(mutableOf(a)), *inB = type.held(mutableOf(b));
    return inA && inB ? areEqual(type.value(), inA, inB) : !inA && !inB;
}

bool areEqualChoices(const ChoiceType& type, const void* a, const void* b) {
    if (type.index(a) != type.index(b)) return false;
    const Alternative& row = type.heldBy(a);
    return areEqual(row.type(), row.held(mutableOf(a)), row.held(mutableOf(b)));
}

bool areEqualRecords(const RecordType& type, const void* a, const void* b) {
    for (const Field& row : type.rows)
        if (row.reach && !areEqual(row.type(), row.in(a), row.in(b))) return false;
    return true;
}

}   // namespace

template <> const Type& TypeOf<bool>::get() { return boolean; }
template <> const Type& TypeOf<double>::get() { return number; }
template <> const Type& TypeOf<std::int64_t>::get() { return integer; }
template <> const Type& TypeOf<std::string>::get() { return text; }
template <> const Type& TypeOf<Json>::get() { return jsonType; }

template struct TypeOf<std::vector<double>>;
template struct TypeOf<std::vector<std::int64_t>>;
template struct TypeOf<std::vector<std::string>>;
template struct TypeOf<std::map<std::string, std::string>>;
template struct TypeOf<std::optional<bool>>;
template struct TypeOf<std::optional<double>>;
template struct TypeOf<std::optional<std::int64_t>>;
template struct TypeOf<std::optional<std::string>>;

const Word* WordType::find(std::string_view name) const {
    for (const Word& word : words)
        if (word.name == name) return &word;
    return nullptr;
}

std::string_view WordType::name(std::int64_t value) const {
    for (const Word& word : words)
        if (word.value == value) return word.name;
    throw std::logic_error("An enumerator has no word in its table.");
}

std::vector<std::string_view> WordType::names() const {
    std::vector<std::string_view> all;
    for (const Word& word : words) all.push_back(word.name);
    return all;
}

void addWord(std::vector<Word>& words, std::int64_t value, std::string_view name) {
    words.push_back({value, name});
}

Held heldIn(const Type& type, void* value) {
    if (type.kind != Type::Kind::optional) return {&type, value};
    const auto& optional = static_cast<const OptionalType&>(type);
    return heldIn(optional.value(), optional.held(value));
}

std::optional<double> numberIn(const Type& type, const void* value) {
    const Held held = heldIn(type, mutableOf(value));
    if (!held.value) return std::nullopt;
    if (held.type->kind == Type::Kind::number) return *static_cast<const double*>(held.value);
    if (held.type->kind != Type::Kind::integer) return std::nullopt;
    return static_cast<double>(*static_cast<const std::int64_t*>(held.value));
}

bool areEqual(const Type& type, const void* a, const void* b) {
    switch (type.kind) {
    case Type::Kind::boolean: return areEqualAs<bool>(a, b);
    case Type::Kind::number: return areEqualAs<double>(a, b);
    case Type::Kind::integer: return areEqualAs<std::int64_t>(a, b);
    case Type::Kind::text: return areEqualAs<std::string>(a, b);
    case Type::Kind::json: return areEqualAs<Json>(a, b);
    case Type::Kind::word: {
        const auto& words = static_cast<const WordType&>(type);
        return words.load(a) == words.load(b);
    }
    case Type::Kind::list: return areEqualLists(static_cast<const ListType&>(type), a, b);
    case Type::Kind::map: return areEqualMaps(static_cast<const MapType&>(type), a, b);
    case Type::Kind::optional: return areEqualOptionals(static_cast<const OptionalType&>(type), a, b);
    case Type::Kind::record: return areEqualRecords(static_cast<const RecordType&>(type), a, b);
    case Type::Kind::choice: return areEqualChoices(static_cast<const ChoiceType&>(type), a, b);
    case Type::Kind::own: return static_cast<const OwnType&>(type).areEqual(a, b);
    }
    return false;
}

}   // namespace tavix
