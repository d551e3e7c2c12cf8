#include "TavixReelRender/Film/ReelFilm.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <algorithm>
#include <limits>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;

imaging::Size canvasOf(const EffectsOutput& output) {
    const auto side = [](std::int64_t px) {
        return static_cast<int>(std::clamp<std::int64_t>(px, 0, std::numeric_limits<int>::max()));
    };
    return {side(output.widthPx), side(output.heightPx)};
}

bool needsRecording(const std::vector<ReelTimeline::ReelSegment>& segments) {
    return std::ranges::any_of(
        segments, [](const auto& segment) { return std::holds_alternative<RetimedSegment>(segment); });
}

}   // namespace

std::vector<ReelTimeline::ReelSegment> ReelFilm::segmentsOf(
    const EffectsSpec& spec, const ReelFootage& footage) {
    const TimeRangeSec trim = footage.trim();
    if (!(trim.startSec < trim.endSec))
        throw Failure("Trim window is empty (start " + twoDecimals(trim.startSec) + " s, end " +
                      twoDecimals(trim.endSec) + " s).");
    auto segments = reelSegments(spec, footage);
    if (segments.empty()) throw Failure("Nothing to render after applying cuts.");
    return segments;
}

ReelFilm::ReelFilm(const EffectsSpec& spec, const ReelFootage& footage,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
    const RenderLog& log, const TransitionPictures& transitionPictures)
    : size_(canvasOf(spec.output)), segments_(segmentsOf(spec, footage)), log_(onceEach(log)), images_(log_),
      recording_(spec, footage, segments_, log_) {
    if (needsRecording(segments_)) SyncFrameDetector::requirePictures(footage.video);
    durationSec_ = ReelTimeline::outputDurationSec(segments_);
    const imaging::Rect bounds{0, 0, double(size_.width), double(size_.height)};
    const LayerBuild build{
        bounds, std::max(double(spec.output.fps), 1.0), assetRoot, evaluator, images_, fonts_, log_};
    const auto toComposition = [segments = segments_](double preCutSec) {
        return ReelTimeline::compositionSec(preCutSec, segments);
    };
    renderer_.emplace(spec,
        ReelRenderer::Footage{footage.size, transitionPictures(spec, footage, log_),
            ReelTimeline::cutSeamsSec(segments_), toComposition},
        build);
}

ReelFilm::~ReelFilm() = default;

Image ReelFilm::frame(double compositionSec) {
    const auto at = ReelTimeline::locate(compositionSec + roundingSec, segments_);
    if (const auto* card = std::get_if<ReelTimeline::CardTime>(&at))
        return renderer_->card(card->index, card->localSeconds);
    const double preCutSec = std::get<ReelTimeline::FootageTime>(at).originalSeconds;
    return renderer_->footage(recording_.at(preCutSec), preCutSec, compositionSec);
}

}   // namespace tavix
