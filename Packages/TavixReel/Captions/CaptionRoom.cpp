#include "TavixReel/Captions/CaptionRoom.h"

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Document/ReelCanvas.h"

#include <algorithm>
#include <cmath>

namespace tavix::CaptionRoom {
namespace {

// Of the canvas height: a large line and the margin under it, or two lines where a canvas is as narrow as a
// phone.
double roomFractionOf(const EffectsSpec& spec) {
    constexpr double narrowAspect = 0.5, oneLine = 0.115, twoLines = 0.165;
    return double(spec.output.widthPx) < narrowAspect * double(spec.output.heightPx) ? twoLines : oneLine;
}

bool isUprightWithCaptions(const EffectsSpec& spec) {
    return spec.narration && !spec.narration->captions.empty() && !spec.output.isLandscape();
}

}   // namespace

void makeBelow(EffectsSpec& spec) {
    if (!isUprightWithCaptions(spec)) return;
    const double width = double(spec.output.widthPx), height = double(spec.output.heightPx);
    const PixelRect frame = CanvasGeometry::deviceFrameRect(spec);
    const double roomFraction = roomFractionOf(spec);
    // The device is as high as that lets it when either its height or its width leaves no more.
    const double deviceHeight = (1 - 2 * roomFraction) * height;
    const double byHeight = roomFraction * height;
    const double byWidth = (width - deviceHeight * frame.width / frame.height) / 2;
    spec.background.padding = std::max(spec.background.padding, std::ceil(std::min(byHeight, byWidth)));
}

void seatBelow(EffectsSpec& spec) {
    if (!isUprightWithCaptions(spec)) return;
    const CanvasGeometry::CanvasSize canvas{double(spec.output.widthPx), double(spec.output.heightPx)};
    const PixelRect frame = CanvasGeometry::deviceFrameRect(spec);
    for (Caption& caption : spec.narration->captions) {
        if (!caption.kinetic || caption.position) continue;
        const CaptionStyle style = spec.narration->styleOf(caption);
        const double wrapPx = std::max(canvas.widthPx - 2 * style.safeInsetFraction * canvas.heightPx, 1.0);
        const auto block =
            CanvasGeometry::blockSize(caption.text, style.fontSizeFraction, wrapPx, canvas.heightPx);
        // The estimate counts a line more than there is, above the text.
        const double textPx = block.heightPx - style.fontSizeFraction * canvas.heightPx;
        const auto place = CanvasGeometry::zonePlacement("lower", {block.widthPx, textPx}, frame, canvas);
        if (place.fits) caption.position = place.center;
    }
}

}   // namespace tavix::CaptionRoom
