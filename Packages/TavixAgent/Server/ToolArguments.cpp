#include "TavixAgent/Server/ToolArguments.h"

#include "TavixAgent/Document/DocumentErrors.h"
#include "TavixBase/NearestWord.h"
#include "TavixCore/Findings/LintReport.h"
#include "TavixCore/Support/JsonWriter.h"

#include <utility>

namespace tavix {
namespace {

bool isOfType(const Json& value, std::string_view type) {
    if (type == "string") return value.text() != nullptr;
    if (type == "number") return value.isNumber();
    if (type == "integer") return value.integerValue().has_value();
    if (type == "boolean") return value.boolean() != nullptr;
    if (type == "array") return value.array() != nullptr;
    if (type == "object") return value.object() != nullptr;
    return true;
}

void requireKnown(const std::string& key, const JsonObject& properties) {
    if (properties.find(key)) return;
    std::vector<std::string_view> known;
    for (const JsonMember& member : properties) known.push_back(member.key);
    const auto meant = didYouMean(key, known);
    throw UsageError("There is no argument \"" + key + "\"; this tool takes " +
                     CompositionLint::listed(known) + "." + (meant ? " " + *meant : ""));
}

}   // namespace

ToolArguments::ToolArguments(const Json& schema, Json given) : given_(std::move(given)) {
    static const JsonObject none;
    const Json* rows = schema.find("properties");
    const JsonObject& properties = rows && rows->object() ? *rows->object() : none;
    if (!given_.object()) throw UsageError("The arguments of a tool are an object.");
    for (const JsonMember& member : *given_.object()) {
        requireKnown(member.key, properties);
        const Json* type = properties.find(member.key)->find("type");
        if (type && type->text() && !isOfType(member.value, *type->text()))
            throw UsageError("\"" + member.key + "\" takes a value of type " + *type->text() + ", not " +
                             std::string(member.value.kindName()) + ".");
    }
    if (const Json* required = schema.find("required"); required && required->array())
        for (const Json& key : *required->array())
            if (!given_.find(*key.text()))
                throw UsageError("The argument \"" + *key.text() + "\" is missing.");
}

std::string ToolArguments::text(std::string_view key) const { return optionalText(key).value_or(""); }

std::optional<std::string> ToolArguments::optionalText(std::string_view key) const {
    const Json* value = given_.find(key);
    return value ? value->stringValue() : std::nullopt;
}

std::optional<double> ToolArguments::number(std::string_view key) const {
    const Json* value = given_.find(key);
    return value ? value->doubleValue() : std::nullopt;
}

bool ToolArguments::flag(std::string_view key) const {
    const Json* value = given_.find(key);
    return value && value->boolean() && *value->boolean();
}

void ToolArguments::addTo(
    std::vector<std::string>& words, std::string_view key, std::string_view name) const {
    const Json* value = given_.find(key);
    if (!value || (value->boolean() && !*value->boolean())) return;
    words.emplace_back(name);
    if (value->boolean()) return;
    words.push_back(value->text() ? *value->text() : writeJson(*value));
}

}   // namespace tavix
