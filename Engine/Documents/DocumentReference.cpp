#include "Engine/Documents/DocumentReference.h"

#include "Engine/Console/Words.h"
#include "TavixCore/Project/DocumentSchemas.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/JsonWriter.h"

#include <algorithm>
#include <map>
#include <regex>
#include <string_view>
#include <vector>

namespace tavix::engine {

namespace {

constexpr std::string_view definitionPrefix = "#/$defs/";
constexpr std::size_t longestShownDefault = 72, mostShownWords = 12;

std::string headOf(const std::string& type) {
    const bool isComposition = type == "composition";
    return (isComposition ? "# Document reference\n\nEvery key of a `composition.json`"
                          : "# Reference of " + type + "\n\nEvery key of a document of this type") +
           ", made by `tavix schema " + (isComposition ? "" : type + " ") +
           "--markdown` from the tables that the reader and the\n"
           "writer of documents use. A key that is left out means its default; keys that are not listed are "
           "ignored.\n"
           "`tavix schema" +
           (isComposition ? "" : " " + type) +
           "` prints the same as a JSON Schema, for editors and agents.\n";
}

std::string_view referenceIn(const Json& schema) {
    const Json* reference = schema.find("$ref");
    const std::string_view target = reference && reference->text() ? *reference->text() : std::string_view();
    return target.starts_with(definitionPrefix) ? target.substr(definitionPrefix.size()) : std::string_view();
}

const JsonArray& listIn(const Json& schema, std::string_view key) {
    static const JsonArray none;
    const Json* list = schema.find(key);
    return list && list->array() ? *list->array() : none;
}

// Appends the definitions that are reached from here, each once, the nearest first.
void collect(const Json& schema, std::vector<std::string>& names) {
    if (const std::string name(referenceIn(schema)); !name.empty())
        if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
    if (const JsonObject* object = schema.object())
        for (const JsonMember& member : *object)
            if (member.key != "$defs" && member.key != "default") collect(member.value, names);
    if (const JsonArray* array = schema.array())
        for (const Json& element : *array) collect(element, names);
}

std::string linkTo(std::string_view name) {
    std::string anchor(name);
    for (char& letter : anchor)
        if (letter >= 'A' && letter <= 'Z') letter = char(letter - 'A' + 'a');
    return std::string("[").append(name).append("](#").append(anchor).append(")");
}

std::string code(std::string_view text) { return std::string("`").append(text).append("`"); }

// On one line, as a person would write it.
std::string compact(const Json& json) {
    std::string line;
    bool isInText = false, isEscaped = false, isIndent = false;
    for (const char letter : writeJson(json)) {
        if (letter == '"' && !isEscaped) isInText = !isInText;
        isEscaped = letter == '\\' && !isEscaped;
        isIndent = letter == '\n' || (isIndent && letter == ' ');
        if (isIndent) continue;
        if (letter == ':' && !isInText) line.pop_back();   // the standard writer puts a space before it
        line += letter;
        if (letter == ',' && !isInText) line += ' ';
    }
    return line;
}

std::string typeOf(const Json& schema) {
    if (const std::string_view name = referenceIn(schema); !name.empty()) return linkTo(name);
    std::vector<std::string> choices;
    for (const Json& choice : listIn(schema, "anyOf")) choices.push_back(typeOf(choice));
    const JsonArray& words = listIn(schema, "enum");
    if (words.size() > mostShownWords) return "one of " + std::to_string(words.size()) + " names";
    for (const Json& word : words) choices.push_back(code(*word.text()));
    if (!choices.empty()) return listed(std::vector<std::string_view>(choices.begin(), choices.end()));
    if (const Json* items = schema.find("items")) return "list of " + typeOf(*items);
    if (const Json* values = schema.find("additionalProperties")) return "map of text to " + typeOf(*values);
    const Json* type = schema.find("type");
    if (!type || !type->text()) return "any JSON";
    const Json* unit = schema.find("unit");
    return (*type->text() == "string"      ? "text"
               : *type->text() == "object" ? "an object"
                                           : *type->text()) +
           (unit ? ", " + *unit->text() : "");
}

std::string limitsOf(const Json& schema) {
    const Json *least = schema.find("minimum"), *most = schema.find("maximum");
    std::string text;
    if (least && most)
        text.append(" ").append(compact(*least)).append(" to ").append(compact(*most)).append(".");
    else if (least || most)
        text.append(least ? " At least " : " At most ").append(compact(least ? *least : *most)).append(".");
    return text;
}

std::string defaultOf(const Json& schema, bool isRequired) {
    if (isRequired) return "required";
    const Json* value = schema.find("default");
    if (!value) return "";
    // A colour in the order in which people say one.
    static const std::regex color(R"(\{"a": ([^,]+), "b": ([^,]+), "g": ([^,]+), "r": ([^}]+)\})");
    const std::string text =
        std::regex_replace(compact(*value), color, R"({"r": $4, "g": $3, "b": $2, "a": $1})");
    return text.size() <= longestShownDefault ? code(text) : "";
}

std::string meaningOf(const Json& schema) {
    const Json* meaning = schema.find("description");
    return (meaning && meaning->text() ? *meaning->text() : std::string()) + limitsOf(schema);
}

// The records of a document by their names, which a schema has too.
using Records = std::map<std::string_view, const RecordType*>;

void collect(const Type& type, Records& records) {
    switch (type.kind) {
    case Type::Kind::list: return collect(static_cast<const ListType&>(type).element(), records);
    case Type::Kind::map: return collect(static_cast<const MapType&>(type).value(), records);
    case Type::Kind::optional: return collect(static_cast<const OptionalType&>(type).value(), records);
    case Type::Kind::choice:
        for (const Alternative& row : static_cast<const ChoiceType&>(type).rows) collect(row.type(), records);
        return;
    case Type::Kind::record: {
        const auto& record = static_cast<const RecordType&>(type);
        if (records.emplace(record.name, &record).second)
            for (const Field& row : record.rows) collect(row.type(), records);
        return;
    }
    case Type::Kind::boolean:
    case Type::Kind::number:
    case Type::Kind::integer:
    case Type::Kind::text:
    case Type::Kind::json:
    case Type::Kind::word:
    case Type::Kind::own: return;
    }
}

std::string tableOf(const Json& definition, const RecordType& record) {
    const Json* properties = definition.find("properties");
    if (!properties) return {};
    std::string text = "\n| Key | Type | Default | Meaning |\n|---|---|---|---|\n";
    for (const Field& row : record.rows)
        if (const Json* schema = properties->find(row.key))
            text += "| " + code(row.key) + " | " + typeOf(*schema) + " | " +
                    defaultOf(*schema, row.isRequired) + " | " + meaningOf(*schema) + " |\n";
    return text;
}

// A row of a union: the word that chooses it, and what the object then holds.
std::string alternative(const Json& schema, const RecordType* record) {
    std::string tag, payload;
    if (const Json* properties = schema.find("properties"))
        for (const auto& [key, held] : *properties->object()) {
            if (const Json* word = held.find("const"))
                tag = code(key + ": " + compact(*word));
            else
                payload += code(key) + ": " + typeOf(held);
        }
    for (const Json& flat : listIn(schema, "allOf")) payload += "the keys of " + typeOf(flat);
    if (tag.empty()) return "* " + typeOf(schema) + "\n" + (record ? tableOf(schema, *record) : "");
    return "* " + tag + (payload.empty() ? "" : " with " + payload) + "\n";
}

std::string chapter(const std::string& name, const Json& definition, const RecordType* record) {
    std::string text = "\n## " + name + "\n" + (record ? tableOf(definition, *record) : "");
    if (const JsonArray& parts = listIn(definition, "allOf"); !parts.empty()) {
        text += "\nBeside these it has the keys of ";
        for (const Json& part : parts) text += (&part == &parts.front() ? "" : " and ") + typeOf(part);
        text += ".\n";
    }
    if (const JsonArray& items = listIn(definition, "prefixItems"); !items.empty()) {
        text += "\nA list of:\n\n";
        for (const Json& item : items) text += "1. " + typeOf(item) + ": " + meaningOf(item) + "\n";
    }
    const JsonArray& choices = listIn(definition, "anyOf");
    if (!choices.empty()) text += "\nOne of:\n\n";
    for (const Json& choice : choices) text += alternative(choice, record);
    return text;
}

}   // namespace

std::string documentReference(const DocumentSchema& document) {
    const Json schema = document.schema();
    Records records;
    collect(document.type(), records);
    std::vector<std::string> names;
    collect(schema, names);
    const Json* definitions = schema.find("$defs");
    std::string text = headOf(std::string(document.name));
    for (std::size_t i = 0; i < names.size(); ++i) {
        const Json definition = *definitions->find(names[i]);
        collect(definition, names);
        const auto record = records.find(names[i]);
        text += chapter(names[i], definition, record == records.end() ? nullptr : record->second);
    }
    return text;
}

}   // namespace tavix::engine
