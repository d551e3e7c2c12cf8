// The marker that ties the device clock to the video clock: at the moment of the go the recorded app paints
// the whole screen magenta for a few frames, and the first such frame of the video is that moment.
#pragma once

#include <cmath>

namespace tavix::SyncFlash {

// Encoded sRGB, 0 to 1.
inline constexpr double red = 1, green = 0, blue = 1;
inline constexpr int holdMs = 60;
// Per component: video coding shifts pure colours.
inline constexpr double detectTolerance = 0.18;

inline bool matches(double r, double g, double b) {
    return std::abs(r - red) <= detectTolerance && std::abs(g - green) <= detectTolerance &&
           std::abs(b - blue) <= detectTolerance;
}

}   // namespace tavix::SyncFlash
