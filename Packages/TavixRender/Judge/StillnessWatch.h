// Stretches of a film in which it is black, or in which nothing moves.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <vector>

namespace tavix {

struct StillSpan {
    double fromSec = 0, toSec = 0;
    bool isBlack = false;
};

// Takes the frames of a film in order, all of one size, at a steady rate.
class StillnessWatch {
public:
    static constexpr double leastSec = 1;

    explicit StillnessWatch(double framesPerSec) : framesPerSec_(framesPerSec) {}

    void take(const imaging::ConstBitmapView& frame);
    // Those of a second or longer, once all frames are taken.
    std::vector<StillSpan> spans();

private:
    void begin(const imaging::ConstBitmapView& frame);
    void end();

    double framesPerSec_;
    std::int64_t frame_ = 0, first_ = 0;
    std::vector<std::uint8_t> reference_;   // the first frame of the stretch that runs
    bool isBlack_ = false;
    std::vector<StillSpan> spans_;
};

}   // namespace tavix
