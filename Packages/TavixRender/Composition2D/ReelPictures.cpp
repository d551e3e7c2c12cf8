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

// A reel as it is shown on a screen.
struct Opened {
    EffectsSpec spec;
    ReelFootage footage;
    std::vector<ReelTimeline::ReelSegment> segments;

    double durationSec() const { return ReelTimeline::outputDurationSec(segments); }
    static Opened of(const fs::path& folder);
};

Opened Opened::of(const fs::path& folder) {
    if (!ReelProjectBundle::isBundle(folder))
        throw Failure("there is no such folder, with a name that ends in .tavixproj and a raw.mov in it.");
    const ReelProjectBundle::Parts parts = ReelProjectBundle::parts(folder);
    Opened opened;
    if (isFile(parts.effects)) opened.spec = decodeFile<EffectsSpec>(parts.effects);
    opened.spec.titleCards.clear();
    const VideoProbe probe = probed(parts.rawVideo);
    opened.footage = {.video = parts.rawVideo,
        .size = {int(probe.widthPx), int(probe.heightPx)},
        .durationSec = media::mediaDurationSec(parts.rawVideo)};
    opened.footage.trimStartSec = probe.trimStartSec();
    opened.footage.trimEndSec = probe.trimEndSec(opened.footage.durationSec);
    opened.segments = reelSegments(opened.spec, opened.footage);
    if (!(opened.durationSec() > 0)) throw Failure("nothing of its recording is left after its cuts.");
    return opened;
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
    const Opened opened = Opened::of(folder);
    size_ = opened.footage.size;
    segments_ = opened.segments;
    durationSec_ = opened.durationSec();
    screen_.emplace(opened.spec, opened.footage.size,
        RecordingPictures::transitionInputs(opened.spec, opened.footage, log));
    recording_.emplace(opened.spec, opened.footage, segments_, log);
}

double ReelPictures::durationSecOf(const fs::path& folder) { return Opened::of(folder).durationSec(); }

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
