#include "TavixCore/Findings/IgnoredParts.h"

#include "TavixBase/NearestWord.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tavix {

namespace {

using Reason = IgnoredPart::Reason;

struct KnownKeys {
    std::vector<std::string_view> current, older;
    bool isOpen = false;   // whatever else stands there is kept

    bool contain(std::string_view key) const {
        return isOpen || std::ranges::find(current, key) != current.end() ||
               std::ranges::find(older, key) != older.end();
    }
};

// The alternative that an object was read as; nothing where reading failed.
const Alternative* chosenFrom(const ChoiceType& type, const JsonObject& object) {
    if (type.tag == ChoiceType::Tag::none) return &type.byKeys(object);
    const Json* const tag = object.find(type.tagKey);
    const bool isThere = tag && !tag->isNull();
    if (isThere && !tag->text()) return nullptr;
    const Alternative* const known = type.find(isThere ? std::string_view(*tag->text()) : "");
    return known || !type.fallbackTag ? known : type.find(*type.fallbackTag);
}

class Search {
public:
    std::vector<IgnoredPart> parts;

    void value(const Type& type, const Json& json, const KeyPath& at) {
        switch (type.kind) {
        case Type::Kind::word: return word(static_cast<const WordType&>(type), json, at);
        case Type::Kind::list: return list(static_cast<const ListType&>(type), json, at);
        case Type::Kind::map: return map(static_cast<const MapType&>(type), json, at);
        case Type::Kind::optional: return value(static_cast<const OptionalType&>(type).value(), json, at);
        case Type::Kind::record: return record(static_cast<const RecordType&>(type), json, at);
        case Type::Kind::choice: return object(type, json, at);
        default: return;
        }
    }

private:
    void word(const WordType& type, const Json& json, const KeyPath& at) {
        if (!json.text() || !type.fallback || type.find(*json.text())) return;
        unknownWord(*json.text(), type.names(), type.name(*type.fallback), at);
    }

    void unknownWord(const std::string& found, std::vector<std::string_view> legal, std::string_view taken,
        const KeyPath& at) {
        IgnoredPart& part = add(Reason::unknownWord, at);
        part.found = found;
        part.nearest = nearestWord(found, legal).value_or("");
        part.legal = std::move(legal);
        part.taken = taken;
    }

    void list(const ListType& type, const Json& json, const KeyPath& at) {
        if (!json.array()) return;
        for (std::size_t i = 0; i < json.array()->size(); ++i)
            value(type.element(), (*json.array())[i], KeyPath(at, i));
    }

    void map(const MapType& type, const Json& json, const KeyPath& at) {
        if (!json.object()) return;
        for (const JsonMember& member : *json.object())
            value(type.value(), member.value, KeyPath(at, member.key));
    }

    void record(const RecordType& type, const Json& json, const KeyPath& at) {
        if (type.form == RecordType::Form::object) {
            if (json.object() || type.bareKey.empty()) return object(type, json, at);
            return member(type, *type.find(type.bareKey), json, at);
        }
        if (!json.array()) return;
        for (std::size_t i = 0; i < std::min(type.rows.size(), json.array()->size()); ++i)
            member(type, type.rows[i], (*json.array())[i], KeyPath(at, i));
    }

    void object(const Type& type, const Json& json, const KeyPath& at) {
        if (!json.object()) return;
        KnownKeys known;
        collectKeys(type, *json.object(), known);
        for (const JsonMember& member : *json.object()) {
            if (known.contain(member.key)) continue;
            IgnoredPart& part = add(Reason::unknownKey, KeyPath(at, member.key));
            part.found = member.key;
            part.legal = known.current;
            part.nearest = nearestWord(member.key, known.current).value_or("");
        }
        content(type, json, at);
    }

    // Of an object that may lie flat in another, whose keys are then its own.
    static void collectKeys(const Type& type, const JsonObject& object, KnownKeys& known) {
        if (type.kind == Type::Kind::record) {
            for (const Field& row : static_cast<const RecordType&>(type).rows)
                if (row.key.empty())
                    collectKeys(row.type(), object, known);
                else
                    (row.written == Field::Written::never ? known.older : known.current).push_back(row.key);
        } else if (type.kind == Type::Kind::choice) {
            const auto& choice = static_cast<const ChoiceType&>(type);
            const Alternative* const row = chosenFrom(choice, object);
            known.isOpen = known.isOpen || !row || isKept(choice, *row);
            if (!row) return;
            if (choice.tag != ChoiceType::Tag::none) known.current.push_back(choice.tagKey);
            if (row->payloadKey.empty())
                collectKeys(row->type(), object, known);
            else
                known.current.push_back(row->payloadKey);
        }
    }

    // An alternative that keeps an unknown tag as it is.
    static bool isKept(const ChoiceType& type, const Alternative& row) {
        return row.tag.empty() && type.tag != ChoiceType::Tag::none;
    }

    void content(const Type& type, const Json& json, const KeyPath& at) {
        if (type.kind == Type::Kind::choice)
            return alternative(static_cast<const ChoiceType&>(type), json, at);
        if (type.kind != Type::Kind::record) return;
        const auto& record = static_cast<const RecordType&>(type);
        for (const Field& row : record.rows) {
            if (row.key.empty())
                content(row.type(), json, at);
            else if (const Json* found = json.find(row.key); found && !found->isNull())
                member(record, row, *found, KeyPath(at, row.key));
        }
    }

    void alternative(const ChoiceType& type, const Json& json, const KeyPath& at) {
        const Alternative* const row = chosenFrom(type, *json.object());
        if (!row || isKept(type, *row)) return;
        const Json* const tag = json.find(type.tagKey);
        if (type.tag != ChoiceType::Tag::none && tag && tag->text() && !type.find(*tag->text()))
            unknownWord(*tag->text(), type.tags(), row->tag, KeyPath(at, type.tagKey));
        if (row->payloadKey.empty()) return content(row->type(), json, at);
        const Json* const payload = json.find(row->payloadKey);
        if (payload && !payload->isNull()) value(row->type(), *payload, KeyPath(at, row->payloadKey));
    }

    void member(const RecordType& type, const Field& row, const Json& json, const KeyPath& at) {
        if (row.isTolerant)
            if (auto message = whyUnreadable(type, row, json, at)) {
                add(Reason::unreadable, at).message = *std::move(message);
                return;
            }
        if (const auto number = json.doubleValue();
            number && row.clamps && row.bounds->clamp(*number) != *number) {
            IgnoredPart& part = add(Reason::clamped, at);
            part.value = *number;
            part.limits = *row.bounds;
        }
        value(row.type(), json, at);
    }

    IgnoredPart& add(Reason reason, const KeyPath& at) {
        IgnoredPart& part = parts.emplace_back();
        part.reason = reason;
        part.path = at.text();
        return part;
    }
};

}   // namespace

std::vector<IgnoredPart> ignoredParts(const Json& document, const Type& type) {
    Search search;
    search.value(type, document, KeyPath());
    return std::move(search.parts);
}

}   // namespace tavix
