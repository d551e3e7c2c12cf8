#include "TavixReel/Camera/CameraTransform.h"

#include <algorithm>

namespace tavix::CameraTransform {

CameraSample sample(double atSec, std::span<const CameraKeyframe> track) {
    const auto still = [](const CameraKeyframe& keyframe) {
        return CameraSample{keyframe.scale, keyframe.centerPx};
    };
    if (track.empty()) return {};
    if (track.size() == 1 || atSec <= track.front().tSec) return still(track.front());
    if (atSec >= track.back().tSec) return still(track.back());

    const auto next =
        std::ranges::find_if(track, [atSec](const CameraKeyframe& k) { return k.tSec >= atSec; });
    const CameraKeyframe &b = *next, &a = *(next - 1);
    const double spanSec = b.tSec - a.tSec;
    const double eased = apply(b.easing, spanSec > 0 ? (atSec - a.tSec) / spanSec : 1);
    const auto blended = [eased](double from, double to) { return from + (to - from) * eased; };
    return {blended(a.scale, b.scale),
        {blended(a.centerPx.x, b.centerPx.x), blended(a.centerPx.y, b.centerPx.y)}};
}

CameraFrameTransform frameTransform(
    double sourceWidthPx, double sourceHeightPx, const PixelRect& content, const CameraSample& camera) {
    const double scale = std::max(content.width / sourceWidthPx, content.height / sourceHeightPx) *
                         std::max(camera.scale, 1.0);
    // The upper bound comes last, so that rounding never shows the near edge.
    const auto placed = [scale](double start, double length, double sourceLength, double focal) {
        const double centred = length / 2 + start - scale * focal;
        return std::min(start, std::max(start + length - scale * sourceLength, centred));
    };
    return {scale, placed(content.x, content.width, sourceWidthPx, camera.center.x),
        placed(content.y, content.height, sourceHeightPx, camera.center.y)};
}

}   // namespace tavix::CameraTransform
