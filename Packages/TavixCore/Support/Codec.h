// How the plain types stand in JSON: booleans, numbers, text, lists, maps, optional values and free-form
// JSON. Records, enumerations and unions add theirs in Fields.h, Names.h and Alternatives.h.
#pragma once

#include "TavixCore/Support/DecodingError.h"
#include "TavixCore/Support/Json.h"
#include "TavixCore/Support/KeyPath.h"
#include "TavixCore/Support/SchemaBook.h"

#include <concepts>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// A codec has three functions: `read` fills a freshly made value, `write` gives its JSON, `schema` describes
// it.
template <class T> struct Codec;

// "scenes[0].durationSec" must be a number, but is text.
[[noreturn]] void failWithType(const KeyPath& at, std::string_view expected, const Json& found);
[[noreturn]] void failWithMissing(const KeyPath& at, const Json* found);
[[noreturn]] void failWithData(const KeyPath& at, const std::string& message);
// Unknown layer kind "x" — must be one of text, device.
[[noreturn]] void failWithWord(const KeyPath& at, std::string_view noun, std::string_view word,
    const std::vector<std::string_view>& known);

const JsonObject& objectAt(const Json& json, const KeyPath& at);
const std::string& textAt(const Json& json, const KeyPath& at);
double numberAt(const Json& json, const KeyPath& at);
std::int64_t integerAt(const Json& json, const KeyPath& at);

template <> struct Codec<bool> {
    static void read(const Json& json, bool& into, const KeyPath& at) {
        const bool* flag = json.boolean();
        if (!flag) failWithType(at, "true or false", json);
        into = *flag;
    }
    static Json write(bool from) { return from; }
    static Json schema(SchemaBook&) { return JsonObject{{"type", "boolean"}}; }
};

template <> struct Codec<double> {
    static void read(const Json& json, double& into, const KeyPath& at) { into = numberAt(json, at); }
    static Json write(double from) { return from; }
    static Json schema(SchemaBook&) { return JsonObject{{"type", "number"}}; }
};

template <> struct Codec<std::int64_t> {
    static void read(const Json& json, std::int64_t& into, const KeyPath& at) { into = integerAt(json, at); }
    static Json write(std::int64_t from) { return from; }
    static Json schema(SchemaBook&) { return JsonObject{{"type", "integer"}}; }
};

template <> struct Codec<std::string> {
    static void read(const Json& json, std::string& into, const KeyPath& at) { into = textAt(json, at); }
    static Json write(const std::string& from) { return from; }
    static Json schema(SchemaBook&) { return JsonObject{{"type", "string"}}; }
};

template <> struct Codec<Json> {
    static void read(const Json& json, Json& into, const KeyPath&) { into = json; }
    static Json write(const Json& from) { return from; }
    static Json schema(SchemaBook&) { return JsonObject{}; }
};

template <class T> struct Codec<std::vector<T>> {
    static void read(const Json& json, std::vector<T>& into, const KeyPath& at) {
        const JsonArray* elements = json.array();
        if (!elements) failWithType(at, "a list", json);
        into.clear();
        into.reserve(elements->size());
        for (std::size_t i = 0; i < elements->size(); ++i)
            Codec<T>::read((*elements)[i], into.emplace_back(), KeyPath(at, i));
    }
    static Json write(const std::vector<T>& from) {
        JsonArray elements;
        elements.reserve(from.size());
        for (const T& element : from) elements.push_back(Codec<T>::write(element));
        return elements;
    }
    static Json schema(SchemaBook& book) {
        return JsonObject{{"items", Codec<T>::schema(book)}, {"type", "array"}};
    }
};

template <class T> struct Codec<std::map<std::string, T>> {
    static void read(const Json& json, std::map<std::string, T>& into, const KeyPath& at) {
        into.clear();
        for (const JsonMember& member : objectAt(json, at))
            Codec<T>::read(member.value, into[member.key], KeyPath(at, member.key));
    }
    static Json write(const std::map<std::string, T>& from) {
        JsonObject members;
        for (const auto& [key, value] : from) members.set(key, Codec<T>::write(value));
        return members;
    }
    static Json schema(SchemaBook& book) {
        return JsonObject{{"additionalProperties", Codec<T>::schema(book)}, {"type", "object"}};
    }
};

// Null and a missing key mean the same; the record's codec sees to the latter.
template <class T> struct Codec<std::optional<T>> {
    static void read(const Json& json, std::optional<T>& into, const KeyPath& at) {
        if (json.isNull())
            into.reset();
        else
            Codec<T>::read(json, into.emplace(), at);
    }
    static Json write(const std::optional<T>& from) { return from ? Codec<T>::write(*from) : Json(); }
    static Json schema(SchemaBook& book) { return Codec<T>::schema(book); }
};

}   // namespace tavix
