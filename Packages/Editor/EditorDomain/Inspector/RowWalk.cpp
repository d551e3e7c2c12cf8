#include "Editor/EditorDomain/Inspector/RowWalk.h"

#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Device/DeviceCatalog.h"
#include "TavixCore/Document/SFXCatalog.h"
#include "TavixCore/Document/ShapeFill.h"
#include "TavixCore/Support/Choice.h"
#include "TavixCore/Support/Codec.h"
#include "TavixCore/Support/Field.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Theme/BackgroundFill.h"
#include "TavixCore/Typography/KineticSelector.h"
#include "TavixCore/Typography/KineticVocabulary.h"
#include "TavixCore/Values/NormalizedRect.h"
#include "TavixCore/Values/NormalizedVec2.h"
#include "TavixCore/Values/PixelPoint.h"
#include "TavixCore/Values/Vector3.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tavix {

namespace {

using Control = InspectorRow::Control;
using Values = std::vector<const void*>;

template <class T> bool is(const Type& type) { return &type == &typeOf<T>(); }

bool isFile(Role role) {
    return role == Role::picture || role == Role::clip || role == Role::recording ||
           role == Role::soundFile || role == Role::fontPath;
}

bool isBundleOfNumbers(const Type& type) {
    return is<PixelPoint>(type) || is<NormalizedVec2>(type) || is<NormalizedRect>(type) || is<Vector3>(type);
}

// The control of a value that is edited as a whole; nothing for one whose parts become rows.
std::optional<Control> controlOf(const Type& type, const Field& row) {
    switch (type.kind) {
    case Type::Kind::boolean: return Control::toggle;
    case Type::Kind::number:
    case Type::Kind::integer: return Control::number;
    case Type::Kind::text:
        if (isFile(row.role)) return Control::file;
        if (row.role == Role::font || row.role == Role::fontFile) return Control::font;
        return row.key == "text" ? Control::paragraph : Control::text;
    case Type::Kind::word: return Control::word;
    case Type::Kind::own: return Control::text;
    case Type::Kind::record:
        if (is<RGBAColor>(type)) return Control::color;
        if (is<LinearGradient>(type)) return Control::fill;
        return isBundleOfNumbers(type) ? std::optional(Control::numbers) : std::nullopt;
    case Type::Kind::choice:
        if (is<TimingCurve>(type)) return Control::curve;
        if (is<BackgroundFill>(type) || is<ShapeFill>(type)) return Control::fill;
        return is<KineticSelector>(type) ? std::optional(Control::kinetic) : std::nullopt;
    case Type::Kind::list:
        return static_cast<const ListType&>(type).element().kind == Type::Kind::integer
                   ? std::optional(Control::picks)
                   : std::nullopt;
    default: return std::nullopt;
    }
}

constexpr double travelShare = 5;   // an arrow key goes as far as this many points of travel

void measure(InspectorRow& row, const Field& field, const Type& type) {
    constexpr double endless = std::numeric_limits<double>::infinity();
    const bool isWhole = type.kind == Type::Kind::integer;
    row.unit = field.unit;
    row.step = isWhole ? 1 : stepOf(field.unit);
    row.range = {-endless, endless,
        isWhole ? 0
                : std::max(decimalsOfStep(row.step),
                      field.unit == Unit::pixels || field.unit == Unit::degrees ? 1 : 2)};
    if (field.bounds) {
        row.range.lower = field.bounds->least;
        row.range.upper = field.bounds->most;
    } else if (field.unit == Unit::fraction) {
        row.range.lower = 0;
        row.range.upper = 1;
    } else if (field.unit == Unit::seconds && !field.key.starts_with("firstBeat")) {
        row.range.lower = 0;
    }
    const bool goesByUnit = isWhole || field.unit == Unit::pixels || field.unit == Unit::degrees;
    if (!std::isfinite(row.range.upper - row.range.lower))
        row.range.pointStep = goesByUnit ? row.step : row.step / travelShare;
}

class Walker {
public:
    std::vector<InspectorRow> rows;

    void record(const RecordType& type, const Values& records, const JsonPointer& at, int depth) {
        for (const Field& field : type.rows) {
            if (!field.reach || field.written == Field::Written::never) continue;
            if (isInBeats(field.role) || isByMark(field.role)) continue;
            Values members;
            for (const void* one : records) members.push_back(field.in(one));
            const void* const rest = field.in(type.fresh);
            if (field.key.empty())
                flat(field, members, at, depth);
            else
                value(field, field.type(), members, rest, at / field.key, depth);
        }
    }

private:
    InspectorRow rowFor(const Field& field, const JsonPointer& at, int depth, Control control) const {
        InspectorRow row;
        row.path = at;
        row.control = control;
        row.label = labelOfKey(field.key);
        row.help = field.meaning;
        row.depth = depth;
        row.role = field.role;
        return row;
    }

