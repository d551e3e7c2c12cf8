// A fully resolved text animation. Rest is the laid-out text; a phase says how far from rest an element is
// before it comes in or after it has gone out.
#pragma once

#include "TavixCore/Animation/AnimationEnums.h"
#include "TavixCore/Animation/TimingCurve.h"
#include "TavixCore/Typography/Stagger.h"
#include "TavixCore/Values/NormalizedVec2.h"
#include "TavixCore/Values/RGBAColor.h"
#include "TavixCore/Values/Vector3.h"

#include <cstdint>
#include <optional>
#include <string>

namespace tavix {

enum class KineticSpeed { snap, smooth, glacial };
enum class KineticWeight { punchy, elegant, linear };
enum class KineticIntensity { low, medium, high };

struct KineticPhase {
    double durationSec = 0;   // of one element
    TimingCurve curve = LinearCurve{};
    double opacity = 1;
    NormalizedVec2 offset;   // fractions of the canvas height; x to the right, y down
    double scale = 1;
    Vector3 rotationDeg;   // x and y tilt in perspective, z turns in the plane
    double skewXDeg = 0, skewYDeg = 0;
    double trackingEm = 0;           // extra horizontal scale about the element's pivot
    double blurRadiusFraction = 0;   // of the canvas height
    ClipMask clipToBounds = ClipMask::none;
    double motionBlur = 0;            // 0 to 1
    std::optional<RGBAColor> color;   // absent: the element's own

    static const KineticPhase identity;
    bool operator==(const KineticPhase&) const = default;
};

inline constexpr KineticPhase KineticPhase::identity{};

// A small noise motion while an element is on screen.
struct IdlePhase {
    enum class Target { position, scale, rotation, opacity };

    Target target = Target::position;
    // Position: fractions of the canvas height. Scale: natural logarithm. Rotation: degrees. Opacity:
    // opacity.
    double amplitude = 0.003;
    double frequencyHz = 0.35;
    std::int64_t seed = 0;
    bool operator==(const IdlePhase&) const = default;
};

struct KineticStyle {
    // Where the style came from; nothing in its evaluation reads these four.
    std::string presetID = "custom";
    KineticSpeed speed = KineticSpeed::smooth;
    KineticWeight weight = KineticWeight::punchy;
    KineticIntensity intensity = KineticIntensity::medium;

    AnimationScope scope = AnimationScope::block;
    Stagger stagger;
    KineticPhase inPhase;
    std::optional<IdlePhase> idle;
    KineticPhase outPhase;
    bool operator==(const KineticStyle&) const = default;
};

const Names<KineticSpeed>& namesOf(std::type_identity<KineticSpeed>);
const Names<KineticWeight>& namesOf(std::type_identity<KineticWeight>);
const Names<KineticIntensity>& namesOf(std::type_identity<KineticIntensity>);
const Names<IdlePhase::Target>& namesOf(std::type_identity<IdlePhase::Target>);
const Fields<KineticPhase>& fieldsOf(std::type_identity<KineticPhase>);
const Fields<IdlePhase>& fieldsOf(std::type_identity<IdlePhase>);
const Fields<KineticStyle>& fieldsOf(std::type_identity<KineticStyle>);

}   // namespace tavix
