// How loud a track is over its time: a factor, 1 as recorded and at most 1000, set at moments or led from
// one to another.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace tavix::media {

// Times are in frames of the timeline. Without a word the volume is 1; what was set holds until the next
// word. In a ramp the volume follows a straight line; where two ramps overlap, the quieter one holds, so that
// a fade out takes over from a fade in without a jump.
class VolumeLine {
public:
    void set(std::int64_t atFrame, double volume);
    void ramp(std::int64_t atFrame, std::int64_t frames, double from, double to);

    double at(std::int64_t frame) const;
    // The volumes of frames in a row. Each is a function of its frame alone.
    void fill(std::int64_t firstFrame, std::span<float> volumes) const;

private:
    struct Step {
        std::int64_t at;
        double volume;
    };
    struct Ramp {
        std::int64_t start, end;
        double from, to;
        double at(std::int64_t frame) const;
    };
    bool isInRamp(std::int64_t frame) const;
    std::int64_t nextChange(std::int64_t frame) const;

    std::vector<Step> steps_;   // by time; of equal ones the last counts
    std::vector<Ramp> ramps_;
};

}   // namespace tavix::media
