// A reel made ready to be drawn: its recording, its document and its clock. It answers any time of the
// finished reel with a lazy picture; times that rise are answered without a seek.
#pragma once

#include "TavixCore/Document/FrameRate.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReelRender/Film/ReelRenderer.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Assets/StillImageCache.h"
#include "TavixRender/Composition2D/RecordingPictures.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class ReelFilm {
public:
    // What gives transitions their pictures of the recording.
    using TransitionPictures =
        std::function<std::vector<TransitionInput>(const EffectsSpec&, const ReelFootage&, const RenderLog&)>;

    // Relative paths of the document belong to `assetRoot`. The evaluator draws what does not change in time,
    // here and now, and must outlive this. Throws `Failure` when there is nothing to show, or a picture that
    // a transition starts from or ends at cannot be read.
    ReelFilm(const EffectsSpec& spec, const ReelFootage& footage,
        const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
        const RenderLog& log,
        const TransitionPictures& transitionPictures = RecordingPictures::transitionInputs);
    ~ReelFilm();

    // Lengths of segments are summed up, so a frame that stands on a boundary may seem to lie just before it.
    static constexpr double roundingSec = 1e-7;

    // What it plays, in order. Throws `Failure` when there is nothing to show.
    static std::vector<ReelTimeline::ReelSegment> segmentsOf(
        const EffectsSpec& spec, const ReelFootage& footage);

    imaging::Size size() const { return size_; }
    double durationSec() const { return durationSec_; }

    // At a time of the finished reel. Where a cut or a card is, the later of both sides is shown.
    imaging::Image frame(double compositionSec);

    // Turns a device in space to another rest, without anything being built anew.
    void turnDevice(const Vector3& tiltDegrees) { renderer_->turnDevice(tiltDegrees); }

private:
    imaging::Size size_;
    double durationSec_ = 0;
    std::vector<ReelTimeline::ReelSegment> segments_;
    RenderLog log_;
    text::FontBook fonts_;
    StillImageCache images_;
    RecordingPictures recording_;
    std::optional<ReelRenderer> renderer_;
};

}   // namespace tavix
