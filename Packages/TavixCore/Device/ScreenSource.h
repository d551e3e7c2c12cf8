// What a device shows on its screen.
#pragma once

#include "TavixCore/Animation/MarkRef.h"

#include <optional>
#include <string>
#include <string_view>
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

// A reel as its camera sees its recording: with its cuts, paces and transitions, without its cards and
// captions.
struct ReelClip {
    static constexpr std::string_view recordingName = "raw.mov";   // in the folder

    std::string path;   // of the folder
    // Of its recording; empty without a folder.
    std::string recordingPath() const {
        return path.empty() ? path : path + "/" + std::string(recordingName);
    }
    bool operator==(const ReelClip&) const = default;
};

using ScreenSource = std::variant<StillScreen, VideoClip, ReelClip>;

const Fields<VideoClip>& fieldsOf(std::type_identity<VideoClip>);
const Fields<StillScreen>& fieldsOf(std::type_identity<StillScreen>);
const Fields<ReelClip>& fieldsOf(std::type_identity<ReelClip>);
const Alternatives<ScreenSource>& alternativesOf(std::type_identity<ScreenSource>);

}   // namespace tavix
