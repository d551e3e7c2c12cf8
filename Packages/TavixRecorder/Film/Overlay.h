// What is drawn over the pictures of a page: the finger or the pointer that works it, and the marks that tie
// a recording to its sidecar. The page never knows.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <optional>

namespace tavix::recorder {

// Pixels from the top left.
struct TouchRing {
    double x = 0, y = 0;
    double sinceDownSec = 0;
    std::optional<double> sinceUpSec;   // nothing while the finger is down
    bool operator==(const TouchRing&) const = default;

    static constexpr double fadeSec = 0.3;   // nothing is left of it so long after the finger went up
};

struct Pointer {
    double x = 0, y = 0;   // of its tip
    bool isPressed = false;
    bool operator==(const Pointer&) const = default;
};

struct Overlay {
    std::optional<TouchRing> ring;
    std::optional<Pointer> pointer;
    bool isFlash = false;    // the whole picture is the colour of marks
    bool isMarked = false;   // the square in the corner is
    bool isEmpty() const { return *this == Overlay{}; }
    bool operator==(const Overlay&) const = default;
};

void draw(const Overlay& overlay, double pixelsPerPoint, imaging::BitmapView picture);

}   // namespace tavix::recorder
