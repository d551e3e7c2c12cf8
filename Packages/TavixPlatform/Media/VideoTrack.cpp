#include "TavixPlatform/Media/VideoTrack.h"

#include <algorithm>
#include <string_view>

namespace tavix::media {
namespace {

constexpr double mostMissingSec = 0.5;       // containers round, and count frames that are not shown
constexpr double usualFrameSec = 1.0 / 30;   // where a film tells neither times nor a rate

// Frames up to this decode in few milliseconds beside whoever shows them. More threads would each hold frames
// of their own.
constexpr std::int64_t mostPixelsOfOneThread = std::int64_t{1920} * 1200;

int usefulThreads(const AVStream& track, int threads) {
    const auto pixels = std::int64_t{track.codecpar->width} * track.codecpar->height;
    return pixels <= mostPixelsOfOneThread ? 1 : threads;
}

AVStream& showableTrack(const MediaInput& input) {
    AVStream& track = firstVideoTrack(input);
    refuseFrameSize(track.codecpar->width, track.codecpar->height);
    return track;
}

}   // namespace

AVStream& firstVideoTrack(const MediaInput& input) {
    const auto tracks = input.tracks(AVMEDIA_TYPE_VIDEO);
    if (tracks.empty()) throw MediaError("No video track in " + input.name() + ".");
    return *tracks.front();
}

VideoTrack::VideoTrack(const std::filesystem::path& path, int threads)
    : input_(path), track_(showableTrack(input_)), setting_(frameSettingOf(input_.format(), track_)),
      decoder_(input_, track_, usefulThreads(track_, threads)) {}

double VideoTrack::timeOf(const AVFrame& frame) const {
    if (frame.best_effort_timestamp != AV_NOPTS_VALUE)
        return input_.secondsOf(track_, frame.best_effort_timestamp);
    if (!lastSec_) return 0;
    const AVRational rate = track_.avg_frame_rate;
    return *lastSec_ + (rate.num > 0 && rate.den > 0 ? av_q2d(av_inv_q(rate)) : usualFrameSec);
}

std::optional<VideoTrack::Decoded> VideoTrack::next() { return decodedNext(&TrackDecoder::next); }
std::optional<VideoTrack::Decoded> VideoTrack::nextAlone() { return decodedNext(&TrackDecoder::nextAlone); }

std::optional<VideoTrack::Decoded> VideoTrack::decodedNext(bool (TrackDecoder::*step)(AVFrame&)) {
    for (;;) {
        auto frame = std::shared_ptr<AVFrame>(libav::owned<libav::Frame>(av_frame_alloc()));
        if (!(decoder_.*step)(*frame) || !canConvert(*frame)) return std::nullopt;
        const double sec = timeOf(*frame);
        if (lastSec_ && sec <= *lastSec_) continue;   // a fault of the file: it would never be shown
        lastSec_ = sec;
        lastEndSec_ = sec + double(std::max<std::int64_t>(frame->pkt_duration, 0)) * av_q2d(track_.time_base);
        return Decoded{std::move(frame), sec};
    }
}

bool VideoTrack::hasEndedEarly() const {
    const AVFormatContext& format = input_.format();
    const bool tellsItself = std::string_view(format.iformat->name).starts_with("mov,");
    if (tellsItself || format.nb_streams != 1 || format.duration <= 0) return false;
    const double statedSec = double(format.duration) / AV_TIME_BASE;
    return lastEndSec_ + mostMissingSec < statedSec;
}

void VideoTrack::seek(double sec) {
    decoder_.seek(sec);
    lastSec_.reset();
}

VideoFrame VideoTrack::shown(const Decoded& decoded, const std::shared_ptr<imaging::BytePool>& pool) const {
    return {decoded.ptsSec,
        [frame = decoded.frame, setting = setting_, pool] { return imageOf(*frame, setting, pool); }};
}

}   // namespace tavix::media
