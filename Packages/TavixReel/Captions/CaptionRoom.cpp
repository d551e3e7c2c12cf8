#include "TavixReel/Captions/CaptionRoom.h"

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Document/ReelCanvas.h"

#include <algorithm>
#include <cmath>

namespace tavix::CaptionRoom {
namespace {

constexpr double paddingFraction = 0.115;   // of the canvas height: a large line and the margin under it

bool isUprightWithCaptions(const EffectsSpec& spec) {
    return spec.narration && !spec.narration->captions.empty() && !spec.output.isLandscape();
}

}   // namespace

void makeBelow(EffectsSpec& spec) {
    if (!isUprightWithCaptions(spec)) return;
    spec.background.padding =
        std::max(spec.background.padding, std::round(paddingFraction * double(spec.output.heightPx)));
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
