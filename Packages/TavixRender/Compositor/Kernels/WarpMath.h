// What the transition kernels share.
#pragma once

#include <algorithm>

namespace tavix::WarpMath {

// 3t² - 2t³, held at 0 and 1 outside its range.
inline float smoothstep(float t) {
    const float held = std::clamp(t, 0.0f, 1.0f);
    return held * held * (3 - 2 * held);
}

}   // namespace tavix::WarpMath
