// Keeps a mix within full scale. Where nothing passes it for a while, samples go through unchanged.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"

#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace tavix::media {

// Looks a few milliseconds ahead: the gain of all channels is led down before a peak that passes full scale,
// so that the peak just reaches it, and slowly up again afterwards. What comes out is late by
// `latencyFrames`, and each frame depends only on the frames before it and on those it looks at, so it makes
// no difference in which portions they come.
class PeakLimiter {
public:
    explicit PeakLimiter(const AudioFormat& format);

    int latencyFrames() const { return attackFrames_; }
    void process(std::span<float> interleaved);   // whole frames, in place
    void reset();

private:
    // Gains are whole numbers, so that their running sum is exact and comes back to exactly 1.
    using Gain = std::int64_t;
    static constexpr Gain unity = Gain{1} << 30;

    Gain neededFor(const float* frame) const;
    Gain lowestAhead(Gain needed);

    std::size_t channels_;
    int attackFrames_;
    Gain releaseStep_;

    struct Need {
        std::int64_t frame;
        Gain gain;
    };
    std::deque<Need> needs_;       // of the frames ahead, each lower than those before it
    std::vector<Gain> window_;     // the last gains, of which the mean is taken
    std::vector<float> delayed_;   // the last frames
    std::int64_t frame_ = 0;
    Gain held_ = unity, sum_ = 0;
};

}   // namespace tavix::media
