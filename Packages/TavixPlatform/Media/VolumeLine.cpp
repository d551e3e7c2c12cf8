#include "TavixPlatform/Media/VolumeLine.h"

#include <algorithm>
#include <limits>

namespace tavix::media {
namespace {

// 60 dB up. No one means more; without an end, silence times a volume would not be silence.
constexpr double loudest = 1000;

double sensible(double volume) { return volume > 0 ? std::min(volume, loudest) : 0; }

}   // namespace

void VolumeLine::set(std::int64_t atFrame, double volume) {
    const auto after = std::upper_bound(steps_.begin(), steps_.end(), atFrame,
        [](std::int64_t at, const Step& step) { return at < step.at; });
    steps_.insert(after, {atFrame, sensible(volume)});
}

void VolumeLine::ramp(std::int64_t atFrame, std::int64_t frames, double from, double to) {
    if (frames > 0) ramps_.push_back({atFrame, atFrame + frames, sensible(from), sensible(to)});
    set(atFrame + frames, to);
}

double VolumeLine::Ramp::at(std::int64_t frame) const {
    return from + (to - from) * (double(frame - start) / double(end - start));
}

double VolumeLine::at(std::int64_t frame) const {
    double quietest = std::numeric_limits<double>::infinity();
    for (const Ramp& ramp : ramps_)
        if (ramp.start <= frame && frame < ramp.end) quietest = std::min(quietest, ramp.at(frame));
    if (quietest < std::numeric_limits<double>::infinity()) return quietest;
    const auto after = std::upper_bound(
        steps_.begin(), steps_.end(), frame, [](std::int64_t at, const Step& step) { return at < step.at; });
    return after == steps_.begin() ? 1 : std::prev(after)->volume;
}

bool VolumeLine::isInRamp(std::int64_t frame) const {
    return std::any_of(ramps_.begin(), ramps_.end(),
        [&](const Ramp& ramp) { return ramp.start <= frame && frame < ramp.end; });
}

// The next frame from which on another rule holds.
std::int64_t VolumeLine::nextChange(std::int64_t frame) const {
    std::int64_t next = std::numeric_limits<std::int64_t>::max();
    for (const Ramp& ramp : ramps_)
        for (const std::int64_t edge : {ramp.start, ramp.end})
            if (edge > frame) next = std::min(next, edge);
    const auto step = std::upper_bound(
        steps_.begin(), steps_.end(), frame, [](std::int64_t at, const Step& s) { return at < s.at; });
    return step == steps_.end() ? next : std::min(next, step->at);
}

void VolumeLine::fill(std::int64_t firstFrame, std::span<float> volumes) const {
    const std::int64_t end = firstFrame + std::ssize(volumes);
    auto to = volumes.begin();
    for (std::int64_t frame = firstFrame; frame < end;) {
        const std::int64_t until = std::min(end, nextChange(frame));
        if (isInRamp(frame))
            for (; frame < until; ++frame) *to++ = static_cast<float>(at(frame));
        else
            to = std::fill_n(to, until - frame, static_cast<float>(at(frame)));
        frame = until;
    }
}

}   // namespace tavix::media
