#include "TavixRender/Composition2D/ReelPictures.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/MediaFault.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <algorithm>
#include <map>
#include <mutex>
#include <utility>
#include <variant>

namespace tavix {

namespace fs = std::filesystem;

namespace {

// A time that stands on a boundary by sums may seem to lie just before it.
constexpr double roundingSec = 1e-7;
// Before the end of the reel: what comes next in the recording is no part of it.
constexpr double lastPictureSec = 0.001;

// To look for flashes takes as long as decoding it all, so it is done once for each recording.
VideoProbe probed(const fs::path& video) {
    static std::mutex mutex;
    static std::map<fs::path, std::pair<FileIdentity, VideoProbe>> known;
    const auto identity = FileIdentity::of(video);
    if (identity) {
        const std::scoped_lock lock(mutex);
        const auto found = known.find(video);
        if (found != known.end() && found->second.first == *identity) return found->second.second;
    }
    VideoProbe probe = SyncFrameDetector::probe(video);
    if (identity) {
        const std::scoped_lock lock(mutex);
        known.insert_or_assign(video, std::pair(*identity, probe));
    }
    return probe;
}

}   // namespace

ReelPictures::ReelPictures(const fs::path& folder, const RenderLog& log) {
    try {
        open(folder, log);
    } catch (const media::MediaFault&) {
        throw;
    } catch (const Failure& failure) {
        recording_.reset();
        tell(log,
            Finding::warning(RenderCode::clipMissing,
                "The reel \"" + folder.string() + "\" is not shown: " + failure.message(), folder.string()));
    }
}

void ReelPictures::open(const fs::path& folder, const RenderLog& log) {
    if (!ReelProjectBundle::isBundle(folder))
        throw Failure("there is no such folder, with a name that ends in .tavixproj and a raw.mov in it.");
    const ReelProjectBundle::Parts parts = ReelProjectBundle::parts(folder);
    EffectsSpec spec;
    if (isFile(parts.effects)) spec = decodeFile<EffectsSpec>(parts.effects);
    spec.titleCards.clear();
    const VideoProbe probe = probed(parts.rawVideo);
    ReelFootage footage{.video = parts.rawVideo,
        .size = {int(probe.widthPx), int(probe.heightPx)},
        .durationSec = media::mediaDurationSec(parts.rawVideo)};
    footage.trimStartSec = probe.trimStartSec();
    footage.trimEndSec = probe.trimEndSec(footage.durationSec);
    size_ = footage.size;
    segments_ = reelSegments(spec, footage);
    durationSec_ = ReelTimeline::outputDurationSec(segments_);
    if (!(durationSec_ > 0)) throw Failure("nothing of its recording is left after its cuts.");
    screen_.emplace(spec, footage.size, RecordingPictures::transitionInputs(spec, footage, log));
    recording_.emplace(spec, footage, segments_, log);
}

std::optional<imaging::Image> ReelPictures::at(double sec, bool approximate) {
    if (!recording_) return std::nullopt;
    const double shownSec = std::clamp(sec, 0.0, std::max(durationSec_ - lastPictureSec, 0.0));
    const auto located = ReelTimeline::locate(shownSec + roundingSec, segments_);
    const double preCutSec = std::get<ReelTimeline::FootageTime>(located).originalSeconds;
    const auto picture = recording_->at(preCutSec, approximate);
    if (!picture) return std::nullopt;
    const imaging::Rect bounds{0, 0, double(size_.width), double(size_.height)};
    return screen_->on({0, 0, bounds.width, bounds.height}, bounds, *picture, preCutSec).cropped(bounds);
}

void ReelPictures::rest() {
    if (recording_) recording_->rest();
}

}   // namespace tavix
