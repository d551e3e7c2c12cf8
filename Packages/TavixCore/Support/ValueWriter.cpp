// The JSON of a value of any type.
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Field.h"

#include <utility>

namespace tavix {

namespace {

Json writtenList(const ListType& type, void* from) {
    const Type& element = type.element();
    JsonArray elements;
    elements.reserve(type.size(from));
    for (std::size_t i = 0; i < type.size(from); ++i)
        elements.push_back(writeValue(element, type.at(from, i)));
    return elements;
}

Json writtenMap(const MapType& type, void* from) {
    JsonObject members;
    for (const MapType::Entry& entry : type.entries(from))
        members.set(*entry.key, writeValue(type.value(), entry.value));
    return members;
}

Json writtenRecord(const RecordType& type, const void* from) {
    if (type.form == RecordType::Form::list) {
        JsonArray elements;
        for (const Field& row : type.rows) elements.push_back(writeValue(row.type(), row.in(from)));
        return elements;
    }
    JsonObject object;
    for (const Field& row : type.rows) {
        if (!type.isWritten(row, from)) continue;
        Json value = writeValue(row.type(), row.in(from));
        if (row.key.empty())
            object.merge(std::move(*value.object()));
        else
            object.set(row.key, std::move(value));
    }
    const bool mayBeBare = !type.bareKey.empty() && object.size() == 1;
    if (const Json* bare = mayBeBare ? object.find(type.bareKey) : nullptr) return *bare;
    return object;
}

Json writtenChoice(const ChoiceType& type, void* from) {
    const Alternative& row = type.heldBy(from);
    Json payload = writeValue(row.type(), row.held(from));
    JsonObject object;
    if (!row.payloadKey.empty())
        object.set(row.payloadKey, std::move(payload));
    else
        object = std::move(*payload.object());
    if (!row.tag.empty() && type.tag != ChoiceType::Tag::none) object.set(type.tagKey, row.tag);
    return object;
}

}   // namespace

Json writeValue(const Type& type, const void* from) {
    // Containers give their elements only to those who may change them; nobody here does.
    void* const value = const_cast<void*>(from);
    switch (type.kind) {
    case Type::Kind::boolean: return *static_cast<const bool*>(from);
    case Type::Kind::number: return *static_cast<const double*>(from);
    case Type::Kind::integer: return *static_cast<const std::int64_t*>(from);
    case Type::Kind::text: return *static_cast<const std::string*>(from);
    case Type::Kind::json: return *static_cast<const Json*>(from);
    case Type::Kind::word: {
        const auto& words = static_cast<const WordType&>(type);
        return words.name(words.load(from));
    }
    case Type::Kind::list: return writtenList(static_cast<const ListType&>(type), value);
    case Type::Kind::map: return writtenMap(static_cast<const MapType&>(type), value);
    case Type::Kind::optional: {
        const Held held = heldIn(type, value);
        return held.value ? writeValue(*held.type, held.value) : Json();
    }
    case Type::Kind::record: return writtenRecord(static_cast<const RecordType&>(type), from);
    case Type::Kind::choice: return writtenChoice(static_cast<const ChoiceType&>(type), value);
    case Type::Kind::own: return static_cast<const OwnType&>(type).write(from);
    }
    return {};
}

}   // namespace tavix
