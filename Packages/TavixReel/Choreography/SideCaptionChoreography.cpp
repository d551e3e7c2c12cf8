#include "TavixReel/Choreography/SideCaptionChoreography.h"

#include "TavixCore/Device/DeviceSceneProjection.h"
#include "TavixCore/Document/TransitionMath.h"
#include "TavixCore/Support/Names.h"
#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Document/ReelCanvas.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace tavix::SideCaptionChoreography {
namespace {

using ChoreographyAuthor::moveLeadSec;
using ChoreographyAuthor::placementSpring;
using Track = std::vector<DevicePlacementKeyframe>;

constexpr std::string_view entranceTag = "hero-rise", exitTag = "exit-up";

bool isAutoTag(const std::optional<std::string>& move) {
    return move == nameOf(PhoneMove::center) || move == nameOf(PhoneMove::parkLeft) ||
           move == nameOf(PhoneMove::parkRight);
}

ChoreographyAuthor::CanvasSize canvasOf(const EffectsSpec& spec) {
    return {double(spec.output.widthPx), double(spec.output.heightPx)};
}

// The side at which the device parks for a cluster.
PhoneMove sideOf(std::size_t cluster, bool firstParkLeft) {
    return firstParkLeft == (cluster % 2 == 0) ? PhoneMove::parkLeft : PhoneMove::parkRight;
}

double latestEndSec(const std::vector<std::size_t>& cluster, std::span<const TimeRangeSec> windows) {
    double endSec = -std::numeric_limits<double>::infinity();
    for (const std::size_t i : cluster) endSec = std::max(endSec, windows[i].endSec);
    return endSec;
}

// A move at a time that no transition covers, or after a few tries the last time tried.
double clearTimeSec(
    const TimedMove& move, std::span<const TimeRangeSec> blocked, double settleSec, double minKeyframeSec) {
    constexpr int mostTries = 4;
    double startSec = move.startSec;
    for (int i = 0; i < mostTries; ++i) {
        const double fromSec = std::max(startSec - moveLeadSec, minKeyframeSec);
        const auto hit = std::ranges::find_if(blocked, [&](const TimeRangeSec& span) {
            return fromSec < span.endSec && span.startSec < fromSec + settleSec;
        });
        if (hit == blocked.end()) return startSec;
        const double afterSec = hit->endSec + moveLeadSec;
        startSec = move.move == PhoneMove::center ? afterSec : hit->startSec - settleSec + moveLeadSec;
        if (startSec - moveLeadSec < minKeyframeSec) startSec = afterSec;
    }
    return startSec;
}

}   // namespace

bool isSpliceTag(std::string_view move) { return move == entranceTag || move == exitTag; }

std::vector<std::vector<std::size_t>> clusters(std::span<const TimeRangeSec> windows, double gapSec) {
    std::vector<std::size_t> order(windows.size());
    for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return windows[i].startSec; });

    std::vector<std::vector<std::size_t>> gathered;
    double runningEndSec = -std::numeric_limits<double>::infinity();
    for (const std::size_t i : order) {
        if (gathered.empty() || windows[i].startSec - runningEndSec > gapSec) gathered.emplace_back();
        gathered.back().push_back(i);
        runningEndSec = std::max(runningEndSec, windows[i].endSec);
    }
    return gathered;
}

std::vector<TimedMove> moves(std::span<const TimeRangeSec> windows, double gapSec, bool firstParkLeft) {
    std::vector<TimedMove> all;
    const auto gathered = clusters(windows, gapSec);
    for (std::size_t i = 0; i < gathered.size(); ++i) {
        all.push_back({windows[gathered[i].front()].startSec, sideOf(i, firstParkLeft)});
        all.push_back(
            {latestEndSec(gathered[i], windows) + centerReturnDelaySec + moveLeadSec, PhoneMove::center});
    }
    return all;
}

