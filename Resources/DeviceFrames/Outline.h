// Where a phone's parts lie in its picture, told by the distance from the opening of its screen.
#pragma once

#include "DeviceFrames/Corner.h"
#include "DeviceFrames/Phones.h"

namespace tavix::deviceframes {

// Pixels from the top left; half open.
struct Box {
    float left, top, right, bottom;
    float width() const { return right - left; }
    float height() const { return bottom - top; }
};

class Outline {
public:
    explicit Outline(const Phone& phone);

    const Box& opening() const { return opening_; }
    const Box& body() const { return body_; }   // to the outer edge of the rim
    float cornerReachPx() const { return static_cast<float>(corner_.reachPx()); }   // of the opening
    // Of a pixel's centre.
    Offset offsetAt(float x, float y) const;

private:
    Box opening_, body_;
    Corner corner_;
};

// Signed distance from a box with round corners, negative inside.
float roundBoxDistance(const Box& box, float radiusPx, float x, float y);

}   // namespace tavix::deviceframes
