#include "TavixCore/Support/Json.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavix {

namespace {

// Every whole number up to here is a float of its own, so that nothing is lost by holding it as an integer.
constexpr double largestExactWhole = 0x1p53;

bool isBefore(const JsonMember& a, const JsonMember& b) { return a.key < b.key; }

}   // namespace

JsonObject::JsonObject() = default;
JsonObject::JsonObject(const JsonObject& other) = default;
JsonObject::JsonObject(JsonObject&& other) noexcept = default;
JsonObject& JsonObject::operator=(const JsonObject& other) = default;
JsonObject& JsonObject::operator=(JsonObject&& other) noexcept = default;
JsonObject::~JsonObject() = default;

JsonObject::JsonObject(std::initializer_list<JsonMember> members) : JsonObject(of(members)) {}

JsonObject JsonObject::of(Members members) {
    // A document of our own writer is sorted already.
    if (!std::is_sorted(members.begin(), members.end(), isBefore))
        std::stable_sort(members.begin(), members.end(), isBefore);
    const auto sameKey = [](const JsonMember& a, const JsonMember& b) { return a.key == b.key; };
    // `unique` keeps the first of a run; seen from the back that is the last one written.
    const auto kept = std::unique(members.rbegin(), members.rend(), sameKey);
    members.erase(members.begin(), kept.base());
    JsonObject object;
    object.members_ = std::move(members);
    return object;
}

const Json* JsonObject::find(std::string_view key) const {
    const auto at = std::lower_bound(members_.begin(), members_.end(), key,
        [](const JsonMember& member, std::string_view wanted) { return member.key < wanted; });
    return at != members_.end() && at->key == key ? &at->value : nullptr;
}

void JsonObject::set(std::string_view key, Json value) {
    const auto at = std::lower_bound(members_.begin(), members_.end(), key,
        [](const JsonMember& member, std::string_view wanted) { return member.key < wanted; });
    if (at != members_.end() && at->key == key)
        at->value = std::move(value);
    else
        members_.insert(at, {std::string(key), std::move(value)});
}

void JsonObject::remove(std::string_view key) {
    std::erase_if(members_, [key](const JsonMember& member) { return member.key == key; });
}

void JsonObject::merge(JsonObject other) {
    for (JsonMember& member : other.members_) set(member.key, std::move(member.value));
}

bool JsonObject::operator==(const JsonObject& other) const { return members_ == other.members_; }

Json::Json() = default;
Json::Json(const Json& other) = default;
Json::Json(Json&& other) noexcept = default;
Json& Json::operator=(const Json& other) = default;
Json& Json::operator=(Json&& other) noexcept = default;
Json::~Json() = default;

bool Json::operator==(const Json& other) const { return value_ == other.value_; }

Json::Json(double value) : value_(value) {
    const bool isNegativeZero = value == 0 && std::signbit(value);
    if (std::abs(value) <= largestExactWhole && value == std::trunc(value) && !isNegativeZero)
        value_ = static_cast<std::int64_t>(value);
}

std::optional<double> Json::doubleValue() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_)) return static_cast<double>(*whole);
    if (const auto* real = std::get_if<double>(&value_)) return *real;
    return std::nullopt;
}

std::optional<std::int64_t> Json::integerValue() const {
    if (const auto* whole = std::get_if<std::int64_t>(&value_)) return *whole;
    const auto* real = std::get_if<double>(&value_);
    if (!real || *real != std::trunc(*real) || !(*real >= -0x1p63 && *real < 0x1p63)) return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

std::optional<std::string> Json::stringValue() const {
    const std::string* held = text();
    return held ? std::optional(*held) : std::nullopt;
}

const Json* Json::find(std::string_view key) const {
    const JsonObject* held = object();
    return held ? held->find(key) : nullptr;
}

std::string_view Json::kindName() const {
    static constexpr std::array<std::string_view, 7> names = {
        "null", "a boolean", "a number", "a number", "text", "a list", "an object"};
    return names[value_.index()];
}

}   // namespace tavix
