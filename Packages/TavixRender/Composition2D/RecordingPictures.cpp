#include "TavixRender/Composition2D/RecordingPictures.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Decimals.h"
#include "TavixPlatform/Media/VideoFile.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <variant>

namespace tavix {

using imaging::Image;

namespace {

constexpr double samePace = 1e-9;

// Every moment of the film, to its last picture.
SequentialClipReader readerOf(const std::filesystem::path& video, const RenderLog& log) {
    return {std::make_unique<media::VideoFile>(video), {video.string(), 0, std::nullopt, true}, log};
}

}   // namespace

TimeRangeSec ReelFootage::trim() const {
    return {std::max(trimStartSec, 0.0), std::min(trimEndSec, durationSec)};
}

std::vector<ReelTimeline::ReelSegment> reelSegments(const EffectsSpec& spec, const ReelFootage& footage) {
    const TimeRangeSec trim = footage.trim();
    return ReelTimeline::segmentsOf(spec, std::max(trim.endSec - trim.startSec, 0.0));
}

RecordingPictures::RecordingPictures(const EffectsSpec& spec, const ReelFootage& footage,
    std::vector<ReelTimeline::ReelSegment> segments, const RenderLog& log)
    : trimStartSec_(footage.trim().startSec), frameSec_(1 / std::max(double(spec.output.fps), 1.0)),
      segments_(std::move(segments)), reader_(readerOf(footage.video, log)) {
    if (spec.retimeFrames == RetimeFrames::blend)
        paced_.emplace(std::make_unique<media::VideoFile>(footage.video));
}

// At another pace than the recording's own, of a document that asks for it.
std::optional<Image> RecordingPictures::mixture(double preCutSec) {
    if (!paced_) return std::nullopt;
    for (const ReelTimeline::ReelSegment& segment : segments_) {
        const auto* piece = std::get_if<RetimedSegment>(&segment);
        if (!piece || preCutSec < piece->range.startSec || preCutSec >= piece->range.endSec) continue;
        if (std::abs(piece->speed - 1) < samePace) return std::nullopt;
        const double rawSec = trimStartSec_ + preCutSec;
        if (piece->speed < 1) return paced_->between(rawSec);
        const double endSec = std::min(preCutSec + frameSec_ * piece->speed, piece->range.endSec);
        return paced_->passing(rawSec, trimStartSec_ + endSec);
    }
    return std::nullopt;
}

std::optional<Image> RecordingPictures::at(double preCutSec, bool approximate) {
    if (!approximate)
        if (auto mixed = mixture(preCutSec)) return mixed;
    return reader_.frame(trimStartSec_ + preCutSec, approximate);
}

std::vector<TransitionInput> RecordingPictures::transitionInputs(
    const EffectsSpec& spec, const ReelFootage& footage, const RenderLog& log) {
    constexpr double lastPictureSec = 0.03;   // before the end of the film there is a picture for sure
    std::vector<TransitionInput> inputs;
    if (spec.transitions().empty()) return inputs;
    SequentialClipReader reader = readerOf(footage.video, log);
    const auto picture = [&](double preCutSec) {
        const double rawSec =
            std::min(footage.trim().startSec + preCutSec, footage.durationSec - lastPictureSec);
        const auto image = reader.frame(std::max(rawSec, 0.0));
        if (!image)
            throw Failure("The picture at " + twoDecimals(rawSec) + " s of \"" + footage.video.string() +
                          "\", which a transition needs, cannot be read.");
        return *image;
    };
    for (const ScreenTransition& transition : spec.transitions()) {
        const Image outgoing = picture(transition.atSec);
        inputs.push_back({transition, outgoing, picture(transition.revealSec)});
    }
    return inputs;
}

}   // namespace tavix
