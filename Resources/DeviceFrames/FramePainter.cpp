#include "DeviceFrames/FramePainter.h"

#include "Backgrounds/Noise.h"
#include "Backgrounds/Oklab.h"
#include "DeviceFrames/Outline.h"
#include "DeviceFrames/Studio.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace tavix::deviceframes {

namespace {

constexpr Vector white{1, 1, 1};
constexpr float keyProtrusionPx = 8, keyOverlapPx = 4;   // outside the body, and under its rim
constexpr float exposure = 1.45f;

// The share of a pixel that a shape covers whose edge passes at that distance from the pixel's centre.
float coverage(float distance) { return std::clamp(0.5f - distance, 0.0f, 1.0f); }

// A surface that leans away from the camera, towards the picture's (x right, y down) direction.
Vector leaning(float outX, float outY, float leanRad) {
    const float away = std::sin(leanRad);
    return {outX * away, -outY * away, std::cos(leanRad)};
}

float degrees(float value) { return value * std::numbers::pi_v<float> / 180; }

class FramePainter {
public:
    explicit FramePainter(const Phone& phone)
        : phone_(phone), outline_(phone), rimWidth_(phone.build.rim.widthPx), bezel_(phone.build.bezelPx) {
        const Box& body = outline_.body();
        for (const Key& key : phone.build.keys) {
            const float middle = body.top + key.middleFraction * body.height();
            const float half = key.lengthFraction * body.height() / 2;
            const float edge = key.isOnTheLeft ? body.left : body.right;
            const float from = key.isOnTheLeft ? edge - keyProtrusionPx : edge - keyOverlapPx;
            const float to = key.isOnTheLeft ? edge + keyOverlapPx : edge + keyProtrusionPx;
            keys_.push_back({from, middle - half, to, middle + half});
        }
        const Box& screen = outline_.opening();
        const float middle = (screen.left + screen.right) / 2;
        constexpr float islandWidthPx = 376, islandHeightPx = 111;
        const float top = screen.top + phone.build.islandTopPx;
        island_ = {middle - islandWidthPx / 2, top, middle + islandWidthPx / 2, top + islandHeightPx};
        constexpr float slitHalfLengthPx = 96, slitHeightPx = 8;
        const float glassTop = screen.top - bezel_;
        slit_ = {middle - slitHalfLengthPx, glassTop + 1.5f, middle + slitHalfLengthPx,
            glassTop + 1.5f + slitHeightPx};
    }

    imaging::Bitmap painted() {
        imaging::Bitmap picture({phone_.device->pictureWidthPx, phone_.device->pictureHeightPx});
        for (int row = 0; row < picture.size().height; ++row) {
            std::uint8_t* out = picture.view().row(row);
            const float y = static_cast<float>(row) + 0.5f;
            const auto [openFrom, openTo] = openColumns(y);
            for (int column = 0; column < picture.size().width; ++column) {
                if (column == openFrom) column = openTo;
                put(out + column * 4, pixelAt(static_cast<float>(column) + 0.5f, y), column, row);
            }
        }
        return picture;
    }

private:
    // Linear light, and how much of the pixel is there.
    struct Sample {
        Vector color;
        float alpha = 0;
        void cover(const Vector& by, float share) {
            const float left = alpha * (1 - share);
            const float sum = share + left;
            if (sum > 0) color = color * (left / sum) + by * (share / sum);
            alpha = sum;
        }
    };

    // Most of the picture is the open screen: columns of a row that need no look, half open.
    std::pair<int, int> openColumns(float y) const {
        const Box& screen = outline_.opening();
        constexpr float margin = 2;
        const bool isInside = y > screen.top + margin && y < screen.bottom - margin;
        const bool meetsIsland = y > island_.top - margin && y < island_.bottom + margin;
        if (!isInside || meetsIsland) return {-1, -1};
        const float reach = outline_.cornerReachPx();
        const bool isStraight = y > screen.top + reach && y < screen.bottom - reach;
        const float inset = isStraight ? margin : reach;
        return {static_cast<int>(screen.left + inset), static_cast<int>(screen.right - inset)};
    }

    StudioView viewFrom(float x, float y, const Vector& normal) const {
        const auto half = static_cast<float>(phone_.device->pictureHeightPx) / 2;
        const Vector place{
            (x - static_cast<float>(phone_.device->pictureWidthPx) / 2) / half, (half - y) / half, 0};
        // The camera stands far off, so it sees every place from straight ahead.
        const Vector mirrored = normal * (2 * normal.z) - Vector{0, 0, 1};
        return {place, mirrored};
    }

    Vector metalAt(float x, float y, const Vector& normal, float light = 1) const {
        const Metal& metal = phone_.metal;
        const StudioView view = viewFrom(x, y, normal);
        const StudioView facing{view.place, normal};
        const float mirrored = lightFrom(view, metal.roughness), scattered = lightFrom(facing, 0.8f);
        const float grazing = std::pow(1 - std::clamp(normal.z, 0.0f, 1.0f), 5.0f);
        const Vector tint = mixed(metal.tint, white, 0.5f * grazing);
        const float skin = metal.coat * lightFrom(view, metal.roughness * 0.4f);
        return (tint * (0.74f * mirrored + 0.30f * scattered) + white * skin) * light;
    }

