#include "TavixCore/Device/DeviceMotionRef.h"

#include "TavixCore/Device/DeviceMotionRows.h"
#include "TavixCore/Support/FieldTables.h"

#include <vector>

namespace tavix {
namespace {

const std::vector<std::string_view>& motionNames() {
    static const std::vector<std::string_view> names = [] {
        std::vector<std::string_view> known;
        for (const DeviceMotionRow& row : deviceMotionRows()) known.push_back(row.name);
        return known;
    }();
    return names;
}

}   // namespace

// Stored as the word that it holds. The names are too many for a message.
const Type& typeOf(std::type_identity<DeviceMotionPreset>) {
    static const std::vector<Word> words = [] {
        std::vector<Word> known;
        for (const std::string_view name : motionNames())
            known.push_back({static_cast<std::int64_t>(known.size()), name});
        return known;
    }();
    static const WordType type{{Type::Kind::word}, "device motion preset", words, std::nullopt, false,
        [](const void* value) {
            return type.find(static_cast<const DeviceMotionPreset*>(value)->rawValue())->value;
        },
        [](void* value, std::int64_t word) {
            *static_cast<DeviceMotionPreset*>(value) =
                *DeviceMotionPreset::fromRawValue(words[static_cast<std::size_t>(word)].name);
        }};
    return type;
}

std::optional<DeviceMotionPreset> DeviceMotionPreset::fromRawValue(std::string_view name) {
    if (!deviceMotionRow(name)) return std::nullopt;
    return DeviceMotionPreset(std::string(name));
}

std::span<const std::string_view> DeviceMotionPreset::knownRawValues() { return motionNames(); }

double signOf(DeviceMotionParams::Direction direction) {
    return direction == DeviceMotionParams::Direction::forward ? 1 : -1;
}

const Names<DeviceMotionParams::Direction>& namesOf(std::type_identity<DeviceMotionParams::Direction>) {
    using enum DeviceMotionParams::Direction;
    static const Names<DeviceMotionParams::Direction> table{
        "direction", {{forward, "forward"}, {reversed, "reversed"}}};
    return table;
}

const Fields<DeviceMotionParams>& fieldsOf(std::type_identity<DeviceMotionParams>) {
    using P = DeviceMotionParams;
    static const Fields<P> table{"DeviceMotionParams",
        {field<&P::durationSec>("durationSec", "How long it takes; the motion's own length when absent.")
                .measuredIn(Unit::seconds)
                .clamped(0.6, 8),
            field<&P::intensity>("intensity", "How strong it is; 1 is usual.")
                .measuredIn(Unit::times)
                .clamped(0.3, 1.6),
            field<&P::direction>("direction", "Which way round."),
            field<&P::anchorX>("anchorX", "Shift to the right; to the left when negative.")
                .measuredIn(Unit::canvasHeights)
                .clamped(-0.75, 0.75)
                .unlessDefault(),
            field<&P::faceInwardDeg>("faceInwardDeg", "How far a shifted device turns towards the middle.")
                .measuredIn(Unit::degrees)
                .clamped(0, 45)
                .unlessDefault(),
            field<&P::startAtSec>("startAtSec", "How long it waits before it starts.")
                .measuredIn(Unit::seconds)
                .clamped(0, 20)
                .unlessDefault()}};
    return table;
}

const Fields<DeviceMotionRef>& fieldsOf(std::type_identity<DeviceMotionRef>) {
    using R = DeviceMotionRef;
    static const Fields<R> table{"DeviceMotionRef",
        {field<&R::preset>("preset", "Which motion, as `tavix presets motions` lists them.").required(),
            field<&R::params>("params", "How it is played.")}};
    return table;
}

}   // namespace tavix
