// A layer that plays a clip.
#pragma once

#include "TavixCore/Device/ScreenSource.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/NormalizedRect.h"

#include <optional>
#include <type_traits>

namespace tavix {

enum class VideoFit { cover, contain };

struct VideoContent {
    VideoClip clip;   // never with a mark
    VideoFit fit = VideoFit::cover;
    std::optional<NormalizedRect> rect;   // where it stands on the canvas; absent: all of it
    double cornerRadiusFraction = 0;
    std::optional<NormalizedRect> sourceRect;   // the part of the clip that is shown
    bool holdLastFrame = true;                  // after the clip's end; otherwise the layer is empty
    bool operator==(const VideoContent&) const = default;
};

const Names<VideoFit>& namesOf(std::type_identity<VideoFit>);
const Fields<VideoContent>& fieldsOf(std::type_identity<VideoContent>);

}   // namespace tavix
