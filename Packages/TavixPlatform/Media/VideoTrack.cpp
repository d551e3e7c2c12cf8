#include "TavixPlatform/Media/VideoTrack.h"

#include <algorithm>
#include <cmath>
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

namespace {

// How often frames can be halved and still fill the box, either way.
int halvingsFor(imaging::Size coded, imaging::Size shown, imaging::Size box) {
    constexpr int most = 4;
    const double factor = std::max(double(box.width) / shown.width, double(box.height) / shown.height);
    const auto isWhole = [&](int n) { return ((coded.width | coded.height) & ((1 << n) - 1)) == 0; };
    int halvings = 0;
    while (halvings < most && isWhole(halvings + 1) && std::ldexp(factor, halvings + 1) <= 1) ++halvings;
    return halvings;
}

FrameSetting settingOf(const MediaInput& input, AVStream& track, const std::optional<ShownBox>& shown) {
    FrameSetting setting = frameSettingOf(input.format(), track);
    const imaging::Size coded{track.codecpar->width, track.codecpar->height};
    const bool isLarge = std::int64_t{coded.width} * coded.height > mostPixelsOfOneThread;
    if (!shown || !(isLarge || shown->isPreview)) return setting;
    setting.halvings = halvingsFor(coded, shownSizeOf(coded, setting), shown->px);
    setting.halvesPlanes = shown->isPreview;
    return setting;
}

}   // namespace

VideoTrack::VideoTrack(const std::filesystem::path& path, int threads, const std::optional<ShownBox>& shown)
    : input_(path), track_(showableTrack(input_)), setting_(settingOf(input_, track_, shown)),
      threads_(usefulThreads(track_, threads)), decoder_(input_, track_, threads_) {}

std::size_t VideoTrack::frameBytes() const {
    constexpr std::size_t pixelBytes = 4;
    const auto side = [&](int px) { return std::size_t(px >> setting_.halvings) + 1; };
    return side(track_.codecpar->width) * side(track_.codecpar->height) * pixelBytes;
}

std::size_t VideoTrack::decoderBytes() const {
    const AVCodecParameters& track = *track_.codecpar;
    const AVCodecDescriptor* codec = avcodec_descriptor_get(track.codec_id);
    const bool standsAlone = codec && (codec->props & AV_CODEC_PROP_INTRA_ONLY);
    // What others refer to, what waits for its turn, one for each thread, and one that is shown.
    constexpr std::size_t usualReferences = 4;
    const std::size_t frames =
        (standsAlone ? 1 : usualReferences + std::size_t(std::max(track.video_delay, 0))) +
        std::size_t(threads_) + 1;
    const int coded = av_image_get_buffer_size(AVPixelFormat(track.format), track.width, track.height, 1);
    constexpr std::size_t made = 2, fixedBytes = std::size_t{4} << 20;
    return frames * std::size_t(std::max(coded, 0)) + made * frameBytes() + fixedBytes;
}

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
