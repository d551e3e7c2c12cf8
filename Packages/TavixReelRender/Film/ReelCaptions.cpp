#include "TavixReelRender/Film/ReelCaptions.h"

#include "TavixReel/Choreography/SideCaptionChoreography.h"
#include "TavixRender/Typesetting/CaptionLayout.h"

namespace tavix {

namespace {

// Fonts that are not there are told; others stand in for them.
void tellOfFonts(const Narration& narration, const LayerBuild& build) {
    constexpr double anySizePx = 16;
    if (!build.log) return;
    for (const Caption& caption : narration.captions)
        if (const auto note =
                CaptionLayout::resolveFont(narration.styleOf(caption), anySizePx, build.fonts).note)
            build.log(Finding::warning(RenderCode::fontMissing, *note));
}

// The captions of one kind, with everything else of the narration.
Narration only(const Narration& narration, bool moving) {
    Narration part = narration;
    std::erase_if(
        part.captions, [moving](const Caption& caption) { return caption.kinetic.has_value() != moving; });
    return part;
}

}   // namespace

ReelCaptions::ReelCaptions(const EffectsSpec& spec, const LayerBuild& build) {
    if (!spec.narration) return;
    Narration narration = *spec.narration;
    // Beside a device that has stepped aside there is room for a plain caption without a place of its own.
    for (Caption& caption : narration.captions)
        if (!caption.kinetic && !caption.position)
            caption.position = SideCaptionChoreography::effectivePosition(caption.window, spec);
    tellOfFonts(narration, build);
    const imaging::Size canvas{int(build.bounds.width), int(build.bounds.height)};
    plain_ = CaptionOverlay::make(only(narration, false), canvas, build.fonts, build.evaluator);
    moving_ = KineticTextOverlay::make(
        only(narration, true), canvas, build.framesPerSec, build.fonts, build.evaluator);
}

}   // namespace tavix
