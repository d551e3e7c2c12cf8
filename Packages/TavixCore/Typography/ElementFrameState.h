// The state of one element of an animated text at one time. Coordinates are pixels of the text canvas with y
// pointing up.
#pragma once

#include "TavixCore/Typography/ElementSchedule.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/AffineTransform.h"

#include <cstdint>
#include <optional>

namespace tavix::KineticMath {

struct ElementFrameState {
    bool visible = false;        // false: nothing of the element is drawn
    double progress = 0;         // towards rest; a spring takes it past 0 to 1
    double remainder = 1;        // 1 - progress
    double alpha = 0;            // 0 to 1
    AffineTransform transform;   // from rest to the frame
    double tiltXDeg = 0, tiltYDeg = 0;
    double gaussianRadius = 0;                // px; 0 where it would not show
    std::optional<double> motionBlurRadius;   // px; absent where it would not show
    double motionBlurAngle = 0;               // radians
    ClipMask clip = ClipMask::none;
    RGBAColor tintFrom;   // the colour the tint starts from
    RGBAColor color;      // the colour at this time

    // A tilt too small to see is not worth a perspective pass.
    bool hasPerspective() const;
};

struct KineticElement {
    ElementSchedule schedule;
    std::int64_t ordinal = 0;   // names the element's idle noise
    double pivotXPx = 0, pivotYPx = 0;
    double emphasisScale = 1;
    RGBAColor restFill = RGBAColor::white;
};

struct CanvasTiming {
    double heightPx = 0;
    double framesPerSec = 60;
};

ElementFrameState stateAt(
    double timeSec, const KineticElement& element, const KineticStyle& style, const CanvasTiming& canvas);

}   // namespace tavix::KineticMath
