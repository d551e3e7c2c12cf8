#include "TavixReelRender/Film/ReelFilm.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <variant>

namespace tavix {

namespace {

using imaging::Image;

// Lengths of segments are summed up, so a frame that stands on a boundary may seem to lie just before it.
constexpr double roundingSec = 1e-7;

imaging::Size canvasOf(const EffectsOutput& output) {
    const auto side = [](std::int64_t px) {
        return static_cast<int>(std::clamp<std::int64_t>(px, 0, std::numeric_limits<int>::max()));
    };
    return {side(output.widthPx), side(output.heightPx)};
}

TimeRangeSec trimOf(const ReelFootage& footage) {
    return {std::max(footage.trimStartSec, 0.0), std::min(footage.trimEndSec, footage.durationSec)};
}

// Every moment of the film, to its last picture.
SequentialClipReader readerOf(const std::filesystem::path& video, const RenderLog& log) {
    return {std::make_unique<media::VideoFile>(video), {video.string(), 0, std::nullopt, true}, log};
}

std::vector<ReelTimeline::ReelSegment> requiredSegments(const EffectsSpec& spec, const ReelFootage& footage) {
    const TimeRangeSec trim = trimOf(footage);
    if (!(trim.startSec < trim.endSec))
        throw Failure("Trim window is empty (start " + twoDecimals(trim.startSec) + " s, end " +
                      twoDecimals(trim.endSec) + " s).");
    auto segments = reelSegments(spec, footage);
    if (segments.empty()) throw Failure("Nothing to render after applying cuts.");
    return segments;
}

}   // namespace

std::vector<ReelTimeline::ReelSegment> reelSegments(const EffectsSpec& spec, const ReelFootage& footage) {
    const TimeRangeSec trim = trimOf(footage);
    return ReelTimeline::segmentsOf(spec, std::max(trim.endSec - trim.startSec, 0.0));
}

ReelFilm::ReelFilm(const EffectsSpec& spec, const ReelFootage& footage,
    const std::optional<std::filesystem::path>& assetRoot, imaging::Evaluator& evaluator,
    const RenderLog& log)
    : size_(canvasOf(spec.output)), trimStartSec_(trimOf(footage).startSec),
      segments_(requiredSegments(spec, footage)), log_(onceEach(log)), images_(log_),
      recording_(readerOf(footage.video, log_)) {
    durationSec_ = ReelTimeline::outputDurationSec(segments_);
    frameSec_ = 1 / std::max(double(spec.output.fps), 1.0);
    if (spec.retimeFrames == RetimeFrames::blend)
        paced_.emplace(std::make_unique<media::VideoFile>(footage.video));
    const imaging::Rect bounds{0, 0, double(size_.width), double(size_.height)};
    const LayerBuild build{
        bounds, std::max(double(spec.output.fps), 1.0), assetRoot, evaluator, images_, fonts_, log_};
    const auto toComposition = [segments = segments_](double preCutSec) {
        return ReelTimeline::compositionSec(preCutSec, segments);
    };
    renderer_.emplace(spec,
        ReelRenderer::Footage{footage.size, transitionInputs(spec, footage),
            ReelTimeline::cutSeamsSec(segments_), toComposition},
        build);
}

ReelFilm::~ReelFilm() = default;

// Read before the film itself, by a reader of their own that is closed again.
std::vector<TransitionInput> ReelFilm::transitionInputs(const EffectsSpec& spec, const ReelFootage& footage) {
    constexpr double lastPictureSec = 0.03;   // before the end of the film there is a picture for sure
    SequentialClipReader reader = readerOf(footage.video, log_);
    const auto picture = [&](double preCutSec) {
        const double rawSec = std::min(trimStartSec_ + preCutSec, footage.durationSec - lastPictureSec);
        const auto image = reader.frame(std::max(rawSec, 0.0));
        if (!image)
            throw Failure("The picture at " + twoDecimals(rawSec) + " s of \"" + footage.video.string() +
                          "\", which a transition needs, cannot be read.");
        return *image;
    };
    std::vector<TransitionInput> inputs;
    for (const ScreenTransition& transition : spec.transitions()) {
        const Image outgoing = picture(transition.atSec);
        inputs.push_back({transition, outgoing, picture(transition.revealSec)});
    }
    return inputs;
}

// At another pace than the recording's own, of a document that asks for it.
std::optional<Image> ReelFilm::mixture(double preCutSec) {
    if (!paced_) return std::nullopt;
    for (const ReelTimeline::ReelSegment& segment : segments_) {
        const auto* piece = std::get_if<RetimedSegment>(&segment);
        if (!piece || preCutSec < piece->range.startSec || preCutSec >= piece->range.endSec) continue;
        if (std::abs(piece->speed - 1) < roundingSec) return std::nullopt;
        const double rawSec = trimStartSec_ + preCutSec;
        if (piece->speed < 1) return paced_->between(rawSec);
        const double endSec = std::min(preCutSec + frameSec_ * piece->speed, piece->range.endSec);
        return paced_->passing(rawSec, trimStartSec_ + endSec);
    }
    return std::nullopt;
}

std::optional<Image> ReelFilm::picture(double preCutSec) {
    if (auto mixed = mixture(preCutSec)) return mixed;
    return recording_.frame(trimStartSec_ + preCutSec);
}

Image ReelFilm::frame(double compositionSec) {
    const auto at = ReelTimeline::locate(compositionSec + roundingSec, segments_);
    if (const auto* card = std::get_if<ReelTimeline::CardTime>(&at))
        return renderer_->card(card->index, card->localSeconds);
    const double preCutSec = std::get<ReelTimeline::FootageTime>(at).originalSeconds;
    return renderer_->footage(picture(preCutSec), preCutSec, compositionSec);
}

}   // namespace tavix
