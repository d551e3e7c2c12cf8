// A reel made ready to be drawn: its recording, its document and its clock. It answers any time of the
// finished reel with a lazy picture; times that rise are answered without a seek.
#pragma once

#include "TavixCore/Document/FrameRate.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Time/ReelTimeline.h"
#include "TavixReelRender/Film/PacedFootage.h"
#include "TavixReelRender/Film/ReelRenderer.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Assets/StillImageCache.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavix {

// The part of a recording that a reel is made of.
struct ReelFootage {
    std::filesystem::path video;
    imaging::Size size;                        // as it is seen, in pixels
    double durationSec = 0;                    // of the whole file
    double trimStartSec = 0, trimEndSec = 0;   // of the reel in it; more than there is counts for its end
};

// Used by one thread at a time.
class ReelFilm {
public:
    // Relative paths of the document belong to `assetRoot`. The evaluator draws what does not change in time,
    // here and now, and must outlive this. Throws `Failure` when there is nothing to show, or a picture that
    // a transition starts from or ends at cannot be read.
    ReelFilm(const EffectsSpec& spec, const ReelFootage& footage,
        const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
        const RenderLog& log);
    ~ReelFilm();

    imaging::Size size() const { return size_; }
    double durationSec() const { return durationSec_; }
    std::size_t segmentCount() const { return segments_.size(); }

    // At a time of the finished reel. Where a cut or a card is, the later of both sides is shown.
    imaging::Image frame(double compositionSec);

private:
    std::vector<TransitionInput> transitionInputs(const EffectsSpec& spec, const ReelFootage& footage);
    std::optional<imaging::Image> picture(double preCutSec);
    std::optional<imaging::Image> mixture(double preCutSec);

    imaging::Size size_;
    double trimStartSec_ = 0, durationSec_ = 0, frameSec_ = 0;
    std::vector<ReelTimeline::ReelSegment> segments_;
    RenderLog log_;
    text::FontBook fonts_;
    StillImageCache images_;
    SequentialClipReader recording_;
    std::optional<PacedFootage> paced_;   // of a document that wants retimed footage mixed
    std::optional<ReelRenderer> renderer_;
};

// The clock of the reel, without opening its recording; nothing in it when everything is cut.
std::vector<ReelTimeline::ReelSegment> reelSegments(const EffectsSpec& spec, const ReelFootage& footage);

}   // namespace tavix
