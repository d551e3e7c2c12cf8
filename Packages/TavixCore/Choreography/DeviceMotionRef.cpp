#include "TavixCore/Choreography/DeviceMotionRef.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <array>

namespace tavix {
namespace {

constexpr std::array<std::string_view, 111> motionNames{"rise-up", "rise-soft", "rise-spin", "rise-yaw360",
    "reveal", "lay-rise", "heroRise", "spinIn", "corner-lb", "dollyHero", "drop-bounce", "drop-heavy",
    "slide-left", "slide-right-lean", "zoom-in", "zoom-overshoot", "pop-elastic", "jelly-in", "fade-rise",
    "blur-in", "materialize", "flip-in-x", "flip-in-y", "door-in", "billboard-flip", "swing-drop",
    "pendulum-in", "roll-in", "cartwheel", "kick-flip", "helix-up", "spiral-in", "float-drift", "slingshot",
    "elastic-side", "rubber-entry", "peek-enter", "tilt-land", "dive-from-cam", "skew-slide", "stretch-drop",
    "shutter-steps", "typewriter-steps", "gravity-3bounce", "glitch-in", "snap-pop", "rise-facedown-flip",
    "wave-ride", "moon-arc", "arc-over", "orbit-in", "tumble-diag", "seesaw-land", "edge-balance",
    "drop-roll-stand", "sink-down", "fall-back", "fly-up", "blast-off", "zoom-out-fade", "shrink-corner",
    "recede-away", "spin-out", "door-out", "fold-away", "topple-off", "slip-fall", "whip-left", "glitch-out",
    "deflate", "park-lr", "park-face-in", "closeUpScan", "scan-up", "punch-top", "punch-bottom",
    "big-small-big", "flip-peek", "lean-back-hold", "tiltShowcase", "nod", "push-swap", "bounce-focus",
    "stepBackPresent", "idle-drift", "hover-float", "breathe-zoom", "shake-attn", "wobble-jelly",
    "pendulum-yaw", "figure-eight", "metronome", "coin-spin-blur", "pirouette", "gimbalArc", "barrel-roll",
    "snap-turns", "lighthouse", "matrix-lean", "spotlight-lean", "carousel-orbit", "zoom-thru", "depth-bob",
    "slow-hero", "boomerang", "beautyTurn", "whipSwap", "portalDive", "macroOrbit", "edgeReveal",
    "riseYaw360NoBlur"};

}   // namespace

template <> struct Codec<DeviceMotionPreset> {
    static void read(const Json& json, DeviceMotionPreset& into, const KeyPath& at) {
        const std::string& name = textAt(json, at);
        const auto known = DeviceMotionPreset::fromRawValue(name);
        if (!known) failWithData(at, "Unknown device motion preset \"" + name + "\".");
        into = *known;
    }
    static Json write(const DeviceMotionPreset& from) { return from.rawValue(); }
    static Json schema(SchemaBook&) {
        return JsonObject{{"enum", JsonArray(motionNames.begin(), motionNames.end())}, {"type", "string"}};
    }
};

std::optional<DeviceMotionPreset> DeviceMotionPreset::fromRawValue(std::string_view name) {
    if (std::find(motionNames.begin(), motionNames.end(), name) == motionNames.end()) return std::nullopt;
    return DeviceMotionPreset(std::string(name));
}

std::span<const std::string_view> DeviceMotionPreset::knownRawValues() { return motionNames; }

const Names<DeviceMotionParams::Direction>& namesOf(std::type_identity<DeviceMotionParams::Direction>) {
    using enum DeviceMotionParams::Direction;
    static const Names<DeviceMotionParams::Direction> table{
        "direction", {{forward, "forward"}, {reversed, "reversed"}}};
    return table;
}

const Fields<DeviceMotionParams>& fieldsOf(std::type_identity<DeviceMotionParams>) {
    using P = DeviceMotionParams;
    static const Fields<P> table{"DeviceMotionParams",
        {field<&P::durationSec>("durationSec", "Length in seconds; the motion's own when absent.")
                .clamped(0.6, 8),
            field<&P::intensity>("intensity", "How strong it is; 1 is usual.").clamped(0.3, 1.6),
            field<&P::direction>("direction", "Which way round."),
            field<&P::anchorX>("anchorX", "Shift to the side, in fractions of the canvas height.")
                .clamped(-0.75, 0.75)
                .unlessDefault(),
            field<&P::faceInwardDeg>("faceInwardDeg", "Turn of a shifted device towards the middle.")
                .clamped(0, 45)
                .unlessDefault(),
            field<&P::startAtSec>("startAtSec", "Seconds before it starts.").clamped(0, 20).unlessDefault()}};
    return table;
}

const Fields<DeviceMotionRef>& fieldsOf(std::type_identity<DeviceMotionRef>) {
    using R = DeviceMotionRef;
    static const Fields<R> table{
        "DeviceMotionRef", {field<&R::preset>("preset", "Name of the motion.").required(),
                               field<&R::params>("params", "How it is played.")}};
    return table;
}

}   // namespace tavix
