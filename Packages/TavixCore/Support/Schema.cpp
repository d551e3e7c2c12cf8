#include "TavixCore/Support/Schema.h"

#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Field.h"

#include <cmath>
#include <string>
#include <utility>

namespace tavix {

namespace {

Json ofType(std::string_view name) { return JsonObject{{"type", name}}; }

// A record that is met again, or inside itself, is a reference to its first description.
class Describer {
public:
    Json describe(const Type& type) {
        switch (type.kind) {
        case Type::Kind::boolean: return ofType("boolean");
        case Type::Kind::number: return ofType("number");
        case Type::Kind::integer: return ofType("integer");
        case Type::Kind::text: return ofType("string");
        case Type::Kind::json: return JsonObject{};
        case Type::Kind::word: return describeWords(static_cast<const WordType&>(type));
        case Type::Kind::list:
            return JsonObject{
                {"items", describe(static_cast<const ListType&>(type).element())}, {"type", "array"}};
        case Type::Kind::map:
            return JsonObject{{"additionalProperties", describe(static_cast<const MapType&>(type).value())},
                {"type", "object"}};
        case Type::Kind::optional: return describe(static_cast<const OptionalType&>(type).value());
        case Type::Kind::record: {
            const auto& record = static_cast<const RecordType&>(type);
            return reference(record.name, [&] { return describeRecord(record); });
        }
        case Type::Kind::choice: {
            const auto& choice = static_cast<const ChoiceType&>(type);
            return reference(choice.name, [&] { return describeChoice(choice); });
        }
        case Type::Kind::own: return static_cast<const OwnType&>(type).schema();
        }
        return {};
    }

    JsonObject definitions() && { return std::move(definitions_); }

private:
    template <class Describe> Json reference(std::string_view name, Describe describeIt) {
        if (!definitions_.find(name)) {
            definitions_.set(name, Json());   // taken, so that recursion ends
            Json description = describeIt();
            definitions_.set(name, std::move(description));
        }
        return JsonObject{{"$ref", "#/$defs/" + std::string(name)}};
    }

    static Json describeWords(const WordType& type) {
        JsonArray words;
        for (const Word& word : type.words) words.emplace_back(word.name);
        return JsonObject{{"enum", std::move(words)}, {"type", "string"}};
    }

    // What is said of one key: its value's own description, what it means, its default and its limits.
    Json describeRow(const Field& row, const RecordType& record) {
        Json description = describe(row.type());
        JsonObject& said = *description.object();
        if (!row.meaning.empty()) said.set("description", row.meaning);
        if (row.unit != Unit::none) said.set("unit", symbolOf(row.unit));
        const bool hasDefault = row.reach && !row.isRequired;
        Json byDefault = hasDefault ? writeValue(row.type(), row.in(record.fresh)) : Json();
        if (!byDefault.isNull()) said.set("default", std::move(byDefault));
        if (row.bounds && std::isfinite(row.bounds->least)) said.set("minimum", row.bounds->least);
        if (row.bounds && std::isfinite(row.bounds->most)) said.set("maximum", row.bounds->most);
        return description;
    }

    Json describeRecord(const RecordType& type) {
        if (type.form == RecordType::Form::list) return describeElements(type);
        Json object = describeObject(type);
        if (type.bareKey.empty()) return object;
        return JsonObject{{"anyOf", JsonArray{describe(type.find(type.bareKey)->type()), std::move(object)}}};
    }

    Json describeElements(const RecordType& type) {
        JsonArray items;
        for (const Field& row : type.rows) items.push_back(describeRow(row, type));
        return JsonObject{{"minItems", items.size()}, {"prefixItems", std::move(items)}, {"type", "array"}};
    }

    Json describeObject(const RecordType& type) {
        JsonObject properties;
        JsonArray needed, flat;
        for (const Field& row : type.rows) {
            if (row.key.empty())
                flat.push_back(describe(row.type()));
            else
                properties.set(row.key, describeRow(row, type));
            if (row.isRequired) needed.emplace_back(row.key);
        }
        JsonObject description{{"type", "object"}};
        if (!properties.empty()) description.set("properties", std::move(properties));
        if (!needed.empty()) description.set("required", std::move(needed));
        if (!flat.empty()) description.set("allOf", std::move(flat));
        return description;
    }

    Json describeChoice(const ChoiceType& type) {
        JsonArray any;
        for (const Alternative& row : type.rows)
            if (!row.tag.empty() || type.tag == ChoiceType::Tag::none)
                any.push_back(describeAlternative(row, type));
        return JsonObject{{"anyOf", std::move(any)}};
    }

    // The tag is pinned, so that a validator knows which alternative an object means to be.
    Json describeAlternative(const Alternative& row, const ChoiceType& type) {
        Json payload = describe(row.type());
        if (type.tag == ChoiceType::Tag::none) return payload;
        JsonObject properties{{std::string(type.tagKey), JsonObject{{"const", row.tag}}}};
        JsonArray needed;
        if (type.fallbackTag != row.tag) needed.emplace_back(type.tagKey);
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

    JsonObject definitions_;
};

}   // namespace

Json schemaOf(const Type& type, std::string_view title) {
    Describer describer;
    Json root = describer.describe(type);
    JsonObject schema{{"$schema", "https://json-schema.org/draft/2020-12/schema"}, {"title", title}};
    schema.merge(std::move(*root.object()));
    schema.set("$defs", std::move(describer).definitions());
    return schema;
}

}   // namespace tavix