    // The value in JSON, and whether all have the same.
    static void fillIn(InspectorRow& row, const Type& type, const Values& values, const void* rest) {
        row.value = writeValue(type, values[0]);
        row.isMixed =
            std::ranges::any_of(values, [&](const void* other) { return !areEqual(type, values[0], other); });
        row.rest = rest ? writeValue(type, rest) : Json();
        row.isAtRest = !row.isMixed && row.value == row.rest;
    }

    // A union whose keys stand in the object itself: all of one kind, or there is nothing in common.
    void flat(const Field& field, const Values& values, const JsonPointer& at, int depth) {
        const Type& type = field.type();
        if (type.kind == Type::Kind::record)
            return record(static_cast<const RecordType&>(type), values, at, depth);
        if (type.kind != Type::Kind::choice) return;
        const auto& choice = static_cast<const ChoiceType&>(type);
        alternative(choice, values, at, depth, field);
    }

    void alternative(const ChoiceType& choice, const Values& values, const JsonPointer& at, int depth,
        const Field& field) {
        const Alternative& held = choice.heldBy(values[0]);
        if (!std::ranges::all_of(values, [&](const void* one) { return &choice.heldBy(one) == &held; }))
            return;
        Values inner;
        for (const void* one : values) inner.push_back(held.held(const_cast<void*>(one)));
        const Type& type = held.type();
        const JsonPointer path = held.payloadKey.empty() ? at : at / held.payloadKey;
        if (type.kind == Type::Kind::record && !controlOf(type, field))
            return record(static_cast<const RecordType&>(type), inner, path, depth);
        Field named = field;
        named.key = held.payloadKey;
        if (named.meaning.empty()) named.meaning = "What it shows.";
        value(named, type, inner, nullptr, path, depth);
    }

    void value(const Field& field, const Type& type, const Values& values, const void* rest,
        const JsonPointer& at, int depth) {
        if (type.kind == Type::Kind::optional)
            return optional(field, static_cast<const OptionalType&>(type), values, at, depth);
        if (const auto control = controlOf(type, field)) {
            InspectorRow row = rowFor(field, at, depth, *control);
            describe(row, field, type);
            fillIn(row, type, values, rest);
            // What is written in any case was chosen by its author, whatever it is.
            if (field.written == Field::Written::always) row.isAtRest = true;
            rows.push_back(std::move(row));
            return;
        }
        parts(field, type, values, at, depth);
    }

    void optional(const Field& field, const OptionalType& type, const Values& values, const JsonPointer& at,
        int depth) {
        const Type& inner = type.value();
        Values held;
        for (const void* one : values)
            if (const void* const there = type.held(const_cast<void*>(one))) held.push_back(there);
        const bool isThereForAll = held.size() == values.size();
        if (const auto control = controlOf(inner, field)) {
            InspectorRow row = rowFor(field, at, depth, *control);
            describe(row, field, inner);
            if (!held.empty()) fillIn(row, inner, held, nullptr);
            row.isOptional = true;
            row.isMixed = row.isMixed || (!isThereForAll && !held.empty());
            if (!isThereForAll && held.empty()) row.value = Json();
            row.rest = Json();
            row.isAtRest = held.empty();
            rows.push_back(std::move(row));
            return;
        }
        if (inner.kind == Type::Kind::list || inner.kind == Type::Kind::map) return;
        InspectorRow row = rowFor(field, at, depth, Control::presence);
        row.isOptional = true;
        row.value = Json(!held.empty());
        row.isMixed = !isThereForAll && !held.empty();
        row.rest = Json(false);
        row.isAtRest = held.empty();
        rows.push_back(std::move(row));
        if (isThereForAll) parts(field, inner, held, at, depth + 1);
    }

