// How a flat picture of a device frame is used: which picture, and where its screen lies.
#pragma once

#include "TavixCore/Values/NormalizedRect.h"

#include <optional>
#include <string>

namespace tavix {

struct BundledDevice;

// The screen's opening in the frame picture of the default phone, as fractions of that picture.
constexpr NormalizedRect iPhone16ProScreen{0.072546, 0.035436, 0.857752, 0.929128};

struct DeviceMockup {
    std::optional<std::string> framePath;
    NormalizedRect screen = iPhone16ProScreen;
    double screenCornerRadiusFraction = 0.16;
    std::optional<std::string> bundledID;   // of the device catalog

    static const DeviceMockup iPhone16Pro;
    static DeviceMockup bundled(const BundledDevice& device);
    bool operator==(const DeviceMockup&) const = default;
};

inline const DeviceMockup DeviceMockup::iPhone16Pro{};

const Fields<DeviceMockup>& fieldsOf(std::type_identity<DeviceMockup>);

}   // namespace tavix