std::vector<TimedMove> avoidTransitions(
    std::vector<TimedMove> moves, std::span<const ScreenTransition> transitions, double minKeyframeSec) {
    constexpr double clearanceSec = 0.1;
    std::vector<TimeRangeSec> blocked;
    for (const ScreenTransition& transition : transitions)
        blocked.push_back({transition.atSec - clearanceSec, transition.revealSec + clearanceSec});
    const double settleSec =
        TransitionMath::springSettleDurationSec(placementSpring.responseSec, placementSpring.damping);
    for (TimedMove& move : moves) move.startSec = clearTimeSec(move, blocked, settleSec, minKeyframeSec);
    return moves;
}

std::vector<TimedMove> planMoves(std::span<const TimeRangeSec> windows, const SideCaptionSettings& settings,
    std::span<const ScreenTransition> transitions, Opening opening) {
    constexpr double leastFloorSec = 0.5, afterRiseSec = 0.05;
    const double floorSec = opening == Opening::risingFromBelow
                                ? TeaserChoreography::heroRise().durationSec + moveLeadSec + afterRiseSec
                                : leastFloorSec;
    std::vector<TimedMove> planned = moves(windows, settings.gapSec, settings.firstParkLeft);
    for (TimedMove& move : planned) move.startSec = std::max(move.startSec, floorSec);
    // The device stands aside from the opening on.
    const auto first =
        std::ranges::find_if(planned, [](const TimedMove& move) { return move.move != PhoneMove::center; });
    if (first != planned.end()) first->startSec = floorSec;
    return avoidTransitions(std::move(planned), transitions, floorSec - moveLeadSec);
}

bool isAutoTrack(const std::optional<DevicePlacementSpec>& placement) {
    return !placement || std::ranges::all_of(placement->track, isAutoTag, &DevicePlacementKeyframe::move);
}

std::optional<PhoneMove> parkMove(
    std::span<const DevicePlacementKeyframe> keyframes, const TimeRangeSec& duringWindow) {
    const double middleSec = (duringWindow.startSec + duringWindow.endSec) / 2;
    const DevicePlacementKeyframe* latest = nullptr;
    for (const DevicePlacementKeyframe& keyframe : keyframes)
        if (keyframe.tSec <= middleSec && (!latest || keyframe.tSec > latest->tSec)) latest = &keyframe;
    const auto move = latest && latest->move ? named<PhoneMove>(*latest->move) : std::nullopt;
    return move == PhoneMove::parkLeft || move == PhoneMove::parkRight ? move : std::nullopt;
}

double parkedMarginCenterX(PhoneMove park, const EffectsSpec& spec) {
    constexpr double nearest = 0.05, furthest = 0.95;
    const auto canvas = canvasOf(spec);
    const auto placed = ChoreographyAuthor::resolvePlacement(park, canvas);
    const double scale = std::max(placed.scale, leastPlacementScale);
    const double widthPx = std::max(canvas.widthPx, 1.0);
    double left, width;   // of the device, as fractions of the canvas width
    if (spec.deviceScene && spec.deviceScene->enabled) {
        const NormalizedRect device = DeviceSceneProjection::deviceRect(
            {placed.offsetX, placed.offsetY}, scale, {canvas.widthPx, canvas.heightPx});
        left = device.x;
        width = device.width;
    } else {
        const PixelRect frame = CanvasGeometry::deviceFrameRect(spec);
        width = scale * frame.width / widthPx;
        left =
            (scale * frame.x + placed.offsetX * canvas.heightPx + (1 - scale) * (frame.x + frame.width / 2)) /
            widthPx;
    }
    const double center = park == PhoneMove::parkLeft ? (left + width + 1) / 2 : left / 2;
    return std::clamp(center, nearest, furthest);
}

std::optional<NormalizedPoint> effectivePosition(const TimeRangeSec& window, const EffectsSpec& spec) {
    if (!spec.output.isLandscape() || !spec.devicePlacement()) return std::nullopt;
    const auto park = parkMove(spec.devicePlacement()->track, window);
    return park ? std::optional(NormalizedPoint{parkedMarginCenterX(*park, spec), 0.5}) : std::nullopt;
}