    void parts(const Field& field, const Type& type, const Values& values, const JsonPointer& at, int depth) {
        switch (type.kind) {
        case Type::Kind::record: return record(static_cast<const RecordType&>(type), values, at, depth);
        case Type::Kind::choice: {
            const auto& choice = static_cast<const ChoiceType&>(type);
            InspectorRow row = rowFor(field, at, depth, Control::alternative);
            for (const std::string_view tag : choice.tags()) row.words.emplace_back(tag);
            row.value = Json(choice.heldBy(values[0]).tag);
            row.isMixed = std::ranges::any_of(
                values, [&](const void* one) { return &choice.heldBy(one) != &choice.heldBy(values[0]); });
            if (row.words.size() > 1) rows.push_back(row);
            if (!row.isMixed) alternative(choice, values, at, depth + (row.words.size() > 1 ? 1 : 0), field);
            return;
        }
        case Type::Kind::list: return list(field, static_cast<const ListType&>(type), values, at, depth);
        default: return;
        }
    }

    // Elements of a list are edited one by one; of several layers' lists it is told how long they are. Lists
    // of keyframes are the timeline's.
    void list(
        const Field& field, const ListType& type, const Values& values, const JsonPointer& at, int depth) {
        const std::size_t count = type.size(values[0]);
        const Type& element = type.element();
        const bool isUnion = element.kind == Type::Kind::choice;
        if (!isUnion && element.kind != Type::Kind::record) return;
        if (!isUnion && isKeyframe(static_cast<const RecordType&>(element))) return;
        if (values.size() > 1) {
            if (count == 0) return;
            InspectorRow row = rowFor(field, at, depth, Control::note);
            row.value = Json(count);
            row.isMixed =
                std::ranges::any_of(values, [&](const void* one) { return type.size(one) != count; });
            rows.push_back(std::move(row));
            return;
        }
        for (std::size_t i = 0; i < count; ++i) {
            const void* const one = type.at(const_cast<void*>(values[0]), i);
            InspectorRow row = rowFor(field, at / i, depth, Control::element);
            row.isAtRest = false;
            if (isUnion) {
                const auto& choice = static_cast<const ChoiceType&>(element);
                row.label = labelOfKey(choice.heldBy(one).tag);
                rows.push_back(std::move(row));
                alternative(choice, {one}, at / i, depth + 1, field);
            } else {
                row.label = singular(row.label) + " " + std::to_string(i + 1);
                rows.push_back(std::move(row));
                record(static_cast<const RecordType&>(element), {one}, at / i, depth + 1);
            }
        }
        InspectorRow adder = rowFor(field, at, depth, Control::adder);
        adder.label = singular(adder.label);
        rows.push_back(std::move(adder));
    }

    static bool isKeyframe(const RecordType& record) { return record.find("t") || record.find("tSec"); }
    // "Cues" are some "Cue".
    static std::string singular(std::string label) {
        if (label.ends_with('s') && !label.ends_with("is") && !label.ends_with("ss")) label.pop_back();
        return label;
    }

    static void describe(InspectorRow& row, const Field& field, const Type& type) {
        if (type.kind == Type::Kind::number || type.kind == Type::Kind::integer) measure(row, field, type);
        if (row.control == Control::numbers) {
            const auto& record = static_cast<const RecordType&>(type);
            for (const Field& part : record.rows) row.parts.emplace_back(part.key);
            const bool hasUnit = field.unit != Unit::none;
            measure(row, hasUnit ? field : record.rows[0], record.rows[0].type());
            row.range.lower = -std::numeric_limits<double>::infinity();
            row.range.upper = std::numeric_limits<double>::infinity();
            if (!row.range.pointStep) row.range.pointStep = row.step / travelShare;
        }
        if (type.kind == Type::Kind::word)
            for (const std::string_view name : static_cast<const WordType&>(type).names())
                row.words.emplace_back(name);
        if (field.role == Role::textAnimation) {
            row.control = Control::word;
            for (const std::string_view name : KineticVocabulary::presetIDs) row.words.emplace_back(name);
        }
        if (field.role == Role::device) {
            row.control = Control::word;
            for (const BundledDevice& device : DeviceCatalog::all()) {
                row.words.push_back(device.id);
                row.wordNames.push_back(device.displayName);
            }
        }
        if (field.role == Role::sound) {
            row.control = Control::sound;
            for (const std::string_view name :
                static_cast<const WordType&>(typeOf<SFXCatalog::Sound>()).names())
                row.words.emplace_back(name);
        }
        if (field.key == "alignment") {
            row.control = Control::word;
            row.words = {"left", "center", "right"};
        }
    }
};

}   // namespace

std::vector<InspectorRow> rowsOf(const Type& record, const std::vector<const void*>& records) {
    Walker walker;
    walker.record(static_cast<const RecordType&>(record), records, JsonPointer(), 0);
    return std::move(walker.rows);
}

}   // namespace tavix
