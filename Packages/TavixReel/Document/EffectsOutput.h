// The frame of a finished reel.
#pragma once

#include "TavixReel/Flow/OutputConfig.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <type_traits>

namespace tavix {

struct EffectsOutput {
    std::int64_t widthPx = 0, heightPx = 0;
    std::int64_t fps = 0;
    OutputConfig::Aspect aspect = OutputConfig::Aspect::vertical;   // absent: by the longer side

    bool isLandscape() const { return heightPx < widthPx; }
    bool operator==(const EffectsOutput&) const = default;
};

// How a reel frames its recording: as large as it is, or in one of the usual frames.
enum class ReelFormat { deviceNative, vertical, horizontal };

EffectsOutput outputOf(
    ReelFormat format, std::int64_t sourceWidthPx, std::int64_t sourceHeightPx, std::int64_t fps);

// The format of that name; case and hyphens do not count, as in "device-native".
std::optional<ReelFormat> parseReelFormat(std::string_view text);

const Names<ReelFormat>& namesOf(std::type_identity<ReelFormat>);
const Fields<EffectsOutput>& fieldsOf(std::type_identity<EffectsOutput>);

}   // namespace tavix
