#include "TavixRender/Judge/StillnessWatch.h"

#include <algorithm>
#include <cstdlib>

namespace tavix {
namespace {

constexpr int mostChange = 2;      // levels of 255 that nobody sees
constexpr int blackestLevel = 8;   // up to here a screen is dark

template <class Test> bool everyByte(const imaging::ConstBitmapView& frame, Test test) {
    for (int y = 0; y < frame.size.height; ++y) {
        const std::uint8_t* row = frame.row(y);
        for (int x = 0; x < frame.size.width * 4; ++x)
            if (x % 4 != 3 &&
                !test(row[x], std::size_t(y) * std::size_t(frame.size.width) * 4 + std::size_t(x)))
                return false;
    }
    return true;
}

}   // namespace

void StillnessWatch::take(const imaging::ConstBitmapView& frame) {
    const auto isUnchanged = [&](std::uint8_t byte, std::size_t at) {
        return std::abs(int(byte) - int(reference_[at])) <= mostChange;
    };
    if (reference_.empty() || !everyByte(frame, isUnchanged)) begin(frame);
    ++frame_;
}

void StillnessWatch::begin(const imaging::ConstBitmapView& frame) {
    end();
    first_ = frame_;
    isBlack_ = everyByte(frame, [](std::uint8_t byte, std::size_t) { return byte <= blackestLevel; });
    reference_.clear();
    for (int y = 0; y < frame.size.height; ++y)
        reference_.insert(
            reference_.end(), frame.row(y), frame.row(y) + std::ptrdiff_t{frame.size.width} * 4);
}

void StillnessWatch::end() {
    const StillSpan span{double(first_) / framesPerSec_, double(frame_) / framesPerSec_, isBlack_};
    if (span.toSec - span.fromSec >= leastSec - 1e-9) spans_.push_back(span);
}

std::vector<StillSpan> StillnessWatch::spans() {
    end();
    first_ = frame_;
    return spans_;
}

}   // namespace tavix
