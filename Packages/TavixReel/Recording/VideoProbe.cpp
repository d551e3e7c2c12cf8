#include "TavixReel/Recording/VideoProbe.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {
namespace {

// The hold of the flash, and a frame and a half that a coder may smear it over.
double clearanceSec(double fps) {
    constexpr double holdSec = 0.06, smearedFrames = 1.5;
    return holdSec + smearedFrames / fps;
}

}   // namespace

double VideoProbe::trimStartSec() const { return syncEndSeconds ? *syncEndSeconds + clearanceSec(fps) : 0; }

double VideoProbe::trimEndSec(double rawDurationSec) const {
    if (!endFlashStartSeconds) return rawDurationSec;
    return std::min(rawDurationSec, std::max(*endFlashStartSeconds - clearanceSec(fps), trimStartSec()));
}

std::optional<double> VideoProbe::flashSpanSec() const {
    if (!syncSeconds || !endFlashStartSeconds) return std::nullopt;
    return *endFlashStartSeconds - *syncSeconds;
}

const Fields<VideoProbe>& fieldsOf(std::type_identity<VideoProbe>) {
    using P = VideoProbe;
    static const Fields<P> table{"VideoProbe",
        {field<&P::widthPx>("widthPx", "How wide the video is.").measuredIn(Unit::pixels),
            field<&P::heightPx>("heightPx", "How high the video is.").measuredIn(Unit::pixels),
            field<&P::fps>("fps", "Its frames per second.").measuredIn(Unit::hertz),
            field<&P::syncSeconds>("syncSeconds", "When the flash at the go starts.")
                .measuredIn(Unit::seconds),
            field<&P::syncEndSeconds>("syncEndSeconds", "When it is over.").measuredIn(Unit::seconds),
            field<&P::endFlashStartSeconds>("endFlashStartSeconds", "When the flash at the end starts.")
                .measuredIn(Unit::seconds),
            field<&P::endFlashEndSeconds>("endFlashEndSeconds", "When it is over.").measuredIn(Unit::seconds),
            field<&P::markBlipSeconds>("markBlipSeconds", "When marks appear in the corner.")
                .measuredIn(Unit::seconds),
            field<&P::isDamaged>("isDamaged", "Whether pictures are missing or broken, or it ends too early.")
                .unlessDefault()}};
    return table;
}

}   // namespace tavix
