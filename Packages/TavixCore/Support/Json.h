// A JSON value: what documents are parsed into and encoded from, and the free-form JSON that they may carry.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace tavix {

class Json;
struct JsonMember;
using JsonArray = std::vector<Json>;

// The members of an object, sorted by key and each key once, so that equal objects compare equal however they
// were written down.
class JsonObject {
public:
    using Members = std::vector<JsonMember>;

    JsonObject();
    JsonObject(std::initializer_list<JsonMember> members);
    JsonObject(const JsonObject& other);
    JsonObject(JsonObject&& other) noexcept;
    JsonObject& operator=(const JsonObject& other);
    JsonObject& operator=(JsonObject&& other) noexcept;
    ~JsonObject();
    // Members in any order; of equal keys the last one wins.
    static JsonObject of(Members members);

    const Json* find(std::string_view key) const;   // nothing when there is no such key
    void set(std::string_view key, Json value);
    void remove(std::string_view key);
    void merge(JsonObject other);   // its members replace ours of the same key

    bool empty() const;
    std::size_t size() const;
    Members::const_iterator begin() const;
    Members::const_iterator end() const;
    bool operator==(const JsonObject& other) const;

private:
    Members members_;
};

// A number is held as a 64-bit integer where it is one, and as a 64-bit float otherwise; a float that is a
// whole number of at most 2^53 is held as that integer, so a number has one form only.
class Json {
public:
    Json();   // null
    Json(std::nullptr_t) {}
    Json(bool value) : value_(value) {}
    Json(double value);
    template <std::integral I> Json(I value) : value_(static_cast<std::int64_t>(value)) {}
    Json(std::string value) : value_(std::move(value)) {}
    Json(std::string_view value) : value_(std::string(value)) {}
    Json(const char* value) : value_(std::string(value)) {}
    Json(JsonArray value) : value_(std::move(value)) {}
    Json(JsonObject value) : value_(std::move(value)) {}

    Json(const Json& other);
    Json(Json&& other) noexcept;
    Json& operator=(const Json& other);
    Json& operator=(Json&& other) noexcept;
    ~Json();

    bool isNull() const { return value_.index() == 0; }
    bool isNumber() const { return value_.index() == 2 || value_.index() == 3; }
    const bool* boolean() const { return std::get_if<bool>(&value_); }
    const std::string* text() const { return std::get_if<std::string>(&value_); }
    const JsonArray* array() const { return std::get_if<JsonArray>(&value_); }
    const JsonObject* object() const { return std::get_if<JsonObject>(&value_); }
    JsonArray* array() { return std::get_if<JsonArray>(&value_); }
    JsonObject* object() { return std::get_if<JsonObject>(&value_); }
    std::optional<double> doubleValue() const;          // of a number
    std::optional<std::int64_t> integerValue() const;   // of a number that is a whole one and fits
    std::optional<std::string> stringValue() const;     // of a text

    const Json* find(std::string_view key) const;   // nothing when this is no object or has no such key
    std::string_view kindName() const;              // as in "a number", for messages

    bool operator==(const Json& other) const;

private:
    std::variant<std::nullptr_t, bool, std::int64_t, double, std::string, JsonArray, JsonObject> value_;
};

struct JsonMember {
    std::string key;
    Json value;
    bool operator==(const JsonMember&) const = default;
};

// A member holds a `Json`, which holds an object: only here are all of them known.
inline bool JsonObject::empty() const { return members_.empty(); }
inline std::size_t JsonObject::size() const { return members_.size(); }
inline JsonObject::Members::const_iterator JsonObject::begin() const { return members_.begin(); }
inline JsonObject::Members::const_iterator JsonObject::end() const { return members_.end(); }

using JSONValue = Json;

}   // namespace tavix
