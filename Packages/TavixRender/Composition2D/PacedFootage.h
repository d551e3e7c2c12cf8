// A recording that is played at another pace than its own, mixed: frames of the reel no longer fall on
// pictures of the recording, so each shows what passes in its time, as a shutter would, or what lies between
// two pictures.
#pragma once

#include "TavixPlatform/Media/VideoSource.h"

#include <cstddef>
#include <deque>
#include <memory>
#include <optional>

namespace tavix {

// Used by one thread at a time. Times are the recording's own, in seconds; those that rise are answered
// without a seek. Nothing is answered where nothing can be read. Throws media::MediaFault where the machine
// is to blame.
class PacedFootage {
public:
    // More pictures than these are never mixed: the shutter closes before the frame's time is over.
    static constexpr std::size_t mostMixed = 8;

    explicit PacedFootage(std::unique_ptr<media::VideoSource> source);

    // All pictures that are on screen in that time, each by its share of it.
    std::optional<imaging::Image> passing(double fromSec, double toSec);
    // The picture of that time, which gives way to the next one until that is due. One that stands long does
    // so only at its end.
    std::optional<imaging::Image> between(double atSec);

private:
    bool cover(double fromSec, double toSec);
    bool open(double fromSec);
    void dropBefore(double fromSec);

    std::unique_ptr<media::VideoSource> source_;
    std::unique_ptr<media::VideoFrames> frames_;
    std::deque<media::VideoFrame> pictures_;   // from the one at the last request on
    double lastFromSec_ = 0;
    bool hasEnded_ = false, hasFailed_ = false;
};

}   // namespace tavix
