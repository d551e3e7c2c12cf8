// A phone whose screen throws out cards, pieces of that screen, and takes them back.
#include "TavixCore/Choreography/Formations.h"

#include <algorithm>
#include <array>
#include <variant>

namespace tavix::Formations {
namespace {

using namespace FormationParts;

constexpr double cornerRadiusFraction = 0.075;
constexpr double cardWidthFraction = 0.36;

// A piece of the screen, and how tall its card is in canvas heights.
struct Cut {
    NormalizedRect sourceRect;
    double heightFraction;
};
constexpr std::array<Cut, 4> cuts{{{{0, 0, 1, 0.22}, 0.1}, {{0, 0.2, 1, 0.3}, 0.135},
    {{0, 0.47, 1, 0.3}, 0.135}, {{0, 0.74, 1, 0.26}, 0.11}}};

CompositionLayer phone(const Formation& f) {
    const double d = f.sideways, aside = -0.105 * d;
    MotionScript script{.motionBlur = 0.28,
        .poses = {{0, {10, -40 * d, -4 * d}}, {0.72, {4, -12 * d, -d}}, {1.08, {2, 0, 0}}, {2.35, {2, 0, 0}},
            {2.75, {5, 14 * d, 2 * d}}, {3.2, {9, 34 * d, 4 * d}}},
        .depths = {{0, 0.3}, {1.08, 0.68}, {2.35, 0.68}, {3.2, 0.32}},
        .places = {
            {0, 0, 0.03, 0.42}, {1.08, aside, 0.04, 0.4}, {2.35, aside, 0.04, 0.4}, {3.2, 0, 0.03, 0.42}}};
    return deviceLayer(f, 0, "burst-phone", makeMotion(std::move(script), f.durationSec, f.referenceSec));
}

std::vector<PropertyTrack> cardTracks(const Formation& f, int k) {
    const double w = f.staggerSecWithin(0.48 / std::max(f.count - 1, 1)) * k, out = w + 1.18;
    const double reach = std::min(f.spread, 1.15);
    const double homeX = -0.075 * f.sideways, x = f.sideways * (0.15 + 0.012 * (k % 2)) * reach;
    const double y = reach * 0.24 * f.linePosition(k);
    const double scale = 0.92 + 0.08 * f.intensity, tiltDeg = (k % 2 ? 1.5 : -1.5) * f.sideways;
    const auto made = [&](AnimProperty property, const std::vector<TrackPoint>& points) {
        return track(property, points, f.durationSec, f.referenceSec);
    };
    // Out of the phone, and back into it.
    const auto thereAndBack = [&](AnimProperty property, double home, double away) {
        return made(
            property, {{0, home}, {0.58, home}, {out, away}, {2.35, away}, {2.88, home}, {3.2, home}});
    };
    return {
        made(AnimProperty::opacity, {{0, 0}, {w + 0.62, 0}, {w + 0.98, 1}, {2.42, 1}, {2.72, 0}, {3.2, 0}}),
        thereAndBack(AnimProperty::x, homeX, x), thereAndBack(AnimProperty::y, 0.04, y),
        thereAndBack(AnimProperty::scale, 0.16, scale),
        made(AnimProperty::rotationDeg, {{0, 0}, {out, tiltDeg}, {2.35, tiltDeg}, {2.88, 0}})};
}

LayerContent cardContent(const ScreenSource& screen, const Cut& cut) {
    if (const auto* const still = std::get_if<StillScreen>(&screen))
        return ImageContent{still->path, cut.heightFraction, cornerRadiusFraction, cut.sourceRect};
    VideoContent video;
    if (const auto* const reel = std::get_if<ReelClip>(&screen))
        video.clip.path = reel->recordingPath();
    else
        video.clip = std::get<VideoClip>(screen);
    video.clip.trimStartMark.reset();   // which a video layer never has
    video.rect = NormalizedRect{
        0.5 - cardWidthFraction / 2, 0.5 - cut.heightFraction / 2, cardWidthFraction, cut.heightFraction};
    video.cornerRadiusFraction = cornerRadiusFraction;
    video.sourceRect = cut.sourceRect;
    return video;
}

CompositionLayer card(const Formation& f, int k) {
    CompositionLayer layer = f.source;
    layer.id = suffixed(layer.id, "burst-card-" + std::to_string(k));
    layer.position = {static_cast<double>(f.output.widthPx) / 2, static_cast<double>(f.output.heightPx) / 2};
    layer.durationSec = f.durationSec;
    layer.tracks = cardTracks(f, k);
    layer.content = cardContent(f.screenOf(k), cuts[static_cast<std::size_t>(k) % cuts.size()]);
    return layer;
}

}   // namespace

CompositionLayer uiBurst(const Formation& f, int k) { return k == 0 ? phone(f) : card(f, k - 1); }

}   // namespace tavix::Formations
