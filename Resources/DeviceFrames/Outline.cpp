#include "DeviceFrames/Outline.h"

#include <algorithm>
#include <cmath>

namespace tavix::deviceframes {

namespace {

Box openingOf(const Phone& phone) {
    const NormalizedRect& screen = phone.device->screen;
    const auto px = [](double fraction, int size) { return static_cast<float>(std::round(fraction * size)); };
    const int width = phone.device->pictureWidthPx, height = phone.device->pictureHeightPx;
    const float left = px(screen.x, width), top = px(screen.y, height);
    return {left, top, left + px(screen.width, width), top + px(screen.height, height)};
}

Box grownBy(const Box& box, float margin) {
    return {box.left - margin, box.top - margin, box.right + margin, box.bottom + margin};
}

double cornerRadiusPx(const Phone& phone, const Box& opening) {
    return phone.device->screenCornerRadiusFraction * std::min(opening.width(), opening.height());
}

}   // namespace

Outline::Outline(const Phone& phone)
    : opening_(openingOf(phone)), body_(grownBy(opening_, phone.build.bezelPx + phone.build.rim.widthPx)),
      corner_(cornerRadiusPx(phone, opening_)) {}

Offset Outline::offsetAt(float x, float y) const {
    const bool isRight = x > (opening_.left + opening_.right) / 2;
    const bool isLow = y > (opening_.top + opening_.bottom) / 2;
    const float signX = isRight ? 1.0f : -1.0f, signY = isLow ? 1.0f : -1.0f;
    const float dx = isRight ? x - opening_.right : opening_.left - x;
    const float dy = isLow ? y - opening_.bottom : opening_.top - y;
    const float reach = cornerReachPx();
    if (dx + reach <= 0 || dy + reach <= 0) return dx > dy ? Offset{dx, signX, 0} : Offset{dy, 0, signY};
    const Offset offset = corner_.offsetAt(dx + reach, dy + reach);
    return {offset.distance, offset.outX * signX, offset.outY * signY};
}

float roundBoxDistance(const Box& box, float radiusPx, float x, float y) {
    const float qx = std::abs(x - (box.left + box.right) / 2) - box.width() / 2 + radiusPx;
    const float qy = std::abs(y - (box.top + box.bottom) / 2) - box.height() / 2 + radiusPx;
    return std::hypot(std::max(qx, 0.0f), std::max(qy, 0.0f)) + std::min(std::max(qx, qy), 0.0f) - radiusPx;
}

}   // namespace tavix::deviceframes
