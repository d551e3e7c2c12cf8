#include "TavixPlatform/Media/PeakLimiter.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix::media {
namespace {

constexpr double attackSec = 0.005;   // short enough that the ear takes it for the beginning of the peak
constexpr double releaseSec = 0.25;   // from silence to unity; slower than the lowest tones, so it adds none

}   // namespace

PeakLimiter::PeakLimiter(const AudioFormat& format)
    : channels_(static_cast<std::size_t>(format.channels)),
      attackFrames_(std::max(static_cast<int>(attackSec * format.sampleRate), 1)),
      releaseStep_(std::max<Gain>(unity / std::llround(releaseSec * format.sampleRate), 1)) {
    reset();
}

void PeakLimiter::reset() {
    needs_.clear();
    window_.assign(static_cast<std::size_t>(attackFrames_), unity);
    delayed_.assign(static_cast<std::size_t>(attackFrames_) * channels_, 0.0F);
    frame_ = 0;
    held_ = unity;
    sum_ = unity * attackFrames_;
}

PeakLimiter::Gain PeakLimiter::neededFor(const float* frame) const {
    float peak = 0;
    for (std::size_t i = 0; i < channels_; ++i) peak = std::max(peak, std::abs(frame[i]));
    // Rounded down, so that the product never passes full scale.
    return peak > 1 ? static_cast<Gain>(std::floor(double(unity) / double(peak))) : unity;
}

// The lowest gain that any of the frames not yet given out needs.
PeakLimiter::Gain PeakLimiter::lowestAhead(Gain needed) {
    while (!needs_.empty() && needs_.back().gain >= needed) needs_.pop_back();
    if (needed < unity) needs_.push_back({frame_, needed});
    if (!needs_.empty() && needs_.front().frame < frame_ - attackFrames_) needs_.pop_front();
    return needs_.empty() ? unity : needs_.front().gain;
}

// The mean over the attack's length of a gain that is low all through it is that low when the peak comes out.
void PeakLimiter::process(std::span<float> interleaved) {
    for (std::size_t at = 0; at < interleaved.size(); at += channels_) {
        float* frame = interleaved.data() + at;
        held_ = std::min(lowestAhead(neededFor(frame)), std::min(held_ + releaseStep_, unity));
        const auto place = static_cast<std::size_t>(frame_ % attackFrames_);
        sum_ += held_ - window_[place];
        window_[place] = held_;
        float* late = delayed_.data() + place * channels_;
        const bool isUnity = sum_ == unity * attackFrames_;
        const auto gain = static_cast<float>(double(sum_) / double(unity * attackFrames_));
        for (std::size_t i = 0; i < channels_; ++i) {
            const float out = isUnity ? late[i] : std::clamp(late[i] * gain, -1.0F, 1.0F);
            late[i] = std::exchange(frame[i], out);
        }
        ++frame_;
    }
}

}   // namespace tavix::media
