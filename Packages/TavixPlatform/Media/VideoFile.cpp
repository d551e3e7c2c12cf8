#include "TavixPlatform/Media/VideoFile.h"

#include "TavixPlatform/Imaging/BytePool.h"
#include "TavixPlatform/Media/FramesInTurn.h"
#include "TavixPlatform/Media/ReadAhead.h"
#include "TavixPlatform/Media/VideoTrack.h"

#include <algorithm>
#include <thread>
#include <utility>

namespace tavix::media {
namespace {

// Pictures that nobody shows any more and that the next ones are written to.
constexpr std::size_t mostIdleBytes = std::size_t{16} << 20;
// More threads than this hold more decoded frames than they save time: each holds some of its own.
constexpr unsigned mostDecoderThreads = 2;
// How far before the wanted time decoding starts when nothing nearer works; doubled from try to try.
constexpr double firstStepBackSec = 0.5;

int decoderThreads() {
    return static_cast<int>(std::clamp(std::thread::hardware_concurrency(), 1u, mostDecoderThreads));
}

class ForwardFrames final : public VideoFrames {
public:
    ForwardFrames(std::filesystem::path path, const std::optional<ShownBox>& shown, double startSec,
        double endSec, std::shared_ptr<imaging::BytePool> pool)
        : path_(std::move(path)), shown_(shown), startSec_(startSec), endSec_(endSec),
          pool_(std::move(pool)) {
        open(decoderThreads());
    }

    const VideoTrack& track() const { return *track_; }

    std::optional<VideoFrame> next() override try {
        auto decoded = nextDecoded();
        isDamaged_ = isDamaged_ || (track_->isDamaged() && !wasSoughtInDamage_);
        if (track_->isDamaged() && !isAlone_) {
            decodeAlone();
            decoded = nextDecoded();
        }
        isDamaged_ = isDamaged_ || (!decoded && track_->hasEndedEarly());
        if (!decoded || decoded->ptsSec >= endSec_) return std::nullopt;
        lastGivenSec_ = decoded->ptsSec;
        return track_->shown(*decoded, pool_);
    } catch (const MediaError&) {
        isDamaged_ = true;
        return std::nullopt;   // the file went away while it was read
    }
    bool isDamaged() const override { return isDamaged_; }

private:
    using Decoded = VideoTrack::Decoded;

    std::optional<Decoded> nextDecoded() {
        if (!isAtStart_) findStart();
        const auto first = std::exchange(following_, std::nullopt);
        if (first && !(lastGivenSec_ && first->ptsSec <= *lastGivenSec_)) return first;
        for (;;) {
            auto decoded = std::exchange(afterFollowing_, std::nullopt);
            if (!decoded) decoded = track_->next();
            if (!decoded || !lastGivenSec_ || decoded->ptsSec > *lastGivenSec_) return decoded;
        }
    }

    // To the frame that is shown at the start: the last one that is not later.
    void findStart() {
        isAtStart_ = true;
        for (double backSec = 0;; backSec = std::max(2 * backSec, firstStepBackSec)) {
            const bool isWholeFilm = startSec_ - backSec <= 0;
            if (!isWholeFilm)
                track_->seek(startSec_ - backSec);
            else if (backSec > 0)
                reopen();
            while ((afterFollowing_ = track_->next())) {
                if (afterFollowing_->ptsSec > startSec_ + timestampToleranceSec) break;
                following_ = std::move(afterFollowing_);
            }
            if (!following_ && !isWholeFilm) continue;
            // In the midst of a film, frames may refer to others before the place that was sought.
            wasSoughtInDamage_ = !isWholeFilm && track_->isDamaged();
            return;
        }
    }

    // What several threads make of damaged frames may depend on which is first, so from here on there is one.
    void decodeAlone() {
        isAlone_ = true;
        following_.reset();
        afterFollowing_.reset();
        reopen();
        if (lastGivenSec_) startSec_ = *lastGivenSec_;
        isAtStart_ = false;
    }

