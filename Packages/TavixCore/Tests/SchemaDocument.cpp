#include "TavixCore/Tests/SchemaDocument.h"

#include "TavixCore/Support/JsonWriter.h"

#include <array>
#include <cmath>
#include <regex>
#include <string_view>

namespace tavix {

namespace {

const JsonArray& listIn(const Json& schema, std::string_view key) {
    static const JsonArray none;
    const Json* found = schema.find(key);
    return found ? *found->array() : none;
}

const JsonObject& membersIn(const Json& schema, std::string_view key) {
    static const JsonObject none;
    const Json* found = schema.find(key);
    return found ? *found->object() : none;
}

bool contains(const JsonArray& list, const Json& value) {
    for (const Json& element : list)
        if (element == value) return true;
    return false;
}

std::string_view typeOf(const Json& value) {
    if (value.isNull()) return "null";
    if (value.boolean()) return "boolean";
    if (value.isNumber()) return value.integerValue() ? "integer" : "number";
    if (value.text()) return "string";
    return value.array() ? "array" : "object";
}

}   // namespace

const Json& SchemaDocument::resolved(const Json& schema) const {
    const Json* reference = schema.find("$ref");
    if (!reference) return schema;
    return *schema_.find("$defs")->find(reference->text()->substr(std::string_view("#/$defs/").size()));
}

std::string SchemaDocument::departure(const Json& value, const Json& given, const std::string& at) const {
    const Json& schema = resolved(given);
    const auto wrong = [&](const std::string& why) {
        return at + " " + why + ": " + writeJson(value).substr(0, 200);
    };
    if (const Json* type = schema.find("type"))
        if (const std::string_view actual = typeOf(value);
            actual != *type->text() && !(actual == "integer" && *type->text() == "number"))
            return wrong("is no " + *type->text());
    if (const Json* constant = schema.find("const"); constant && *constant != value)
        return wrong("is another tag");
    if (schema.find("enum") && !contains(listIn(schema, "enum"), value)) return wrong("is no known word");
    if (const Json* pattern = schema.find("pattern");
        pattern && !std::regex_match(*value.text(), std::regex(*pattern->text())))
        return wrong("is not spelled like " + *pattern->text());
    if (const Json* least = given.find("minimum"); least && *value.doubleValue() < *least->doubleValue())
        return wrong("is too small");
    if (const Json* most = given.find("maximum"); most && *value.doubleValue() > *most->doubleValue())
        return wrong("is too large");
    if (const Json* any = schema.find("anyOf")) {
        std::string reasons;
        bool isAny = false;
        for (const Json& choice : *any->array()) {
            const std::string reason = departure(value, choice, at);
            isAny = isAny || reason.empty();
            reasons += "\n  " + reason;
        }
        if (!isAny) return wrong("is none of" + reasons);
    }
    for (const Json& part : listIn(schema, "allOf"))
        if (const std::string reason = departure(value, part, at); !reason.empty()) return reason;
    for (const Json& key : listIn(schema, "required"))
        if (!value.find(*key.text())) return wrong("lacks " + *key.text());
    for (const JsonMember& property : membersIn(schema, "properties"))
        if (const Json* member = value.find(property.key))
            if (const std::string reason = departure(*member, property.value, at + "." + property.key);
                !reason.empty())
                return reason;
    if (const Json* each = schema.find("additionalProperties"))
        for (const JsonMember& member : *value.object())
            if (const std::string reason = departure(member.value, *each, at + "." + member.key);
                !reason.empty())
                return reason;
    const JsonArray& prefix = listIn(schema, "prefixItems");
    if (value.array() && value.array()->size() < prefix.size()) return wrong("is too short");
    for (std::size_t i = 0; i < prefix.size(); ++i)
        if (const std::string reason = departure((*value.array())[i], prefix[i], at + "[]"); !reason.empty())
            return reason;
    if (const Json* items = schema.find("items"))
        for (const Json& element : *value.array())
            if (const std::string reason = departure(element, *items, at + "[]"); !reason.empty())
                return reason;
    return {};
}

std::string SchemaDocument::departureOfDefaults() const {
    for (const JsonMember& definition : membersIn(schema_, "$defs"))
        for (const JsonMember& property : membersIn(definition.value, "properties"))
            if (const Json* byDefault = property.value.find("default"))
                if (const std::string reason = departure(*byDefault, property.value, definition.key);
                    !reason.empty())
                    return property.key + ": " + reason;
    return {};
}

struct SchemaDocument::Maker {
    const SchemaDocument& document;
    SeededRandom& dice;
    bool isWild;

