// The field table of a record: each key's meaning, default, limits and rule for being written, said once. The
// reader, the writer and the JSON Schema of the record all go by it.
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
// ignored. A key is always written, an optional value when it is set; the modifiers of `Field` say otherwise.
#pragma once

#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Containers.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/Tables.h"

#include <concepts>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

extern template class std::vector<tavix::Field>;

namespace tavix {

namespace detail {

template <class R> RecordType::Making makingOf() {
    return {sizeof(R), alignof(R), [](void* place) { new (place) R{}; },
        [](void* record) { static_cast<R*>(record)->~R(); },
        [](RecordType::AnyFunction change, void* record) {
            reinterpret_cast<void (*)(R&)>(change)(*static_cast<R*>(record));
        }};
}

template <class T> struct MemberPointer;
template <class R, class V> struct MemberPointer<V R::*> { using Owner = R; };
template <class T> constexpr bool isOptional = false;
template <class T> constexpr bool isOptional<std::optional<T>> = true;

}   // namespace detail

template <class R> struct Fields {
    using Form = RecordType::Form;

    std::string_view name;
    std::vector<Field> rows;
    Form form = Form::object;
    std::string_view bareKey = {};
    void (*afterRead)(R&) = nullptr;   // what reading does once all keys are read
    RecordType type{detail::makingOf<R>(), name, rows, form, bareKey,
        reinterpret_cast<RecordType::AnyFunction>(afterRead)};
};

template <class T>
concept Record = requires {
    { fieldsOf(std::type_identity<T>{}) } -> std::same_as<const Fields<T>&>;
};

// One row. More than one member pointer reaches into a member: field<&A::b, &B::c> is `a.b.c`.
template <auto First, auto... Rest> Field field(std::string_view key, std::string_view meaning) {
    using R = typename detail::MemberPointer<decltype(First)>::Owner;
    using V = std::remove_cvref_t<decltype(((std::declval<R&>().*First).*....*Rest))>;
    Field row{key, meaning, &TypeOf<V>::get,
        [](void* record) -> void* { return &((static_cast<R*>(record)->*First).*....*Rest); }};
    if constexpr (detail::isOptional<V>) row.written = Field::Written::unlessDefault;
    return row;
}

// A member whose keys stand flat in this object, beside the record's own.
template <auto Member> Field flatField() { return field<Member>({}, {}); }

// A key of older documents: read into the record by a function of its own, never written.
template <class R, class V, void (*Apply)(R&, V)>
Field olderField(std::string_view key, std::string_view meaning) {
    return Field{key, meaning, &TypeOf<V>::get}.readOnly().readBy(
        [](const Json& json, void* record, const KeyPath& at) {
            V value{};
            readValue(typeOf<V>(), json, &value, at);
            Apply(*static_cast<R*>(record), std::move(value));
        });
}

// The record with every number that its table clamps moved into its range, as reading would.
template <Record R> R clampedByTable(R record) {
    clampByTable(fieldsOf(std::type_identity<R>{}).type, &record);
    return record;
}

}   // namespace tavix
