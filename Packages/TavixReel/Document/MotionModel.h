// How the reel camera gets from one keyframe to the next.
#pragma once

#include "TavixCore/Support/Tables.h"

#include <type_traits>
#include <variant>

namespace tavix {

// Springs chase the keyframes: the zoom without a swing, the pan with its damping.
struct MotionSpring {
    double zoomResponse = 0.45;   // seconds
    double panResponse = 0.62;    // seconds
    double damping = 1;           // 1 does not swing

    static const MotionSpring standard;   // the values above
    bool operator==(const MotionSpring&) const = default;
};

inline constexpr MotionSpring MotionSpring::standard{};

// Every keyframe is reached at its time, by its own easing.
struct KeyframeEasing {
    bool operator==(const KeyframeEasing&) const = default;
};

using MotionModel = std::variant<MotionSpring, KeyframeEasing>;

const Fields<MotionSpring>& fieldsOf(std::type_identity<MotionSpring>);
const Fields<KeyframeEasing>& fieldsOf(std::type_identity<KeyframeEasing>);
const Alternatives<MotionModel>& alternativesOf(std::type_identity<MotionModel>);

}   // namespace tavix
