// Reads JSON into a value of any type.
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <algorithm>
#include <array>
#include <memory>

namespace tavix {

namespace {

void readBoolean(const Json& json, bool& into, const KeyPath& at) {
    const bool* flag = json.boolean();
    if (!flag) failWithType(at, "true or false", json);
    into = *flag;
}

void readWord(const WordType& type, const Json& json, void* into, const KeyPath& at) {
    const std::string& name = textAt(json, at);
    if (const Word* word = type.find(name)) return type.store(into, word->value);
    if (type.fallback) return type.store(into, *type.fallback);
    if (type.isListed) failWithWord(at, type.noun, name, type.names());
    failWithData(at, "Unknown " + std::string(type.noun) + " \"" + name + "\".");
}

void readList(const ListType& type, const Json& json, void* into, const KeyPath& at) {
    const JsonArray* elements = json.array();
    if (!elements) failWithType(at, "a list", json);
    const Type& element = type.element();
    type.renew(into, elements->size());
    for (std::size_t i = 0; i < elements->size(); ++i)
        readValue(element, (*elements)[i], type.at(into, i), KeyPath(at, i));
}

void readMap(const MapType& type, const Json& json, void* into, const KeyPath& at) {
    type.clear(into);
    for (const JsonMember& member : objectAt(json, at))
        readValue(type.value(), member.value, type.place(into, member.key), KeyPath(at, member.key));
}

// Null and a missing key mean the same; the reader of the record sees to the latter.
void readOptional(const OptionalType& type, const Json& json, void* into, const KeyPath& at) {
    if (json.isNull())
        type.reset(into);
    else
        readValue(type.value(), json, type.emplace(into), at);
}

// A record is filled key by key over its own defaults, which need not be those that its owner gives it.
void readMember(const Field& row, const Json& json, void* record, const KeyPath& at) {
    if (row.reader) return row.reader(json, record, at);
    const Type& type = row.type();
    void* const member = row.reach(record);
    if (type.kind == Type::Kind::record) static_cast<const RecordType&>(type).refresh(member);
    readValue(type, json, member, at);
    if (row.clamps) clampNumber(row, record);
}

void readRow(const RecordType& type, const Field& row, const Json* value, void* into, const KeyPath& at) {
    if (!value || value->isNull()) {
        if (row.isRequired) failWithMissing(at, value);
    } else if (!row.isTolerant || !whyUnreadable(type, row, *value, at)) {
        readMember(row, *value, into, at);
    }
}

// Rows are read in their own order. Which key each has is found from the few keys that are there.
void readObject(const RecordType& type, const Json& json, void* into, const KeyPath& at) {
    constexpr std::size_t mostAtOnce = 32;
    const JsonObject& object = objectAt(json, at);
    for (std::size_t start = 0; start < type.rows.size(); start += mostAtOnce) {
        const auto rows = type.rows.subspan(start, std::min(mostAtOnce, type.rows.size() - start));
        std::array<const Json*, mostAtOnce> values{};
        for (const JsonMember& member : object)
            for (std::size_t i = 0; i < rows.size(); ++i)
                if (rows[i].key == member.key) values[i] = &member.value;
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (rows[i].key.empty())
                readMember(rows[i], json, into, at);
            else
                readRow(type, rows[i], values[i], into, KeyPath(at, rows[i].key));
    }
}

void readElements(const RecordType& type, const Json& json, void* into, const KeyPath& at) {
    const JsonArray* elements = json.array();
    if (!elements) failWithType(at, "a list of " + std::to_string(type.rows.size()) + " values", json);
    if (elements->size() < type.rows.size())
        failWithData(at, at.subject() + " must be a list of " + std::to_string(type.rows.size()) +
                             " values, but has only " + std::to_string(elements->size()) + ".");
    for (std::size_t i = 0; i < type.rows.size(); ++i)
        readMember(type.rows[i], (*elements)[i], into, KeyPath(at, i));
}

void readRecord(const RecordType& type, const Json& json, void* into, const KeyPath& at) {
    if (type.form == RecordType::Form::list)
        readElements(type, json, into, at);
    else if (!type.bareKey.empty() && !json.object())
        readMember(*type.find(type.bareKey), json, into, at);
    else
        readObject(type, json, into, at);
    if (type.afterRead) type.making.call(type.afterRead, into);
}

const Alternative& chosen(const ChoiceType& type, const JsonObject& object, const KeyPath& at) {
    if (type.tag == ChoiceType::Tag::none) return type.byKeys(object);
    const KeyPath here(at, type.tagKey);
    const Json* held = object.find(type.tagKey);
    const bool isThere = held && !held->isNull();
    if (!isThere && !type.fallbackTag && type.tag == ChoiceType::Tag::required) failWithMissing(here, held);
    const std::string_view tag = isThere ? std::string_view(textAt(*held, here)) : std::string_view();
    if (const Alternative* known = type.find(tag)) return *known;
    if (!type.fallbackTag) failWithWord(here, type.noun, tag, type.tags());
    return *type.find(*type.fallbackTag);
}

void readChoice(const ChoiceType& type, const Json& json, void* into, const KeyPath& at) {
    const JsonObject& object = objectAt(json, at);
    const Alternative& row = chosen(type, object, at);
    if (row.payloadKey.empty()) return readValue(row.type(), json, row.emplace(into), at);
    const KeyPath here(at, row.payloadKey);
    const Json* payload = object.find(row.payloadKey);
    if (payload && !payload->isNull())
        readValue(row.type(), *payload, row.emplace(into), here);
    else if (row.isDefaultWhenAbsent)
        row.makeDefault(into);
    else
        failWithMissing(here, payload);
}

}   // namespace

void readValue(const Type& type, const Json& json, void* into, const KeyPath& at) {
    switch (type.kind) {
    case Type::Kind::boolean: return readBoolean(json, *static_cast<bool*>(into), at);
    case Type::Kind::number: *static_cast<double*>(into) = numberAt(json, at); return;
    case Type::Kind::integer: *static_cast<std::int64_t*>(into) = integerAt(json, at); return;
    case Type::Kind::text: *static_cast<std::string*>(into) = textAt(json, at); return;
    case Type::Kind::json: *static_cast<Json*>(into) = json; return;
    case Type::Kind::word: return readWord(static_cast<const WordType&>(type), json, into, at);
    case Type::Kind::list: return readList(static_cast<const ListType&>(type), json, into, at);
    case Type::Kind::map: return readMap(static_cast<const MapType&>(type), json, into, at);
    case Type::Kind::optional: return readOptional(static_cast<const OptionalType&>(type), json, into, at);
    case Type::Kind::record: return readRecord(static_cast<const RecordType&>(type), json, into, at);
    case Type::Kind::choice: return readChoice(static_cast<const ChoiceType&>(type), json, into, at);
    case Type::Kind::own: return static_cast<const OwnType&>(type).read(json, into, at);
    }
}

std::optional<std::string> whyUnreadable(
    const RecordType& type, const Field& row, const Json& json, const KeyPath& at) {
    const auto destroy = [&](void* record) { type.destroy(record); };
    const std::unique_ptr<void, decltype(destroy)> trial(type.make(), destroy);
    try {
        readMember(row, json, trial.get(), at);
        return std::nullopt;
    } catch (const DecodingError& error) {
        return error.message();
    }
}

}   // namespace tavix