    std::size_t below(std::size_t count) { return static_cast<std::size_t>(dice.next() % count); }
    bool isOneIn(std::size_t count) { return below(count) == 0; }

    Json value(const Json& given, int depth) {
        const Json& schema = document.resolved(given);
        if (const Json* constant = schema.find("const")) return *constant;
        if (const JsonArray& words = listIn(schema, "enum"); !words.empty())
            return words[below(words.size())];
        if (const JsonArray& choices = listIn(schema, "anyOf"); !choices.empty())
            return value(choices[below(choices.size())], depth);
        const Json* type = schema.find("type");
        if (!type) return anything(depth);
        if (*type == "boolean") return dice.nextBool();
        if (const Json* pattern = schema.find("pattern")) return spelled(*pattern->text());
        if (*type == "string") return text();
        if (*type == "integer") return integer(given);
        if (*type == "number") return number(given);
        return *type == "array" ? list(schema, depth) : object(schema, depth);
    }

    Json object(const Json& schema, int depth) {
        JsonObject made;
        for (const Json& part : listIn(schema, "allOf")) made.merge(*value(part, depth).object());
        for (const JsonMember& property : membersIn(schema, "properties")) {
            const bool isNeeded = contains(listIn(schema, "required"), property.key);
            if (isNeeded || dice.nextBool())
                made.set(property.key, value(property.value, depth + 1));
            else if (isWild && isOneIn(20))
                made.set(property.key, nullptr);
        }
        if (const Json* each = schema.find("additionalProperties"))
            for (std::size_t i = below(4); i > 0; --i) made.set(*text().text(), value(*each, depth + 1));
        else if (isWild && isOneIn(10))
            made.set("unknown key", anything(depth));
        return made;
    }

    Json list(const Json& schema, int depth) {
        JsonArray made;
        for (const Json& element : listIn(schema, "prefixItems")) made.push_back(value(element, depth + 1));
        if (const Json* items = schema.find("items"))
            for (std::size_t i = below(depth > 12 ? 1 : 4); i > 0; --i)
                made.push_back(value(*items, depth + 1));
        return made;
    }

    Json number(const Json& schema) {
        static constexpr std::array<double, 8> odd = {0, -0.0, 1, -1, 0.1, 1e-300, -1e300, 0x1p53 + 2};
        if (isWild && isOneIn(4)) return odd[below(odd.size())];
        const Json* least = schema.find("minimum");
        const Json* most = schema.find("maximum");
        const double low = least ? *least->doubleValue() : most ? *most->doubleValue() - 10 : -1000;
        const double high = most ? *most->doubleValue() : low + 2000;
        const double made = isOneIn(4) ? low : dice.next(low, high);
        return isOneIn(3) && std::trunc(made) >= low ? std::trunc(made) : made;
    }

    Json integer(const Json& schema) {
        const Json* least = schema.find("minimum");
        const Json* most = schema.find("maximum");
        if (!isWild && least && most) {
            const std::int64_t span = *most->integerValue() - *least->integerValue() + 1;
            return *least->integerValue() + static_cast<std::int64_t>(below(static_cast<std::size_t>(span)));
        }
        return isOneIn(3) ? static_cast<std::int64_t>(dice.next()) : static_cast<std::int64_t>(below(5)) - 1;
    }

    Json text() {
        static constexpr std::array<std::string_view, 9> words = {"", "a", "assets/clip.mov",
            "Grüße \"x\" \\ /", "日本語 👩‍👩‍👧", "\n\t", "whoosh", "reveal", "100%"};
        return std::string(words[below(words.size())]) + (dice.nextBool() ? std::to_string(below(100)) : "");
    }

    // There is one kind of text with a form of its own.
    Json spelled(const std::string& pattern) {
        const std::string fraction =
            std::to_string(below(60'000) + 1) + "/" + std::to_string(below(1001) + 1);
        return std::regex_match(fraction, std::regex(pattern)) ? Json(fraction) : text();
    }

    Json anything(int depth) {
        switch (below(depth > 6 ? 4 : 6)) {
        case 0: return nullptr;
        case 1: return dice.nextBool();
        case 2: return number(JsonObject{});
        case 3: return text();
        case 4: return JsonArray{anything(depth + 1), anything(depth + 1)};
        default: return JsonObject{{"k", anything(depth + 1)}};
        }
    }
};

Json SchemaDocument::random(SeededRandom& dice, Manner manner) const {
    return Maker{*this, dice, manner == Manner::wild}.value(schema_, 0);
}

}   // namespace tavix
