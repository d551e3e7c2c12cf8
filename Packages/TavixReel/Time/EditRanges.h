// The ranges that editors of a reel keep its values in.
#pragma once

namespace tavix {

struct ClosedRange {
    double lower, upper;

    constexpr double clamp(double value) const {
        return value < lower ? lower : value > upper ? upper : value;
    }
};

namespace EditRanges {

inline constexpr double fontReferenceHeightPx = 1920;         // of the canvas that points count on
inline constexpr ClosedRange captionSizePoints{20, 120};      // points on that canvas
inline constexpr ClosedRange emphasisScale{1, 1.5};           // factor
inline constexpr ClosedRange cardSizeFraction{0.012, 0.12};   // of the canvas height
inline constexpr ClosedRange padding{0, 400};                 // pixels
inline constexpr ClosedRange gradientAngle{0, 360};           // degrees
inline constexpr ClosedRange shadowRadius{0, 120};            // pixels
inline constexpr ClosedRange shadowOffsetY{-80, 80};          // pixels
inline constexpr ClosedRange cornerFraction{0, 0.5};          // of a side
inline constexpr ClosedRange springResponse{0.1, 1.5};        // seconds
inline constexpr ClosedRange springDamping{0.2, 1};           // ratio
inline constexpr ClosedRange tiltPitch{-20, 20};              // degrees
inline constexpr ClosedRange tiltYaw{-30, 30};                // degrees
inline constexpr ClosedRange drift{0, 12};                    // degrees
inline constexpr ClosedRange floorReflectivity{0, 1};
inline constexpr ClosedRange lightIntensity{0, 2};
inline constexpr ClosedRange flipDuration{0.3, 2};   // seconds

}   // namespace EditRanges

}   // namespace tavix
