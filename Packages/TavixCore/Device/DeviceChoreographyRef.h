// A formation of devices by name. Reading a composition replaces its layer by the layers of the formation.
#pragma once

#include "TavixCore/Device/DeviceMotionRef.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace tavix {

enum class DeviceChoreographyPreset {
    fanDeck,
    uiBurst,
    orbitCarousel,
    colorwayDomino,
    ecosystemHandoff,
    infiniteTunnel,
    screenCascade,
    splitFocus,
    depthWave,
};

struct DeviceChoreographyTraits {
    double naturalDurationSec;
    int naturalCount;
    bool uses3DDevices;
    std::string_view label;   // of menus
};
const DeviceChoreographyTraits& traitsOf(DeviceChoreographyPreset preset);

struct DeviceChoreographyParams {
    std::optional<double> durationSec;   // absent: the preset's natural one
    double intensity = 1;
    DeviceMotionParams::Direction direction = DeviceMotionParams::Direction::forward;
    std::optional<std::int64_t> count;   // of devices; absent: the preset's natural one
    double spread = 1;
    double staggerSec = 0.14;
    bool operator==(const DeviceChoreographyParams&) const = default;
};

struct DeviceChoreographyRef {
    DeviceChoreographyPreset preset = DeviceChoreographyPreset::fanDeck;
    DeviceChoreographyParams params;
    bool operator==(const DeviceChoreographyRef&) const = default;
};

const Names<DeviceChoreographyPreset>& namesOf(std::type_identity<DeviceChoreographyPreset>);
const Fields<DeviceChoreographyParams>& fieldsOf(std::type_identity<DeviceChoreographyParams>);
const Fields<DeviceChoreographyRef>& fieldsOf(std::type_identity<DeviceChoreographyRef>);

}   // namespace tavix
