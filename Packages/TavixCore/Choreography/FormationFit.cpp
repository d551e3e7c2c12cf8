#include "TavixCore/Choreography/FormationFit.h"

#include "TavixCore/Animation/CompositionMath.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <numbers>
#include <variant>

// Lengths are in canvas heights, from the middle of the canvas.
namespace tavix {
namespace {

constexpr double wideAspect = 16.0 / 9;
constexpr double framesPerSec = 30;   // at which ways are looked at
constexpr double sideMargin = 0.05;   // of a wide frame; of a narrow one in proportion
constexpr double topMargin = 0.04;
constexpr double screenAspect = 0.46;   // of a phone, width by height
// A device at scale 1, with its edges.
constexpr double deviceHeight = 0.9, deviceWidth = 0.44;

// How a formation takes to a narrow frame.
struct Manner {
    double sizeExponent;   // 0 keeps the devices as large as they are, 1 makes them narrower with the frame
    double lift = 0;       // how far every other device goes up, and the rest down, in the narrowest frame
    double rise = 0;       // how much more the devices stand above each other there
};

const Manner& mannerOf(DeviceChoreographyPreset preset) {
    static constexpr std::array<Manner, 9> table{{{0.15, 0, 1}, {0.5}, {0.55, 0, 1}, {0.2, 0.33}, {0.5},
        {0.5}, {0.5}, {0.67}, {0.2, 0.5}}};   // in the order of the cases
    return table.at(static_cast<std::size_t>(preset));
}

// Half of what something covers where it stands, and how much nearness enlarges that and its way from the
// middle.
struct Footprint {
    double x = 0, y = 0, halfWidth = 0, halfHeight = 0;
    double nearness = 1;