    void reopen() { open(isAlone_ ? 1 : decoderThreads()); }
    void open(int threads) { track_ = std::make_unique<VideoTrack>(path_, threads, shown_); }

    std::filesystem::path path_;
    std::optional<ShownBox> shown_;
    double startSec_, endSec_;
    std::shared_ptr<imaging::BytePool> pool_;
    std::unique_ptr<VideoTrack> track_;
    bool isAtStart_ = false, isAlone_ = false, isDamaged_ = false, wasSoughtInDamage_ = false;
    std::optional<Decoded> following_, afterFollowing_;   // decoded and not yet given
    std::optional<double> lastGivenSec_;
};

class SyncFrames final : public RandomAccessFrames {
public:
    SyncFrames(std::filesystem::path path, const std::optional<ShownBox>& shown,
        std::shared_ptr<imaging::BytePool> pool)
        : path_(std::move(path)), shown_(shown), pool_(std::move(pool)), track_(path_, 1, shown_) {}

    std::optional<VideoFrame> frame(double startSec, double durationSec) override try {
        const auto isInRange = [&](double sec) {
            return sec >= startSec - timestampToleranceSec && sec < startSec + durationSec;
        };
        hasFailed_ = false;
        track_.seek(startSec);
        if (const auto decoded = track_.nextAlone(); decoded && isInRange(decoded->ptsSec))
            return track_.shown(*decoded, pool_);
        // The container did not find the sample, or one packet is not enough: walk there.
        auto walked = ForwardFrames(path_, shown_, startSec, startSec + durationSec, pool_).next();
        hasFailed_ = !walked;
        return walked && isInRange(walked->ptsSec()) ? walked : std::nullopt;
    } catch (const MediaError&) {
        hasFailed_ = true;
        return std::nullopt;
    }
    bool hasFailed() const override { return hasFailed_; }

private:
    std::filesystem::path path_;
    std::optional<ShownBox> shown_;
    std::shared_ptr<imaging::BytePool> pool_;
    VideoTrack track_;
    bool hasFailed_ = false;
};

}   // namespace

VideoFile::VideoFile(std::filesystem::path path, VideoManner manner)
    : path_(std::move(path)), manner_(std::move(manner)),
      pool_(std::make_shared<imaging::BytePool>(mostIdleBytes)) {}

std::unique_ptr<VideoFrames> VideoFile::framesFrom(double startSec, double endSec, Pace pace) {
    const auto open = [path = path_, shown = manner_.shown, endSec, pool = pool_](double fromSec) {
        auto frames = std::make_unique<ForwardFrames>(path, shown, fromSec, endSec, pool);
        const std::size_t decoderBytes = frames->track().decoderBytes();
        const std::size_t frameBytes = frames->track().frameBytes();
        return FramesInTurn::Opened{std::move(frames), decoderBytes, frameBytes};
    };
    const auto hasten = [](std::unique_ptr<VideoFrames> frames) -> std::unique_ptr<VideoFrames> {
        return std::make_unique<ReadAhead>(std::move(frames));
    };
    if (pace == Pace::onDemand) return open(startSec).frames;
    if (manner_.room) return std::make_unique<FramesInTurn>(manner_.room, startSec, open, hasten);
    return hasten(open(startSec).frames);
}

std::unique_ptr<RandomAccessFrames> VideoFile::randomAccess() {
    return std::make_unique<SyncFrames>(path_, manner_.shown, pool_);
}

std::vector<VideoSample> VideoFile::samples() {
    MediaInput input(path_);
    const AVStream& track = firstVideoTrack(input);
    input.select(track);
    std::vector<VideoSample> samples;
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    while (input.read(*packet)) {
        const std::int64_t time = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        const bool isShown = !(packet->flags & AV_PKT_FLAG_DISCARD) && time != AV_NOPTS_VALUE;
        if (isShown)
            samples.push_back({input.secondsOf(track, time), (packet->flags & AV_PKT_FLAG_KEY) != 0});
    }
    std::ranges::sort(samples, {}, &VideoSample::ptsSec);
    return samples;
}

}   // namespace tavix::media
