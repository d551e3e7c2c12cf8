#include "Editor/EditorDomain/Stage/StageEdits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace tavix::StageEdits {

namespace {

constexpr double leastGrowth = 0.05;

struct Pull {
    double byPx = 0, atPx = 0;
};

// The shortest way of one of three places to one of many lines.
std::optional<Pull> nearest(
    const std::array<double, 3>& places, const std::vector<double>& lines, double tolerancePx) {
    std::optional<Pull> found;
    for (const double line : lines)
        for (const double place : places) {
            const double by = line - place;
            if (std::abs(by) < tolerancePx && (!found || std::abs(by) < std::abs(found->byPx)))
                found = Pull{by, line};
        }
    return found;
}

std::array<double, 3> across(const PixelRect& box) { return {box.x, box.center().x, box.maxX()}; }
std::array<double, 3> down(const PixelRect& box) { return {box.y, box.center().y, box.maxY()}; }

// Calls change with every value of a property's track; without one it gets a track that rests.
template <class Change>
void changeTrack(
    CompositionLayer& layer, AnimProperty property, double rest, double windowSec, Change change) {
    auto track = std::ranges::find(layer.tracks, property, &PropertyTrack::property);
    if (track == layer.tracks.end()) {
        CompositionKeyframe first, last;
        first.value = last.value = rest;
        last.t = windowSec;
        layer.tracks.push_back({property, {first, last}});
        track = layer.tracks.end() - 1;
    }
    for (CompositionKeyframe& keyframe : track->keyframes) change(keyframe.value);
}

void shiftTrack(CompositionLayer& layer, AnimProperty property, double by, double windowSec) {
    changeTrack(layer, property, 0, windowSec, [by](double& value) { value += by; });
}

void scaleTrack(CompositionLayer& layer, AnimProperty property, double by, double windowSec) {
    changeTrack(layer, property, 1, windowSec, [by](double& value) { value *= by; });
}

NormalizedRect& rectOf(VideoContent& video) {
    if (!video.rect) video.rect = NormalizedRect{0, 0, 1, 1};
    return *video.rect;
}

// Where a place goes to, so that what is shown about it grows about another one.
double carried(double place, double about, double by, double shift) {
    return about + by * (place - about) + (by - 1) * shift;
}

// A fill covers the canvas whatever its position, which is what it is scaled about: the one place that stays
// where both scales, one after the other, leave it. Where it comes back to its own size there is none.
double anchorOfBoth(double anchor, double scale, double shift, double about, double by) {
    const double both = 1 - by * scale;
    if (std::abs(both) < 1e-6) return anchor;
    return (about * (1 - by) + by * anchor * (1 - scale) + (by - 1) * shift) / both;
}

void growFill(CompositionLayer& layer, const StageGrowth& by, const StageStand& stand) {
    layer.position.x = anchorOfBoth(layer.position.x, stand.across, stand.shiftPx.x, by.about.x, by.across);
    layer.position.y = anchorOfBoth(layer.position.y, stand.down, stand.shiftPx.y, by.about.y, by.down);
    scaleTrack(layer, AnimProperty::scaleX, by.across, stand.windowSec);
    scaleTrack(layer, AnimProperty::scaleY, by.down, stand.windowSec);
}

}   // namespace

SnappedMove snappedMove(const PixelRect& box, double dxPx, double dyPx, const PixelRect& canvas,
    const std::vector<PixelRect>& others, double tolerancePx) {
    std::vector<double> vertical, horizontal;
    const auto add = [&](const PixelRect& rect) {
        for (const double x : across(rect)) vertical.push_back(x);
        for (const double y : down(rect)) horizontal.push_back(y);
    };
    add(canvas);
    for (const PixelRect& other : others) add(other);
    SnappedMove move{dxPx, dyPx, {}};
    const PixelRect moved{box.x + dxPx, box.y + dyPx, box.width, box.height};
    if (const auto pull = nearest(across(moved), vertical, tolerancePx)) {
        move.dxPx += pull->byPx;
        move.guides.push_back({StageGuide::Axis::vertical, pull->atPx});
    }
    if (const auto pull = nearest(down(moved), horizontal, tolerancePx)) {
        move.dyPx += pull->byPx;
        move.guides.push_back({StageGuide::Axis::horizontal, pull->atPx});
    }
    return move;
}