    // How far the rim leans at a share of the way from the glass to its outer edge.
    float leanAt(float along) const {
        const Rim& rim = phone_.build.rim;
        const float chamfer = rim.chamferPx / rim.widthPx;
        if (along < chamfer) return degrees(-38 + 42 * smoothStep(0, chamfer, along));
        if (along < rim.shoulderShare)
            return degrees(4 + 8 * (along - chamfer) / (rim.shoulderShare - chamfer));
        const float roll = (along - rim.shoulderShare) / (1 - rim.shoulderShare);
        // Round in section: the sine of the lean grows with the way.
        const float from = std::sin(degrees(12));
        return std::asin(std::min(from + (0.998f - from) * roll, 0.998f));
    }

    float grainAt(float x, float y, const Offset& offset) const {
        const auto column = static_cast<std::uint32_t>(x), row = static_cast<std::uint32_t>(y);
        const float fine = backgrounds::whiteNoise(column, row, 3) - 0.5f;
        switch (phone_.metal.grain) {
        case Grain::none: return 1;
        case Grain::blasted: return 1 + 0.030f * fine;
        case Grain::brushed: break;
        }
        // Strokes run along the edge: long in that direction, a pixel wide across.
        const float around = offset.outX * (y - x * 0.2f) - offset.outY * (x + y * 0.2f);
        return 1 + 0.05f * backgrounds::smoothNoise(around * 0.035f, offset.distance * 1.15f, 5) +
               0.018f * fine;
    }

    // Inlays across the rim: near the ends of the sides, and one each at the top and the bottom.
    float bandAt(float x, float y, const Offset& offset) const {
        const Box& body = outline_.body();
        constexpr float halfWidthPx = 5.5f, fromEndFraction = 0.098f, fromSideFraction = 0.235f;
        const float inset = fromEndFraction * body.height();
        float away = 1e6f;
        if (std::abs(offset.outX) > 0.9f)
            away = std::min(std::abs(y - body.top - inset), std::abs(body.bottom - inset - y));
        else if (offset.outY < -0.9f)
            away = std::abs(x - (body.right - fromSideFraction * body.width()));
        else if (offset.outY > 0.9f)
            away = std::abs(x - (body.left + fromSideFraction * body.width()));
        return coverage(away - halfWidthPx);
    }

    // The control on the right that lies flush in the side: a faint seam round a slightly darker pane.
    float flushKeyShade(float y, float along, const Offset& offset) const {
        if (offset.outX < 0.9f) return 1;
        const Box& body = outline_.body();
        const float away = std::abs(y - body.top - phone_.build.flushKeyMiddleFraction * body.height());
        const float half = 0.049f * body.height();
        const float pane = coverage(away - half) * smoothStep(0.70f, 0.80f, along);
        const float seam = coverage(std::abs(away - half) - 1.2f) * smoothStep(0.6f, 0.8f, along);
        return (1 - 0.22f * pane) * (1 - 0.5f * seam);
    }

    Vector rimAt(float x, float y, const Offset& offset) const {
        const float along = std::clamp((offset.distance - bezel_) / rimWidth_, 0.0f, 1.0f);
        const Vector normal = leaning(offset.outX, offset.outY, leanAt(along));
        // The glass stands a little below the rim and takes light from its foot.
        const float shelter = 0.55f + 0.45f * smoothStep(0.0f, 0.16f, along);
        const float grain = grainAt(x, y, offset);
        Vector color = metalAt(x, y, normal, shelter * grain) * flushKeyShade(y, along, offset);
        if (const float band = bandAt(x, y, offset); band > 0) {
            const float scattered = lightFrom({viewFrom(x, y, normal).place, normal}, 0.9f);
            color = mixed(color, phone_.metal.band * (0.25f + 0.75f * scattered) * shelter, band);
        }
        return color;
    }

    // Black glass: a faint image of the room, and an edge that curves down to the rim.
    Vector glassAt(float x, float y, const Offset& offset) const {
        const float fromEdge = bezel_ - offset.distance;
        const float lean = degrees(46) * (1 - smoothStep(0, 5, fromEdge));
        const Vector normal = leaning(offset.outX, offset.outY, lean);
        const float mirrored = lightFrom(viewFrom(x, y, normal), 0.12f);
        const float hairline = 0.05f * (1 - smoothStep(1.2f, 4.5f, fromEdge));
        const float sheen = 0.0016f + (0.0022f + hairline) * mirrored;
        Vector color = Vector{0.96f, 0.98f, 1.04f} * sheen;
        return color * (0.35f + 0.65f * smoothStep(0, 3, offset.distance));
    }

    Vector slitAt(float x, float y) const {
        // A fine mesh in the dark.
        const float u = std::fmod(x + 2 * std::floor(y / 3), 4.0f) - 2, v = std::fmod(y, 3.0f) - 1.5f;
        const float thread = smoothStep(0.3f, 1.9f, std::sqrt(u * u + v * v));
        const float low = smoothStep(slit_.top, slit_.bottom, y);
        return white * (0.0012f + thread * (0.004f + 0.010f * low));
    }