std::string_view defaultKineticZone(
    std::size_t captionIndex, std::span<const TimeRangeSec> windows, const EffectsSpec& spec) {
    constexpr std::string_view usual = "lower";
    const auto& settings = spec.sideCaptions;
    if (!spec.output.isLandscape() || !settings || !settings->enabled) return usual;
    const auto gathered = clusters(windows, settings->gapSec);
    for (std::size_t c = 0; c < gathered.size(); ++c)
        if (std::ranges::find(gathered[c], captionIndex) != gathered[c].end())
            return sideOf(c, settings->firstParkLeft) == PhoneMove::parkLeft ? "right" : "left";
    return usual;
}

std::string seed(const Narration& narration) {
    std::string joined;
    for (std::size_t i = 0; i < narration.captions.size(); ++i)
        joined.append(i ? "|" : "").append(narration.captions[i].text);
    return joined;
}

bool seededFirstParkLeft(std::string_view seed) { return SeededRandom(seed).nextBool(); }

void replanForLandscape(EffectsSpec& spec) {
    if (!spec.output.isLandscape() || !spec.sideCaptions || !spec.sideCaptions->enabled || !spec.narration ||
        spec.narration->captions.empty())
        return;
    const Track old = spec.devicePlacement() ? spec.devicePlacement()->track : Track{};
    const auto isSpliced = [](const DevicePlacementKeyframe& key) {
        return key.move && isSpliceTag(*key.move);
    };
    for (const DevicePlacementKeyframe& key : old)
        if (!isAutoTag(key.move) && !isSpliced(key)) return;   // set by hand

    double fromSec = 0, toSec = std::numeric_limits<double>::infinity();
    for (const DevicePlacementKeyframe& key : old) {
        if (key.move == entranceTag) fromSec = TeaserChoreography::heroRise().durationSec;
    }
    if (const auto exit = std::ranges::find(old, std::string(exitTag), &DevicePlacementKeyframe::move);
        exit != old.end())
        toSec = exit->tSec;
    const Opening opening = fromSec > 0 ? Opening::risingFromBelow : Opening::standing;
    const auto planned =
        planMoves(spec.narration->windows(), *spec.sideCaptions, spec.transitions(), opening);
    Track track;
    for (DevicePlacementKeyframe& key : ChoreographyAuthor::placementTrack(planned, opening, canvasOf(spec)))
        if (key.tSec >= fromSec && key.tSec < toSec) track.push_back(std::move(key));
    std::ranges::copy_if(old, std::back_inserter(track), isSpliced);
    spec.setDevicePlacement(
        DevicePlacementSpec{std::move(track), placementSpring.responseSec, placementSpring.damping});
    reseatKineticBesideParks(spec);
}

void resetForPortrait(EffectsSpec& spec) {
    constexpr double middleTolerance = 0.01, marginFraction = 0.04;
    if (spec.devicePlacement()) {
        DevicePlacementSpec placement = *spec.devicePlacement();
        if (std::erase_if(placement.track, [](const auto& key) { return isAutoTag(key.move); }) > 0)
            spec.setDevicePlacement(std::move(placement));
    }
    if (!spec.narration) return;
    const double height = double(spec.output.heightPx);
    const double below =
        (CanvasGeometry::deviceFrameRect(spec).maxY() + height - marginFraction * height) / (2 * height);
    for (Caption& caption : spec.narration->captions)
        if (caption.kinetic && caption.position && std::abs(caption.position->y - 0.5) <= middleTolerance)
            caption.position = NormalizedPoint{0.5, below};
}

void reseatKineticBesideParks(EffectsSpec& spec) {
    if (!spec.sideCaptions || !spec.narration) return;
    const auto gathered = clusters(spec.narration->windows(), spec.sideCaptions->gapSec);
    for (std::size_t c = 0; c < gathered.size(); ++c) {
        const double x = parkedMarginCenterX(sideOf(c, spec.sideCaptions->firstParkLeft), spec);
        for (const std::size_t i : gathered[c])
            if (Caption& caption = spec.narration->captions[i]; caption.kinetic)
                caption.position = NormalizedPoint{x, 0.5};
    }
}

}   // namespace tavix::SideCaptionChoreography
