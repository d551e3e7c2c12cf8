// What a recording's own pixels tell of its times.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <cstdint>
#include <optional>
#include <type_traits>
#include <vector>

namespace tavix {

// Seconds are the video's. A recording without flashes is no fault.
struct VideoProbe {
    std::int64_t widthPx = 0, heightPx = 0;
    double fps = 0;
    std::optional<double> syncSeconds, syncEndSeconds;   // of the flash at the go; its end is what follows it
    std::optional<double> endFlashStartSeconds, endFlashEndSeconds;
    std::vector<double> markBlipSeconds;   // when a mark appears in the corner, rising
    bool isDamaged = false;                // pictures of it are missing or broken, or it ends too early

    // Where the reel of this recording starts, so that nothing of the flash is in it; 0 without one.
    double trimStartSec() const;
    // Where it ends: before the flash at the end, or with the recording.
    double trimEndSec(double rawDurationSec) const;
    // Picture seconds between both flashes.
    std::optional<double> flashSpanSec() const;
    bool operator==(const VideoProbe&) const = default;
};

const Fields<VideoProbe>& fieldsOf(std::type_identity<VideoProbe>);

}   // namespace tavix
