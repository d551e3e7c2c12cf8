#include "TavixRender/Recording/SyncFrameDetector.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixReel/Recording/SyncFlash.h"

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace tavix::SyncFrameDetector {
namespace {

// Whether the mean of the pixels in these columns and rows is the marks' colour.
bool isMarked(
    const imaging::ConstBitmapView& frame, std::span<const int> columns, std::span<const int> rows) {
    std::array<double, 3> sums{};   // blue, green, red, as the pixels have them
    for (const int y : rows)
        for (const int x : columns)
            for (std::size_t channel = 0; channel < sums.size(); ++channel)
                sums[channel] += frame.row(y)[4 * x + int(channel)];
    const double whole = 255.0 * double(columns.size() * rows.size());
    return SyncFlash::matches(sums[2] / whole, sums[1] / whole, sums[0] / whole);
}

// The times of flashes and blips, told frame by frame.
class MarkLog {
public:
    void add(const imaging::ConstBitmapView& frame, double atSec) {
        if (!firstSec_) firstSec_ = atSec;
        lastSec_ = atSec;
        ++frameCount_;
        const bool isFlash = isSyncFrame(frame);
        if (isFlash && !isOpen_) flashes_.push_back({atSec, atSec});
        if (!isFlash && isOpen_) flashes_.back().endSec = atSec;
        isOpen_ = isFlash;
        const bool isBlip = !isFlash && isMarkBlipFrame(frame);
        if (isBlip && !wasBlip_) blipsSec_.push_back(atSec);
        wasBlip_ = isBlip;
    }

    VideoProbe probe(const media::VideoTrackInfo& track, double scanLimitSec) {
        if (isOpen_) flashes_.back().endSec = lastSec_;
        VideoProbe probe;
        probe.widthPx = track.shownSize.width;
        probe.heightPx = track.shownSize.height;
        probe.fps = framesPerSec(track.framesPerSec);
        probe.markBlipSeconds = std::move(blipsSec_);
        const auto sync = std::ranges::find_if(
            flashes_, [scanLimitSec](const Flash& flash) { return flash.startSec <= scanLimitSec; });
        if (sync == flashes_.end()) return probe;
        probe.syncSeconds = sync->startSec;
        probe.syncEndSeconds = sync->endSec;
        if (const Flash& last = flashes_.back(); last.startSec > sync->startSec) {
            probe.endFlashStartSeconds = last.startSec;
            probe.endFlashEndSeconds = last.endSec;
        }
        return probe;
    }

private:
    struct Flash {
        double startSec, endSec;
    };

    double framesPerSec(double nominal) const {
        constexpr double leastFps = 1, unknownFps = 60;
        const double spanSec = lastSec_ - firstSec_.value_or(lastSec_);
        if (!(nominal > leastFps) && frameCount_ >= 2 && spanSec > 0)
            nominal = double(frameCount_ - 1) / spanSec;
        return nominal > leastFps ? nominal : unknownFps;
    }

    std::vector<Flash> flashes_;
    std::vector<double> blipsSec_;
    bool isOpen_ = false, wasBlip_ = false;
    std::optional<double> firstSec_;
    double lastSec_ = 0;
    std::int64_t frameCount_ = 0;
};

media::VideoTrackInfo trackOf(const std::filesystem::path& rawVideo) {
    const media::MediaInfo info = media::probeMedia(rawVideo);
    if (info.video.empty())
        throw Failure("Raw recording has no video track: " + rawVideo.filename().string() + ".");
    return info.video.front();
}

// What fails is told of the recording.
template <class Work> auto asRecording(const Work& work) try {
    return work();
} catch (const media::MediaError& error) {
    std::string reason = error.what();
    while (reason.ends_with('.')) reason.pop_back();
    throw Failure("Could not read raw recording: " + reason + ".");
}

VideoProbe read(const std::filesystem::path& rawVideo, double scanLimitSec) {
    const media::VideoTrackInfo track = trackOf(rawVideo);
    media::VideoFile file(rawVideo);
    imaging::Evaluator evaluator({.threadCount = 1, .cacheBytes = 0});
    MarkLog log;
    const auto frames = file.framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::steady);
    while (auto frame = frames->next()) {
        const imaging::Rect extent = frame->image().extent();
        const imaging::Bitmap pixels = evaluator.draw(frame->image(), imaging::pixelsCovering(extent));
        log.add(pixels.view(), frame->ptsSec());
    }
    VideoProbe probe = log.probe(track, scanLimitSec);
    probe.isDamaged = frames->isDamaged();
    return probe;
}

}   // namespace

bool isSyncFrame(const imaging::ConstBitmapView& frame) {
    const auto [width, height] = frame.size;
    if (width < 1 || height < 1) return false;
    std::array<int, 5> columns{}, rows{};
    for (int i = 0; i < 5; ++i) {
        columns[std::size_t(i)] = width * (i + 1) / 6;
        rows[std::size_t(i)] = height * (i + 1) / 6;
    }
    return isMarked(frame, columns, rows);
}

int markSidePx(int frameWidthPx) {
    constexpr int wideFramePx = 1500, wideSidePx = 60, leastSidePx = 24;
    return frameWidthPx >= wideFramePx ? wideSidePx : std::max(frameWidthPx / 25, leastSidePx);
}

bool isMarkBlipFrame(const imaging::ConstBitmapView& frame) {
    const auto [width, height] = frame.size;
    if (width < 1 || height < 1) return false;
    const int side = markSidePx(width);
    std::array<int, 3> columns{}, rows{};
    for (int i = 0; i < 3; ++i) {
        const int inward = i == 0 ? side / 4 : i == 1 ? side / 2 : 3 * side / 4;
        columns[std::size_t(i)] = std::min(inward, width - 1);
        rows[std::size_t(i)] = std::clamp(height - side + inward, 0, height - 1);
    }
    return isMarked(frame, columns, rows);
}

VideoProbe probe(const std::filesystem::path& rawVideo, double scanLimitSec) {
    return asRecording([&] { return read(rawVideo, scanLimitSec); });
}

void requirePictures(const std::filesystem::path& rawVideo) {
    asRecording([&] { return trackOf(rawVideo); });
}

}   // namespace tavix::SyncFrameDetector
