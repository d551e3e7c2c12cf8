#include "TavixPlatform/Media/MediaProbe.h"

#include "TavixPlatform/Media/FrameConversion.h"
#include "TavixPlatform/Media/MediaInput.h"
#include "TavixPlatform/Media/MovieHeader.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>

namespace tavix::media {
namespace {

std::string text(const char* word) { return word ? word : ""; }

// Up to the end of the last packet, for files that do not tell.
double measuredDurationSec(MediaInput& input) {
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    double end = 0;
    while (input.read(*packet)) {
        const AVStream& track = *input.format().streams[packet->stream_index];
        const std::int64_t time = packet->pts != AV_NOPTS_VALUE ? packet->pts : packet->dts;
        if (time != AV_NOPTS_VALUE) end = std::max(end, input.secondsOf(track, time + packet->duration));
    }
    return end;
}

double durationSecOf(MediaInput& input) {
    const std::int64_t told = input.format().duration;
    return told > 0 ? double(told) / AV_TIME_BASE : measuredDurationSec(input);
}

VideoTrackInfo infoOf(MediaInput& input, AVStream& track) {
    const AVCodecParameters& p = *track.codecpar;
    VideoTrackInfo info;
    info.codec = avcodec_get_name(p.codec_id);
    info.codedSize = {p.width, p.height};
    info.shownSize = shownSizeOf(info.codedSize, frameSettingOf(input.format(), track));
    if (track.avg_frame_rate.num > 0 && track.avg_frame_rate.den > 0)
        info.framesPerSec = av_q2d(track.avg_frame_rate);
    info.pixelFormat = text(av_get_pix_fmt_name(AVPixelFormat(p.format)));
    if (p.color_space != AVCOL_SPC_UNSPECIFIED) info.matrix = text(av_color_space_name(p.color_space));
    if (p.color_range != AVCOL_RANGE_UNSPECIFIED) info.range = text(av_color_range_name(p.color_range));
    return info;
}

}   // namespace

MediaInfo probeMedia(const std::filesystem::path& path) {
    MediaInput input(path);
    MediaInfo info;
    info.container = input.format().iformat->name;
    for (AVStream* track : input.tracks(AVMEDIA_TYPE_VIDEO)) info.video.push_back(infoOf(input, *track));
    for (const AVStream* track : input.tracks(AVMEDIA_TYPE_AUDIO)) {
        const AVCodecParameters& p = *track->codecpar;
        info.audio.push_back({avcodec_get_name(p.codec_id), p.sample_rate, p.ch_layout.nb_channels});
    }
    info.durationSec = durationSecOf(input);
    return info;
}

std::optional<imaging::Size> mediaShownSize(const std::filesystem::path& path) {
    if (const auto header = readMovieHeader(path)) return header->shownSize;
    const MediaInfo info = probeMedia(path);
    return info.video.empty() ? std::nullopt : std::optional(info.video.front().shownSize);
}

double mediaDurationSec(const std::filesystem::path& path) {
    if (const auto header = readMovieHeader(path)) return header->durationSec;
    MediaInput input(path);
    return durationSecOf(input);
}

}   // namespace tavix::media
