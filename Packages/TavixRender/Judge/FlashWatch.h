// Flashes that can cause seizures, as WCAG 2 defines them (success criterion 2.3.1, "Three Flashes or Below
// Threshold"), found on the frames of a film.
//
// A general flash is a pair of opposing changes of relative luminance by 10 % of the maximum or more, where
// the darker state is below 0.80. A red flash is a pair of opposing changes involving a saturated red, where
// R / (R + G + B) is 0.8 or more, that change (R - G - B) x 320 by more than 20, negative values counting as
// 0; R, G and B are linear. More than three flashes within a second are too many where those that occur
// concurrently cover more than a quarter of any 341 x 256 pixels of a film shown at 1024 x 768, which is
// about 10 degrees of the eye.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstdint>
#include <vector>

namespace tavix {

struct FlashSpan {
    double fromSec = 0, toSec = 0;
    double areaFraction = 0;   // of the field of 10 degrees, where it is largest
};

// Takes the frames of a film in order, all of one size, at a steady rate.
class FlashWatch {
public:
    // As large as the film is watched at, no more: it is shown within 1024 x 768.
    FlashWatch(imaging::Size frame, double framesPerSec);

    void take(const imaging::ConstBitmapView& frame);

    // What was found so far.
    const std::vector<FlashSpan>& general() const { return general_.spans; }
    const std::vector<FlashSpan>& red() const { return red_.spans; }

private:
    static constexpr int changesOfFourFlashes = 8;

    // One pixel's rises and falls. A change counts once it has gone far enough from the last turning point.
    struct Pixel {
        float low = 0, high = 0;
        bool lowIsRed = false, highIsRed = false;
        std::int8_t direction = 0;                    // of the last change; 0 before the first
        std::uint8_t next = 0;                        // where the next change is noted
        std::int32_t changes[changesOfFourFlashes];   // frames, a ring
    };
    struct Kind {
        std::vector<Pixel> pixels;
        std::vector<FlashSpan> spans;
    };

    static void note(Pixel& pixel, std::int8_t direction, std::int32_t frame);
    void takeGeneral(Pixel& pixel, float luminance) const;
    void takeRed(Pixel& pixel, float redness, bool isSaturated) const;
    bool flashesNow(const Pixel& pixel) const;
    void judge(Kind& kind);

    imaging::Size size_;
    double framesPerSec_;
    double fieldWidth_, fieldHeight_;   // of 10 degrees, in pixels of the frame
    std::int32_t frame_ = 0;
    Kind general_, red_;
    std::vector<std::int32_t> sums_;   // of flashing pixels above and to the left
};

}   // namespace tavix
