#include "TavixRender/Encoding/FrameClock.h"

#include <algorithm>

namespace tavix {

FrameClock FrameClock::of(const FrameRate& rate) {
    const FrameRate held = std::clamp<FrameRate>(rate, 1, usualTimescale);
    const std::int64_t perSec = held.numerator(), parts = held.denominator();
    if (usualTimescale * parts % perSec == 0)
        return {usualTimescale, static_cast<int>(usualTimescale * parts / perSec)};
    const std::int64_t times = std::max<std::int64_t>((usualTimescale + perSec - 1) / perSec, 1);
    return {static_cast<int>(perSec * times), static_cast<int>(parts * times)};
}

}   // namespace tavix
