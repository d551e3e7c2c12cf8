#include "TavixAgent/Describe/LayerCourse.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace tavix {
namespace {

constexpr double sameOpacity = 0.002, samePx = 0.05;
constexpr double seenOpacity = 0.02, seenPixels = 1;

bool isSame(const imaging::Rect& a, const imaging::Rect& b) {
    return std::abs(a.x - b.x) <= samePx && std::abs(a.y - b.y) <= samePx &&
           std::abs(a.width - b.width) <= samePx && std::abs(a.height - b.height) <= samePx;
}

bool isSame(const LayerGeometry& a, const LayerGeometry& b) {
    return std::abs(a.opacity - b.opacity) <= sameOpacity &&
           std::ranges::equal(a.parts, b.parts,
               [](const Outline& one, const Outline& other) { return isSame(one.bounds(), other.bounds()); });
}

std::optional<LayerGeometry> seenAt(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t layer, double localSec) {
    auto drawn = geometry.layerAt(scene, layer, localSec);
    const bool isSeen = drawn && drawn->opacity >= seenOpacity &&
                        drawn->visibleBox.width * drawn->visibleBox.height >= seenPixels;
    return isSeen ? std::move(drawn) : std::nullopt;
}

}   // namespace

std::vector<StateSpan> courseOf(
    const CompositionGeometry& geometry, std::size_t scene, std::size_t layer, const CourseTimes& times) {
    std::vector<StateSpan> course;
    const auto count = std::int64_t(std::ceil((times.toSec - times.fromSec) / times.stepSec - 1e-6));
    auto now = seenAt(geometry, scene, layer, times.fromSec);
    for (std::int64_t i = 0; i < count; ++i) {
        const double sec = times.fromSec + double(i) * times.stepSec;
        const double end = std::min(sec + times.stepSec, times.toSec);
        auto next = seenAt(geometry, scene, layer, sec + times.stepSec);
        const bool isMoving = now && next && !isSame(*now, *next);
        const LayerState state = !now       ? LayerState::absent
                                 : isMoving ? LayerState::moving
                                            : LayerState::resting;
        if (course.empty() || course.back().state != state) course.push_back({state, sec, end});
        course.back().toSec = end;
        now = std::move(next);
    }
    return course;
}

}   // namespace tavix
