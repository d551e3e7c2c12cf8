#include "TavixReelLive/Preview/ReelSource.h"

#include "TavixLive/Stage/StageDocument.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixReel/Project/ReelAssets.h"
#include "TavixReelRender/Export/ReelExport.h"
#include "TavixReelRender/Film/ReelFilm.h"
#include "TavixRender/Audio/CompositionAudioMuxer.h"

#include <chrono>
#include <cstring>
#include <exception>
#include <iomanip>
#include <limits>
#include <sstream>
#include <utility>

namespace tavix {

namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

class Source final : public FrameSource {
public:
    Source(const EffectsSpec& spec, const ReelFootage& footage, const std::filesystem::path& assetRoot,
        RenderLog log, TransitionCache& transitions)
        : log_(std::move(log)), film_(spec, footage, assetRoot, evaluator_, log_,
                                    [&](const auto&... of) { return transitions.inputs(of...); }),
          surface_(evaluator_, film_.size()), isInSpace_(spec.deviceScene && spec.deviceScene->enabled) {}

    Drawn draw(double atSec, FrameQuality) override {
        const auto start = Clock::now();
        const imaging::Size size = film_.size();
        auto pixels = std::make_shared<imaging::Bitmap>(imaging::Bitmap::uninitialised(size, pool_));
        Drawn drawn{pixels};
        try {
            const imaging::Rect canvas{0, 0, double(size.width), double(size.height)};
            const imaging::Image frame = imaging::Image::stacked(
                {imaging::Image::solid(imaging::Color::black()).cropped(canvas), film_.frame(atSec)});
            drawn.buildSec = secondsSince(start);
            surface_.update(frame);
        } catch (const std::exception& error) {
            tell(log_, Finding::warning(RenderCode::frameNotDrawn,
                           std::string("A frame of the reel is not drawn: ") + error.what()));
        }
        const imaging::ConstBitmapView shown = surface_.pixels();
        for (int y = 0; y < size.height; ++y)
            std::memcpy(pixels->view().row(y), shown.row(y), std::size_t(size.width) * 4);
        drawn.paintSec = secondsSince(start) - drawn.buildSec;
        return drawn;
    }
    void turnDevice(const Vector3& tiltDegrees) { film_.turnDevice(tiltDegrees); }
    bool isStored(double) const override { return false; }
    bool hasRoom() const override { return false; }
    double totalSec() const override { return film_.durationSec(); }
    bool hasDevicesInSpace() const override { return isInSpace_; }

private:
    RenderLog log_;
    imaging::Evaluator evaluator_;
    ReelFilm film_;
    imaging::FrameSurface surface_;
    // Of the pictures that are shown, wait to be shown, or come next.
    std::shared_ptr<imaging::BytePool> pool_ = std::make_shared<imaging::BytePool>(64u << 20);
    bool isInSpace_;
};

std::optional<media::AudioTimeline> soundOf(const EffectsSpec& spec, const ReelFootage& footage,
    const std::filesystem::path& assetRoot, double totalSec, const RenderLog& log) {
    if (spec.soundCues.empty()) return std::nullopt;
    media::AudioTimeline timeline;
    const CompositionAudio audio = ReelExport::soundOf(spec, footage);
    if (!CompositionAudioMuxer::insertAudio(audio, timeline, assetRoot, totalSec, log)) return std::nullopt;
    return timeline;
}

}   // namespace

ReelPreview reelPreview(const EffectsSpec& spec, const ReelFootage& footage,
    const std::filesystem::path& assetRoot, imaging::Size room, const RenderLog& log,
    TransitionCache& transitions) {
    const imaging::Size canvas{int(spec.output.widthPx), int(spec.output.heightPx)};
    const imaging::Size size = stageSize(canvas, room);
    auto source = std::make_shared<Source>(
        ReelAssets::scaled(spec, size.width, size.height), footage, assetRoot, log, transitions);
    return {source, soundOf(spec, footage, assetRoot, source->totalSec(), log),
        [source](const Vector3& tiltDegrees) { source->turnDevice(tiltDegrees); }};
}

std::string timingKey(const EffectsSpec& spec, const ReelFootage& footage) {
    std::ostringstream key;
    key << std::setprecision(std::numeric_limits<double>::max_digits10);
    key << footage.trim().startSec << "-" << footage.trim().endSec << "@" << spec.output.fps;
    for (const ReelTimeline::ReelSegment& segment : reelSegments(spec, footage)) {
        if (const auto* piece = std::get_if<RetimedSegment>(&segment))
            key << " " << piece->range.startSec << "-" << piece->range.endSec << "@" << piece->speed;
        else {
            const auto& card = std::get<ReelTimeline::CardSegment>(segment);
            key << " card " << card.index << "-" << card.durationSec << "@" << card.insertionSec;
        }
    }
    return key.str();
}

}   // namespace tavix
