// The field table of a record: each key's meaning, default, limits and rule for being written, said once. The
// decoder, the encoder and the JSON Schema of the record are all read from it.
//
//     const Fields<MusicBed>& fieldsOf(std::type_identity<MusicBed>) {
//         static const Fields<MusicBed> table{"MusicBed", {
//             field<&MusicBed::path>("path", "The audio file."),
//             field<&MusicBed::gain>("gain", "Loudness; 1 is as recorded.").atLeast(0),
//             field<&MusicBed::firstBeatSec>("firstBeatSec", "Where the grid starts.").unlessDefault()}};
//         return table;
//     }
//
// A missing key, and null, leave the record's own initialiser in place: that is the default. Unknown keys are
// ignored. A key is always written, an optional value when it is set; the modifiers below say otherwise.
#pragma once

#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Tables.h"

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace tavix {

struct Bounds {
    double least = -std::numeric_limits<double>::infinity();
    double most = std::numeric_limits<double>::infinity();

    double clamp(double value) const { return std::fmin(std::fmax(value, least), most); }
    bool operator==(const Bounds&) const = default;
};

template <class R> struct Field {
    enum class Written { always, unlessDefault, never };

    std::string_view key, meaning;   // without a key the member's own keys stand flat in this object
    void (*read)(const Json&, R&, const Field&, const KeyPath&) = nullptr;
    Json (*write)(const R&) = nullptr;
    bool (*isDefault)(const R&) = nullptr;
    Json (*schema)(SchemaBook&) = nullptr;
    std::optional<double> (*number)(const R&) = nullptr;   // of a numeric member that is set
    Written written = Written::always;
    bool (*condition)(const R&) = nullptr;
    std::optional<Bounds> bounds = {};
    bool clamps = false;
    bool isRequired = false;
    bool isTolerant = false;

    constexpr Field required() const {
        return with([](Field& f) { f.isRequired = true; });
    }
    constexpr Field unlessDefault() const {
        return with([](Field& f) { f.written = Written::unlessDefault; });
    }
    constexpr Field writtenIf(bool (*when)(const R&)) const {
        return with([&](Field& f) { f.condition = when; });
    }
    constexpr Field readOnly() const {
        return with([](Field& f) { f.written = Written::never; });
    }
    // A number outside is moved to the nearer end when it is read.
    constexpr Field clamped(double least, double most) const {
        return with([&](Field& f) { f.bounds = Bounds{least, most}, f.clamps = true; });
    }
    constexpr Field atLeast(double least) const { return clamped(least, Bounds{}.most); }
    // Where the value is meant to lie; reading does not touch it, lint and rendering do.
    constexpr Field legal(double least, double most) const {
        return with([&](Field& f) { f.bounds = Bounds{least, most}; });
    }
    // A value that cannot be read counts as missing.
    constexpr Field tolerant() const {
        return with([](Field& f) { f.isTolerant = true; });
    }

    bool isWrittenFor(const R& record) const {
        if (condition) return condition(record);
        return written == Written::always || (written == Written::unlessDefault && !isDefault(record));
    }

private:
    template <class Change> constexpr Field with(Change change) const {
        Field changed = *this;
        change(changed);
        return changed;
    }
};

template <class R> struct Fields {
    enum class Form { object, list };   // a list holds the values alone, in the order of the table

    std::string_view name;
    std::vector<Field<R>> rows;
    Form form = Form::object;
    std::string_view bareKey = {};     // a bare value stands for an object with this key alone
    void (*afterRead)(R&) = nullptr;   // what reading does once all keys are read
};

template <class T>
concept Record = requires {
    { fieldsOf(std::type_identity<T>{}) } -> std::same_as<const Fields<T>&>;
};

namespace detail {

template <class T> struct MemberPointer;
template <class R, class V> struct MemberPointer<V R::*> { using Owner = R; };
template <class T> constexpr bool isOptional = false;
template <class T> constexpr bool isOptional<std::optional<T>> = true;

// A record is filled key by key over its own defaults, which need not be those that its owner gives it; all
// else is overwritten whole, and large payloads are not made twice.
template <class T> constexpr bool isReadInPlace = !Record<T>;

template <class R> const R& freshRecord() {
    static const R fresh{};
    return fresh;
}

template <class T> constexpr bool isNumber = std::is_same_v<T, double> || std::is_same_v<T, std::int64_t>;
template <class T> constexpr bool isNumber<std::optional<T>> = isNumber<T>;

// The number that a member holds; nothing when it holds none, or is of another type.
template <class T> std::optional<double> numberIn(const T& value) {
    if constexpr (!isNumber<T>)
        return std::nullopt;
    else if constexpr (isOptional<T>)
        return value ? numberIn(*value) : std::nullopt;
    else
        return static_cast<double>(value);
}

template <class T> void clampNumber(T& value, const Bounds& bounds) {
    if constexpr (!isNumber<T>)
        return;
    else if constexpr (isOptional<T>) {
        if (value) clampNumber(*value, bounds);
    } else if (const auto number = static_cast<double>(value); bounds.clamp(number) != number)
        value = static_cast<T>(bounds.clamp(number));
}

}   // namespace detail

// One row. More than one member pointer reaches into a member: field<&A::b, &B::c> is `a.b.c`.
template <auto First, auto... Rest> constexpr auto field(std::string_view key, std::string_view meaning) {
    using R = typename detail::MemberPointer<decltype(First)>::Owner;
    using V = std::remove_cvref_t<decltype(((std::declval<R&>().*First).*....*Rest))>;
    Field<R> row{key, meaning,
        [](const Json& json, R& into, const Field<R>& self, const KeyPath& at) {
            V& member = ((into.*First).*....*Rest);
            if (detail::isReadInPlace<V> && !self.isTolerant) {
                Codec<V>::read(json, member, at);
            } else {
                V value{};
                Codec<V>::read(json, value, at);
                member = std::move(value);
            }
            if (self.clamps) detail::clampNumber(member, *self.bounds);
        },
        [](const R& from) { return Codec<V>::write(((from.*First).*....*Rest)); },
        [](const R& a) { return ((a.*First).*....*Rest) == ((detail::freshRecord<R>().*First).*....*Rest); },
        [](SchemaBook& book) { return Codec<V>::schema(book); },
        [](const R& from) { return detail::numberIn(((from.*First).*....*Rest)); }};
    if constexpr (detail::isOptional<V>) row.written = Field<R>::Written::unlessDefault;
    return row;
}

// A member whose keys stand flat in this object, beside the record's own.
template <auto Member> constexpr auto flatField() { return field<Member>({}, {}); }

// A key of older documents: read into the record by a function of its own, never written.
template <class R, class V, void (*Apply)(R&, V)>
constexpr Field<R> olderField(std::string_view key, std::string_view meaning) {
    return Field<R>{key, meaning,
        [](const Json& json, R& into, const Field<R>&, const KeyPath& at) {
            V value{};
            Codec<V>::read(json, value, at);
            Apply(into, std::move(value));
        },
        [](const R&) { return Json(); }, [](const R&) { return true; },
        [](SchemaBook& book) { return Codec<V>::schema(book); },
        [](const R&) { return std::optional<double>(); }}
        .readOnly();
}

}   // namespace tavix
