// The value of a property track at a time.
#pragma once

#include "TavixCore/Animation/PropertyTrack.h"

#include <optional>
#include <span>

namespace tavix::CompositionMath {

// How values between two keyframes are mixed. Logarithmic mixing makes zooming look even; where either value
// is 0 or less it cannot, and mixing is linear.
enum class Mixing { linear, logarithmic };

// Nothing without keyframes. They are in rising time; the ends hold. A keyframe's ease shapes the segment
// that arrives at it.
std::optional<double> sample(std::span<const CompositionKeyframe> keyframes, double atSec, Mixing mixing);

// Of the first track with this property; nothing when there is none, or it is empty.
std::optional<double> sample(std::span<const PropertyTrack> tracks, AnimProperty property, double atSec);

}   // namespace tavix::CompositionMath
