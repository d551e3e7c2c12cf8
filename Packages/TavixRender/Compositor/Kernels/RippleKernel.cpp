#include "TavixRender/Compositor/Kernels/RippleKernel.h"

#include "TavixPlatform/Imaging/Hash.h"
#include "TavixRender/Compositor/Kernels/WarpMath.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tavix {

namespace {

constexpr std::uint64_t rippleKind = 0x726970706c65;   // "ripple" in ASCII
constexpr float wavesPerHeight = 4;
constexpr float fadePerHeight = 1.6f;        // the wave is down to 1/5 one picture height from the middle
constexpr float calmRadiusHeights = 0.05f;   // keeps the middle, where the wave has no direction, at rest
constexpr float dissolveSpread = 0.6f;       // how far the dissolve runs ahead in the middle

}   // namespace

RippleKernel::RippleKernel(const imaging::Rect& rect, float progress, const Shape& shape)
    : rect_(rect), progress_(progress), shape_(shape) {}

void RippleKernel::describe(Hash& hash) const {
    hash.kind(rippleKind).add(rect_);
    hash.add(double(progress_)).add(double(shape_.amplitude)).add(double(shape_.speed));
}

void RippleKernel::row(int x, int y, int count, imaging::WarpSample* out) const {
    const auto centerX = float(rect_.center().x), centerY = float(rect_.center().y);
    const auto height = float(rect_.height);
    const float cornerRadius = std::hypot(float(rect_.width), height) / (2 * height);
    const float e = std::clamp(progress_, 0.0f, 1.0f);
    const float swell = 4 * e * (1 - e) * shape_.amplitude / 1080 * height;
    const float waveNumber = wavesPerHeight * 2 * std::numbers::pi_v<float>;
    const float pixelY = float(y) + 0.5f, dy = (pixelY - centerY) / height;
    for (int i = 0; i < count; ++i) {
        const float pixelX = float(x + i) + 0.5f, dx = (pixelX - centerX) / height;
        const float radius = std::hypot(dx, dy);
        const float wave =
            std::sin(waveNumber * radius - shape_.speed * e) * std::exp(-fadePerHeight * radius);
        const float push = swell * wave / (radius + calmRadiusHeights);
        const float mix =
            WarpMath::smoothstep(e * (1 + dissolveSpread) - dissolveSpread * radius / cornerRadius);
        const float sampleX = pixelX + dx * push, sampleY = pixelY + dy * push;
        out[i] = {sampleX, sampleY, sampleX, sampleY, mix};
    }
}

}   // namespace tavix