StageGrowth growth(const PixelRect& box, StageHandle handle, double dxPx, double dyPx) {
    StageGrowth by;
    by.about = {handle.x > 0   ? box.x
                : handle.x < 0 ? box.maxX()
                               : box.center().x,
        handle.y > 0   ? box.y
        : handle.y < 0 ? box.maxY()
                       : box.center().y};
    const double wide = std::max(box.width, 1.0), high = std::max(box.height, 1.0);
    by.across = std::max(1 + handle.x * dxPx / wide, leastGrowth);
    by.down = std::max(1 + handle.y * dyPx / high, leastGrowth);
    if (handle.isCorner()) {   // along the diagonal that the corner lies on
        const double along = (handle.x * dxPx * wide + handle.y * dyPx * high) / (wide * wide + high * high);
        by.across = by.down = std::max(1 + along, leastGrowth);
    }
    return by;
}

PixelRect grown(const PixelRect& box, const StageGrowth& by) {
    return {by.about.x + (box.x - by.about.x) * by.across, by.about.y + (box.y - by.about.y) * by.down,
        box.width * by.across, box.height * by.down};
}

void moveLayer(CompositionLayer& layer, double dxPx, double dyPx, const StageStand& stand) {
    if (std::holds_alternative<BackgroundFill>(layer.content)) {
        shiftTrack(layer, AnimProperty::x, dxPx / stand.canvasHeightPx, stand.windowSec);
        shiftTrack(layer, AnimProperty::y, dyPx / stand.canvasHeightPx, stand.windowSec);
        return;
    }
    layer.position.x += dxPx;
    layer.position.y += dyPx;
    if (auto* video = std::get_if<VideoContent>(&layer.content)) {
        NormalizedRect& rect = rectOf(*video);
        rect.x += dxPx / stand.canvasWidthPx;
        rect.y += dyPx / stand.canvasHeightPx;
    }
}

void growLayer(CompositionLayer& layer, const StageGrowth& by, StageHandle handle, const StageStand& stand) {
    StageGrowth used = by;
    const double even = handle.y == 0 ? by.across : by.down;
    if (std::holds_alternative<BackgroundFill>(layer.content)) return growFill(layer, by, stand);
    if (auto* text = std::get_if<TextContent>(&layer.content)) {
        text->maxWidthFraction =
            std::clamp(text->maxWidthFraction * (handle.y == 0 ? by.across : even), leastGrowth, 1.0);
        if (handle.y == 0) return;   // its middle stays: lines are set about it
        text->sizeFraction *= even;
        used.across = even;
    } else if (auto* shape = std::get_if<ShapeContent>(&layer.content)) {
        shape->widthFraction *= by.across;
        shape->heightFraction *= by.down;
    } else if (auto* image = std::get_if<ImageContent>(&layer.content)) {
        if (!image->heightFraction) image->heightFraction = stand.heightFraction;
        if (!image->heightFraction) return;   // its file is not there
        *image->heightFraction *= even;
        used.across = used.down = even;
    } else if (!std::holds_alternative<VideoContent>(layer.content)) {
        return;
    }
    const PixelPoint before = layer.position;
    layer.position = {carried(before.x, used.about.x, used.across, stand.shiftPx.x),
        carried(before.y, used.about.y, used.down, stand.shiftPx.y)};
    if (auto* video = std::get_if<VideoContent>(&layer.content)) {
        NormalizedRect& rect = rectOf(*video);
        const auto about = [](double edge, double size, double from, double to, double factor) {
            return (to + factor * (edge * size - from)) / size;
        };
        rect.x = about(rect.x, stand.canvasWidthPx, before.x, layer.position.x, used.across);
        rect.y = about(rect.y, stand.canvasHeightPx, before.y, layer.position.y, used.down);
        rect.width *= used.across;
        rect.height *= used.down;
    }
}

void turnLayer(CompositionLayer& layer, double degrees, double windowSec) {
    shiftTrack(layer, AnimProperty::rotationDeg, degrees, windowSec);
}

}   // namespace tavix::StageEdits
