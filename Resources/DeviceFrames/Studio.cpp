#include "DeviceFrames/Studio.h"

#include <algorithm>
#include <iterator>

namespace tavix::deviceframes {

namespace {

// A soft box: a rectangle in the room that faces the phone.
struct SoftBox {
    Vector middle;      // in half heights of the phone
    Vector right, up;   // of length 1, square to each other
    float halfWidth, halfHeight;
    float light;
};

constexpr SoftBox boxes[] = {
    // The key light, high on the left and well in front.
    {{-2.6f, 2.2f, 2.6f}, {0.707f, 0, 0.707f}, {0.321f, 0.891f, -0.321f}, 1.5f, 1.0f, 2.5f},
    // Strips along both sides; they draw the bright lines down the rims.
    {{-3.2f, -0.2f, 0.9f}, {0, 0, 1}, {0, 1, 0}, 0.55f, 2.6f, 2.3f},
    {{3.2f, 0.5f, 0.7f}, {0, 0, 1}, {0, 1, 0}, 0.42f, 1.9f, 1.7f},
    // Overhead, and a white board below that throws a little back.
    {{0.3f, 3.4f, 0.8f}, {1, 0, 0}, {0, 0, 1}, 2.2f, 0.7f, 2.4f},
    {{-0.3f, -3.4f, 1.0f}, {1, 0, 0}, {0, 0, 1}, 2.6f, 0.8f, 1.0f},
    // A large sheet above the camera: what faces the camera shows its colour in this light.
    {{-0.7f, 1.0f, 5.0f}, {1, 0, 0}, {0, 1, 0}, 3.2f, 2.2f, 0.85f},
    // The far wall, dimly lit, seen at grazing angles only.
    {{0.8f, 0.5f, -4.0f}, {1, 0, 0}, {0, 1, 0}, 3.0f, 3.4f, 0.55f},
};

// How much of a window from -half to half is seen at `at`, where sight is blurred by `blur`.
float seen(float at, float half, float blur) {
    const float window =
        smoothStep(-half - blur, -half + blur, at) - smoothStep(half - blur, half + blur, at);
    return std::max(window, 0.0f);
}

float boxLight(const SoftBox& box, const StudioView& view, float roughness) {
    const Vector normal{box.right.y * box.up.z - box.right.z * box.up.y,
        box.right.z * box.up.x - box.right.x * box.up.z, box.right.x * box.up.y - box.right.y * box.up.x};
    const Vector toBox = box.middle - view.place;
    const float plane = dot(toBox, normal), facing = dot(view.direction, normal);
    const float farness = plane * facing > 0 ? plane / facing : 0;
    const float awayness = std::sqrt(dot(toBox, toBox));
    // A ray that passes the plane far off, or never, has no share of the box.
    if (farness <= 0 || farness > 6 * awayness) return 0;
    const Vector hit = view.direction * farness - toBox;
    const float blur = 0.06f + roughness * farness * 1.1f;
    // What blurs the edges takes from the middle what it gives to them.
    const float spread = std::min(box.halfWidth / blur, 1.0f) * std::min(box.halfHeight / blur, 1.0f);
    return box.light * spread * seen(dot(hit, box.right), box.halfWidth, blur) *
           seen(dot(hit, box.up), box.halfHeight, blur);
}

}   // namespace

float lightFrom(const StudioView& view, float roughness) {
    // The stage itself: dark at the floor, a little lighter above.
    float light = 0.10f + 0.09f * (view.direction.y * 0.5f + 0.5f);
    for (const SoftBox& box : boxes) light += boxLight(box, view, roughness);
    return light;
}

}   // namespace tavix::deviceframes
