// A target of the reel camera: from its time on the camera moves towards it.
#pragma once

#include "TavixCore/Animation/Easing.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/PixelPoint.h"

#include <type_traits>

namespace tavix {

struct CameraKeyframe {
    double tSec = 0;       // pre-cut clock
    double scale = 1;      // 1 shows the whole recording
    PixelPoint centerPx;   // of the recording, origin at the top left
    Easing easing = Easing::easeInOut;
    bool operator==(const CameraKeyframe&) const = default;
};

const Fields<CameraKeyframe>& fieldsOf(std::type_identity<CameraKeyframe>);

}   // namespace tavix