    // What comes from outside or flies by is not.
    bool isMeantToBeSeen() const {
        constexpr double tallest = 0.6;
        return std::abs(x) < wideAspect / 2 && std::abs(y) < 0.5 && halfHeight * nearness <= tallest;
    }
    double reachX() const { return (std::abs(x) + halfWidth) * nearness; }
    double reachY() const { return (std::abs(y) + halfHeight) * nearness; }
};

struct Squeeze {
    double offset = 1, size = 1, rise = 1, lift = 0, shift = 0;
};

double sampled(const CompositionLayer& layer, AnimProperty property, double tSec, double otherwise) {
    return CompositionMath::sample(layer.tracks, property, tSec).value_or(otherwise);
}

bool isSeen(const CompositionLayer& layer, double tSec) {
    return sampled(layer, AnimProperty::opacity, tSec, 1) > 0;
}

// A device at depth 0.5 is seen as large as it says; at 1 the camera stands half as far away.
double nearnessOf(const DeviceContent& device, double tSec) {
    if (!device.scene3D) return 1;
    const double depth = DeviceDepthTrajectory::sample(device.scene3D->depthTrack, tSec).value_or(0.5);
    return 1 / std::max(1.5 - depth, 0.1);
}

// A rolled device is wider.
Footprint footprintOf(const DeviceContent& device, const DevicePlacementKeyframe& place) {
    double rollDeg = 0;
    if (device.scene3D)
        for (const DevicePoseKeyframe& pose : device.scene3D->poseTrack)
            rollDeg = std::max(rollDeg, std::abs(pose.tiltDegrees.z));
    const double rollRad = rollDeg * std::numbers::pi / 180;
    const double width = deviceWidth * place.scale / 2, height = deviceHeight * place.scale / 2;
    return {place.offset.x, place.offset.y, width * std::cos(rollRad) + height * std::sin(rollRad),
        height * std::cos(rollRad) + width * std::sin(rollRad), nearnessOf(device, place.tSec)};
}

// A card shows part of a phone's screen as tall as it says, or fills a rectangle of the canvas.
Footprint footprintOf(const CompositionLayer& card, double tSec, double aspect) {
    Footprint print{sampled(card, AnimProperty::x, tSec, 0), sampled(card, AnimProperty::y, tSec, 0)};
    const double scale = sampled(card, AnimProperty::scale, tSec, 1);
    if (const auto* const image = std::get_if<ImageContent>(&card.content)) {
        const NormalizedRect cut = image->sourceRect.value_or(NormalizedRect{0, 0, 1, 1});
        print.halfHeight = image->heightFraction.value_or(1) * scale / 2;
        print.halfWidth = print.halfHeight * screenAspect * cut.width / cut.height;
    } else if (const auto* const video = std::get_if<VideoContent>(&card.content)) {
        const NormalizedRect rect = video->rect.value_or(NormalizedRect{0, 0, 1, 1});
        print.halfWidth = rect.width * aspect * scale / 2;
        print.halfHeight = rect.height * scale / 2;
    }
    return print;
}

// Where a device is on its way from one place to the next: it lags behind, while its depth does not.
std::vector<DevicePlacementKeyframe> placesBetween(const DevicePlacementKeyframe& from,
    const DevicePlacementKeyframe& to, const DevicePlacementTrajectory& trajectory) {
    constexpr int steps = 16;
    constexpr double overshoot = 0.01;
    std::vector<DevicePlacementKeyframe> places;
    for (int i = 0; i < steps; ++i) {
        const double tSec = from.tSec + (to.tSec - from.tSec) * i / steps;
        const DevicePlacementTrajectory::Placement place = trajectory.sample(tSec);
        const auto isBetween = [&](double value, double a, double b) {
            return value >= std::min(a, b) - overshoot && value <= std::max(a, b) + overshoot;
        };
        if (isBetween(place.offset.x, from.offset.x, to.offset.x) &&
            isBetween(place.offset.y, from.offset.y, to.offset.y))
            places.push_back({tSec, place.offset, place.scale, {}, {}});
    }
    return places;
}

std::vector<Footprint> footprintsOf(const CompositionLayer& layer, const DeviceContent& device) {
    const auto& track = device.placement->track;
    const auto trajectory = DevicePlacementTrajectory::chasing(
        track, framesPerSec, {device.placement->responseSec, device.placement->damping});
    const auto isMeant = [&](const DevicePlacementKeyframe& place) {
        return isSeen(layer, place.tSec) && footprintOf(device, place).isMeantToBeSeen();
    };
    std::vector<Footprint> prints;
    for (std::size_t k = 0; k < track.size(); ++k) {
        if (!isMeant(track[k])) continue;
        prints.push_back(footprintOf(device, track[k]));
        if (k + 1 == track.size() || !isMeant(track[k + 1])) continue;
        for (const DevicePlacementKeyframe& place : placesBetween(track[k], track[k + 1], trajectory))
            prints.push_back(footprintOf(device, place));
    }
    return prints;
}

std::vector<Footprint> footprintsOf(const CompositionLayer& card, double aspect) {
    std::vector<Footprint> prints;
    for (const PropertyTrack& track : card.tracks)
        if (track.property == AnimProperty::x)
            for (const CompositionKeyframe& keyframe : track.keyframes)
                if (const Footprint print = footprintOf(card, keyframe.t, aspect);
                    isSeen(card, keyframe.t) && print.isMeantToBeSeen())
                    prints.push_back(print);
    return prints;
}

// Wherever something stands to be seen.
std::vector<Footprint> standsOf(const std::vector<CompositionLayer>& layers, double aspect) {
    std::vector<Footprint> stands;
    for (const CompositionLayer& layer : layers) {
        const auto* const device = std::get_if<DeviceContent>(&layer.content);
        std::ranges::copy(
            device ? footprintsOf(layer, *device) : footprintsOf(layer, aspect), std::back_inserter(stands));
    }
    return stands;
}

double sideOf(std::size_t layer) { return layer % 2 ? 1 : -1; }

// How far down to move everything, so that it reaches as far up as down.
double centring(const Squeeze& squeeze, const std::vector<Footprint>& stands) {
    const auto reach = [&](double shift, double side) {
        double most = 0;
        for (const Footprint& print : stands)
            most = std::max(most,
                (side * (print.y * squeeze.rise + shift) + print.halfHeight * squeeze.size) * print.nearness);
        return most;
    };
    double least = -0.5, most = 0.5;
    for (int halvings = 0; halvings < 30; ++halvings) {
        const double middle = (least + most) / 2;
        (reach(middle, 1) > reach(middle, -1) ? most : least) = middle;
    }
    return (least + most) / 2;
}

Squeeze squeezeInto(const Manner& manner, const std::vector<Footprint>& stands, double aspect) {
    const double mostX = aspect / 2 - sideMargin * std::min(aspect, 1.0), mostY = 0.5 - topMargin;
    double reachX = 0, reachY = 0, widest = 0;
    for (const Footprint& print : stands) {
        reachX = std::max(reachX, print.reachX());
        reachY = std::max(reachY, print.reachY());
        widest = std::max(widest, print.halfWidth * print.nearness);
    }
    Squeeze squeeze;
    if (reachX <= mostX && reachY <= mostY) return squeeze;
    squeeze.size = std::min(
        {std::pow(std::min(mostX / reachX, 1.0), manner.sizeExponent), mostX / widest, mostY / reachY});
    for (const Footprint& print : stands)
        if (print.x != 0)
            squeeze.offset = std::min(squeeze.offset,
                std::max(mostX / print.nearness - print.halfWidth * squeeze.size, 0.0) / std::abs(print.x));

    const double closeness = 1 - squeeze.offset;
    squeeze.rise = 1 + manner.rise * closeness;
    squeeze.lift = manner.lift * closeness;
    for (const Footprint& print : stands) {
        const double room = std::max(mostY / print.nearness - print.halfHeight * squeeze.size, 0.0);
        if (print.y != 0) squeeze.rise = std::min(squeeze.rise, room / std::abs(print.y));
        squeeze.lift = std::min(squeeze.lift, std::max(room - std::abs(print.y) * squeeze.rise, 0.0));
    }
    // Two rows stand in the middle as they are, and cards keep their heights.
    if (manner.rise > 0) squeeze.shift = centring(squeeze, stands);
    return squeeze;
}

// What comes from outside comes from just outside.
void apply(const Squeeze& squeeze, double aspect, std::size_t index, CompositionLayer& layer) {
    if (auto* const device = std::get_if<DeviceContent>(&layer.content)) {
        for (DevicePlacementKeyframe& place : device->placement->track) {
            const Footprint print = footprintOf(*device, place);
            const double mostX = aspect / 2 / print.nearness + print.halfWidth * squeeze.size;
            place.offset.x = std::clamp(place.offset.x * squeeze.offset, -mostX, mostX);
            if (print.isMeantToBeSeen())
                place.offset.y = place.offset.y * squeeze.rise + sideOf(index) * squeeze.lift + squeeze.shift;
            place.scale = std::max(place.scale * squeeze.size, leastPlacementScale);
        }
        return;
    }
    for (PropertyTrack& track : layer.tracks)
        for (CompositionKeyframe& keyframe : track.keyframes)
            if (track.property == AnimProperty::x || track.property == AnimProperty::scale)
                keyframe.value *= track.property == AnimProperty::x ? squeeze.offset : squeeze.size;
}

}   // namespace

void fitToFrame(
    DeviceChoreographyPreset preset, std::vector<CompositionLayer>& layers, const CompositionOutput& output) {
    const double aspect = std::max(static_cast<double>(output.widthPx), 1.0) /
                          std::max(static_cast<double>(output.heightPx), 1.0);
    const Squeeze squeeze = squeezeInto(mannerOf(preset), standsOf(layers, aspect), aspect);
    for (std::size_t i = 0; i < layers.size(); ++i) apply(squeeze, aspect, i, layers[i]);
}

}   // namespace tavix
