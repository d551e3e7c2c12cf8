#include "TavixCore/Choreography/DeviceMotionReferenceCatalog.h"

#include "TavixCore/Choreography/MotionScript.h"
#include "TavixCore/Device/DeviceMotionRows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace tavix::DeviceMotionReferenceCatalog {
namespace {

using Frame = DeviceMotionFrame;

constexpr double unitsPerHeight = 172;   // of the neutral space
constexpr double unitsPerDepth = 600;
constexpr double restDepth = 0.5;
constexpr double restScale = 0.62;
constexpr double leastStretch = 0.05;
constexpr double leastDifference = 0.0001;   // from rest, for a track to be made
constexpr TrajectorySpring tightSpring{0.22, 0.92};
constexpr BezierCurve frameEase{0.3, 0.7, 0.3, 1};

// Their ways run along property tracks, which keep their times exactly; a placement's spring would lag.
constexpr std::array<std::string_view, 11> timestampedTranslationPresets{"rise-up", "rise-spin", "corner-lb",
    "slide-left", "roll-in", "cartwheel", "skew-slide", "orbit-in", "sink-down", "shrink-corner",
    "push-swap"};

// What a frame is multiplied by.
struct Play {
    double durationSec;
    double intensity;
    double sideways;   // +1 forward, -1 reversed: what goes to the side, and turns
};

// One property of a layer that frames may animate: where its value in a frame comes from.
struct Channel {
    AnimProperty property;
    double Frame::*source;
    double (*value)(double source, const Play& play);
};

constexpr Channel translations[] = {
    {AnimProperty::x, &Frame::x,
        [](double x, const Play& p) { return p.sideways * x * p.intensity / unitsPerHeight; }},
    {AnimProperty::y, &Frame::y, [](double y, const Play& p) { return y * p.intensity / unitsPerHeight; }}};

double stretch(double size, const Play& play) {
    return std::max((size - 1) * play.intensity + 1, leastStretch);
}

constexpr Channel planeRotation{AnimProperty::rotationDeg, &Frame::rz,
    [](double degrees, const Play& p) { return p.sideways * degrees * p.intensity; }};

constexpr Channel sizes[] = {
    {AnimProperty::scaleX, &Frame::sx, stretch}, {AnimProperty::scaleY, &Frame::sy, stretch}};

constexpr Channel looks[] = {
    {AnimProperty::skewXDeg, &Frame::skewX,
        [](double degrees, const Play& p) { return p.sideways * degrees * p.intensity; }},
    {AnimProperty::skewYDeg, &Frame::skewY,
        [](double degrees, const Play& p) { return degrees * p.intensity; }},
    {AnimProperty::opacity, &Frame::opacity, [](double opacity, const Play&) { return opacity; }},
    {AnimProperty::blur, &Frame::blur, [](double blur, const Play&) { return blur / unitsPerHeight; }}};

bool leavesRest(const std::vector<Frame>& frames, double Frame::*source) {
    const double rest = Frame{}.*source;
    return std::ranges::any_of(
        frames, [&](const Frame& frame) { return std::abs(frame.*source - rest) > leastDifference; });
}

void appendTracks(std::vector<PropertyTrack>& tracks, std::span<const Channel> channels,
    const std::vector<Frame>& frames, const Play& play) {
    for (const Channel& channel : channels) {
        if (!leavesRest(frames, channel.source)) continue;
        PropertyTrack track{channel.property, {}};
        for (const Frame& frame : frames)
            track.keyframes.push_back({stretchedSec(frame.t, play.durationSec),
                channel.value(frame.*channel.source, play), frameEase, {}, {}});
        tracks.push_back(std::move(track));
    }
}

// The part of the motion that belongs to the device; times are fractions of the length.
MotionScript scriptOf(const Definition& definition, const Play& play, bool isPlaced) {
    MotionScript script{
        .motionBlur = 0.22, .poseSpring = tightSpring, .placeSpring = tightSpring, .tiltDegrees = {0, 0, 0}};
    for (const Frame& frame : definition.frames) {
        if (frame.z > 0) script.motionBlur = 0.7;   // what comes at the camera is quick
        const double roll = definition.metadata.uses3D ? play.sideways * frame.rz * play.intensity : 0;
        script.poses.push_back(
            {frame.t, {frame.rx * play.intensity, play.sideways * frame.ry * play.intensity, roll}});
        script.depths.push_back(
            {frame.t, std::clamp(frame.z * play.intensity / unitsPerDepth + restDepth, 0.0, 1.0)});
        if (isPlaced)
            script.places.push_back({frame.t, translations[0].value(frame.x, play),
                translations[1].value(frame.y, play), restScale});
    }
    return script;
}

}   // namespace

std::span<const Definition> definitions() {
    static const std::vector<Definition> table = [] {
        std::vector<Definition> made;
        for (const DeviceMotionRow& row : deviceMotionRows()) {
            if (row.frames.empty()) continue;
            Definition entry{row.name, metadata(*DeviceMotionPreset::fromRawValue(row.name)), {}};
            DeviceMotionFrames::eachFrame(
                row.frames, [&](const Frame& frame) { entry.frames.push_back(frame); });
            made.push_back(std::move(entry));
        }
        return made;
    }();
    return table;
}

const Definition* definition(std::string_view name) {
    const auto found = std::ranges::find(definitions(), name, &Definition::name);
    return found == definitions().end() ? nullptr : &*found;
}

DeviceMotion expand(std::string_view name, const DeviceMotionParams& params) {
    const Definition* const entry = definition(name);
    if (!entry) throw std::logic_error("A device motion without frames cannot be made from frames.");
    const Play play{params.durationSec.value_or(entry->metadata.naturalDurationSec), params.intensity,
        signOf(params.direction)};
    const bool isPlaced =
        std::ranges::find(timestampedTranslationPresets, name) == timestampedTranslationPresets.end();
    DeviceMotion motion = scriptOf(*entry, play, isPlaced).play(play.durationSec);
    motion.uses3D = entry->metadata.uses3D;
    motion.sceneDurationSec = play.durationSec;
    if (!isPlaced) {
        motion.tracks.push_back({AnimProperty::scale, {{0, restScale, LinearCurve{}, {}, {}}}});
        appendTracks(motion.tracks, translations, entry->frames, play);
    }
    appendTracks(motion.tracks, sizes, entry->frames, play);
    if (!motion.uses3D) appendTracks(motion.tracks, {&planeRotation, 1}, entry->frames, play);
    appendTracks(motion.tracks, looks, entry->frames, play);
    return motion;
}

DeviceMotionMetadata metadata(const DeviceMotionPreset& preset) {
    const DeviceMotionRow& row = *deviceMotionRow(preset.rawValue());
    const auto origin =
        row.frames.empty() ? DeviceMotionOrigin::tavixOriginal : DeviceMotionOrigin::deviceMotionLab;
    return {std::string(row.referenceID.empty() ? row.name : row.referenceID), std::string(row.title),
        row.category, origin, row.naturalSec, row.uses3D};
}

std::string label(const DeviceMotionPreset& preset) {
    const DeviceMotionRow& row = *deviceMotionRow(preset.rawValue());
    return std::string(row.label.empty() ? row.title : row.label);
}

}   // namespace tavix::DeviceMotionReferenceCatalog
