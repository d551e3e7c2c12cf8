// A device animation by name. Reading a composition replaces it by concrete tracks.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace tavix {

// One of the known names; it cannot hold any other.
class DeviceMotionPreset {
public:
    DeviceMotionPreset() = default;
    static std::optional<DeviceMotionPreset> fromRawValue(std::string_view name);
    // Every name, in the order of the gallery.
    static std::span<const std::string_view> knownRawValues();

    const std::string& rawValue() const { return rawValue_; }
    bool operator==(const DeviceMotionPreset&) const = default;

private:
    explicit DeviceMotionPreset(std::string name) : rawValue_(std::move(name)) {}
    std::string rawValue_ = "reveal";
};

struct DeviceMotionParams {
    enum class Direction { forward, reversed };

    std::optional<double> durationSec;   // absent: the preset's natural one
    double intensity = 1;
    Direction direction = Direction::forward;
    double anchorX = 0;         // shifts the device sideways, in fractions of the canvas height
    double faceInwardDeg = 0;   // turns an anchored device towards the middle
    double startAtSec = 0;
    bool operator==(const DeviceMotionParams&) const = default;
};

// +1 forward, -1 reversed.
double signOf(DeviceMotionParams::Direction direction);

struct DeviceMotionRef {
    DeviceMotionPreset preset;
    DeviceMotionParams params;
    bool operator==(const DeviceMotionRef&) const = default;
};

const Names<DeviceMotionParams::Direction>& namesOf(std::type_identity<DeviceMotionParams::Direction>);
const Fields<DeviceMotionParams>& fieldsOf(std::type_identity<DeviceMotionParams>);
const Fields<DeviceMotionRef>& fieldsOf(std::type_identity<DeviceMotionRef>);

}   // namespace tavix