    Vector islandAt(float x, float y) const {
        // A lens at its right end: a dark ring with the faint colours of its coating.
        const float cx = island_.right - 56, cy = (island_.top + island_.bottom) / 2;
        const float dx = x - cx, dy = y - cy, r = std::sqrt(dx * dx + dy * dy);
        const Vector coating = Vector{0.0035f, 0.0065f, 0.019f} * (1 - smoothStep(10, 21, r));
        const float ring = 0.010f * (1 - smoothStep(0, 1.6f, std::abs(r - 22)));
        const float gx = dx + 7, gy = dy + 8;
        const float glint = 0.055f * (1 - smoothStep(1.0f, 5.5f, std::sqrt(gx * gx + gy * gy)));
        return white * (0.0009f + ring) + coating + Vector{0.75f, 0.85f, 1.1f} * glint;
    }

    Vector keyAt(const Box& key, float x, float y) const {
        const bool isOnTheLeft = key.left < outline_.body().left;
        const float out =
            isOnTheLeft ? key.right - keyOverlapPx - x : x - (key.left + keyOverlapPx);   // beyond the body
        const float along = std::clamp(out / keyProtrusionPx, 0.0f, 1.0f);
        const float fromEnd = std::min(y - key.top, key.bottom - y);
        const float endLean = 1 - smoothStep(0, 7, fromEnd);
        const float outY = (y < (key.top + key.bottom) / 2 ? -1.0f : 1.0f) * endLean * 0.8f;
        const float outX = (isOnTheLeft ? -1.0f : 1.0f) * std::sqrt(1 - outY * outY);
        const float lean = std::asin(std::min(0.30f + 0.698f * along, 0.998f));
        const float shelter = 0.18f + 0.82f * smoothStep(0.4f, 3.6f, out);
        return metalAt(x, y, leaning(outX, outY, lean), shelter * 0.94f);
    }

    Sample pixelAt(float x, float y) const {
        Sample sample;
        const Box& body = outline_.body();
        if (x < body.left + keyOverlapPx || x > body.right - keyOverlapPx)
            for (const Box& key : keys_)
                if (const float share = coverage(roundBoxDistance(key, 3.5f, x, y)); share > 0)
                    sample.cover(keyAt(key, x, y), share);
        const Offset offset = outline_.offsetAt(x, y);
        const float d = offset.distance, outer = bezel_ + rimWidth_;
        if (const float share = coverage(d - outer) * coverage(-d); share > 0)
            sample.cover(bodyAt(x, y, offset), share);
        if (d < 0 && std::abs(y - (island_.top + island_.bottom) / 2) < island_.height())
            if (const float share =
                    coverage(roundBoxDistance(island_, (island_.bottom - island_.top) / 2, x, y));
                share > 0)
                sample.cover(islandAt(x, y), share);
        return sample;
    }

    Vector bodyAt(float x, float y, const Offset& offset) const {
        const float rimShare = 1 - coverage(offset.distance - bezel_);
        Vector color;
        if (rimShare < 1) color = glassAt(x, y, offset);
        if (rimShare > 0) color = mixed(color, rimAt(x, y, offset), rimShare);
        // The dark joint between the two.
        const float joint = coverage(std::abs(offset.distance - bezel_) - 0.75f);
        color = color * (1 - 0.85f * joint);
        const float slit = coverage(roundBoxDistance(slit_, (slit_.bottom - slit_.top) / 2, x, y));
        return slit > 0 ? mixed(color, slitAt(x, y), slit) : color;
    }

    // Light to a premultiplied pixel. Highlights roll off instead of clipping; the rounding error is freed by
    // noise, so that slow gradients do not band.
    void put(std::uint8_t* bgra, const Sample& sample, int column, int row) const {
        if (sample.alpha <= 0) return;
        const auto x = static_cast<std::uint32_t>(column), y = static_cast<std::uint32_t>(row);
        const float noise = backgrounds::whiteNoise(x, y, 7) - 0.5f;
        const auto level = [&](float light) {
            const float shown = backgrounds::encodedFromLinear(1 - std::exp(-light * exposure));
            const float dithered = std::clamp(shown * 255 + noise + 0.5f, 0.0f, 255.99f);
            return std::floor(dithered) * sample.alpha;
        };
        const float alpha = sample.alpha * 255;
        const std::array<float, 4> values{
            level(sample.color.z), level(sample.color.y), level(sample.color.x), alpha};
        for (std::size_t c = 0; c < values.size(); ++c)
            bgra[c] = static_cast<std::uint8_t>(std::lround(std::min(values[c], alpha)));
    }

    const Phone& phone_;
    Outline outline_;
    float rimWidth_, bezel_;
    std::vector<Box> keys_;
    Box island_{}, slit_{};
};

}   // namespace

imaging::Bitmap paint(const Phone& phone) { return FramePainter(phone).painted(); }

}   // namespace tavix::deviceframes
