// The sidecar of a scripted screen recording: what happened in it, and when and where. It lies next to the
// video as "<clip>.timeline.json". Pixels are the video's, origin at the top left; seconds are the video's.
#pragma once

#include "TavixCore/Support/Tables.h"
#include "TavixCore/Values/PixelRect.h"

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct Timeline {
    struct Video {
        std::int64_t widthPx = 0, heightPx = 0;
        double fps = 0;
        bool operator==(const Video&) const = default;
    };
    struct Event {
        std::int64_t index = 0;   // of the step
        std::string type;         // an interaction's word; one that we do not know is kept as it is
        double tSec = 0;          // when the step starts
        std::optional<PixelRect> regionPx;   // of the step's target
        std::optional<std::string> label;    // of the target; what marks are named by
        std::optional<double> actionSec;     // when the gesture itself lands
        std::optional<double> endSec;        // when the motion of a timed step ends
        bool operator==(const Event&) const = default;
    };

    Video video;
    std::vector<Event> events;
    bool operator==(const Timeline&) const = default;
};

const Fields<Timeline::Video>& fieldsOf(std::type_identity<Timeline::Video>);
const Fields<Timeline::Event>& fieldsOf(std::type_identity<Timeline::Event>);
const Fields<Timeline>& fieldsOf(std::type_identity<Timeline>);

}   // namespace tavix
