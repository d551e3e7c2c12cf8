// The clock of a page that is recorded: it stands still but for one frame at a time.
#pragma once

#include <cstdint>

namespace tavix::recorder {

// Whole tenths of a millisecond, so that nothing adds up over a long recording: what browsers tell pages of
// time is no finer, and where a time lies between two tenths each run tells another one of them.
class FrameTimes {
public:
    explicit FrameTimes(int fps) : fps_(fps) {}

    std::int64_t microsecondsAt(std::int64_t frame) const {
        return (frame * 20'000 + fps_) / (2 * fps_) * 100;
    }
    double millisecondsAt(std::int64_t frame) const { return double(microsecondsAt(frame)) / 1000; }
    // From the frame before it to this one.
    double millisecondsBefore(std::int64_t frame) const {
        return double(microsecondsAt(frame) - microsecondsAt(frame - 1)) / 1000;
    }
    double secAt(std::int64_t frame) const { return double(frame) / fps_; }
    std::int64_t framesIn(double sec) const { return static_cast<std::int64_t>(sec * fps_ + 0.5); }

private:
    int fps_;
};

}   // namespace tavix::recorder
