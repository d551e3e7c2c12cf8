// What a device shows on its screen.
#pragma once

#include "TavixCore/Animation/MarkRef.h"

#include <optional>
#include <string>
#include <variant>

namespace tavix {

struct VideoClip {
    std::string path;
    double trimStartSec = 0;
    std::optional<double> trimEndSec;
    std::optional<MarkRef> trimStartMark;
    bool operator==(const VideoClip&) const = default;
};

struct StillScreen {
    std::string path;
    bool operator==(const StillScreen&) const = default;
};

using ScreenSource = std::variant<StillScreen, VideoClip>;

const Fields<VideoClip>& fieldsOf(std::type_identity<VideoClip>);
const Fields<StillScreen>& fieldsOf(std::type_identity<StillScreen>);
const Alternatives<ScreenSource>& alternativesOf(std::type_identity<ScreenSource>);

}   // namespace tavix
