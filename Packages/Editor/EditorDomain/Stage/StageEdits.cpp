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

// As a picture is drawn at its own size until it has one on the canvas, there is nothing to multiply.
bool growImage(ImageContent& image, double factor) {
    if (!image.heightFraction) return false;
    *image.heightFraction *= factor;
    return true;
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

void moveLayer(CompositionLayer& layer, double dxPx, double dyPx) {
    layer.position.x += dxPx;
    layer.position.y += dyPx;
}

bool growLayer(CompositionLayer& layer, const StageGrowth& by, StageHandle handle) {
    StageGrowth used = by;
    const double even = handle.y == 0 ? by.across : by.down;
    if (auto* text = std::get_if<TextContent>(&layer.content)) {
        if (handle.y == 0) {
            text->maxWidthFraction = std::clamp(text->maxWidthFraction * by.across, leastGrowth, 1.0);
            return true;   // its middle stays: lines are set about it
        }
        text->sizeFraction *= even;
        text->maxWidthFraction = std::clamp(text->maxWidthFraction * even, leastGrowth, 1.0);
        used.across = even;
    } else if (auto* shape = std::get_if<ShapeContent>(&layer.content)) {
        shape->widthFraction *= by.across;
        shape->heightFraction *= by.down;
    } else if (auto* image = std::get_if<ImageContent>(&layer.content)) {
        if (!growImage(*image, even)) return false;
        used.across = used.down = even;
    } else if (auto* video = std::get_if<VideoContent>(&layer.content); video && video->rect) {
        video->rect->width *= by.across;
        video->rect->height *= by.down;
    } else {
        return false;
    }
    layer.position.x = used.about.x + (layer.position.x - used.about.x) * used.across;
    layer.position.y = used.about.y + (layer.position.y - used.about.y) * used.down;
    return true;
}

void turnLayer(CompositionLayer& layer, double degrees, double windowSec) {
    for (PropertyTrack& track : layer.tracks)
        if (track.property == AnimProperty::rotationDeg) {
            for (CompositionKeyframe& keyframe : track.keyframes) keyframe.value += degrees;
            return;
        }
    PropertyTrack track{AnimProperty::rotationDeg, {}};
    for (const double at : {0.0, windowSec}) {
        CompositionKeyframe keyframe;
        keyframe.t = at;
        keyframe.value = degrees;
        track.keyframes.push_back(keyframe);
    }
    layer.tracks.push_back(std::move(track));
}

}   // namespace tavix::StageEdits
