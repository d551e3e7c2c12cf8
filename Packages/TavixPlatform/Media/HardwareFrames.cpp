#include "TavixPlatform/Media/HardwareFrames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace tavix::media {

namespace {

using Family = HardwareEncoder::Family;

constexpr int usualQuality = 70;       // where neither a rate nor a quality is asked for
constexpr double mostOverMean = 1.5;   // of the rate, for a while
constexpr int finestQuantizer = 10;    // of H.264 and HEVC, as without hardware

// Frames on the device at a time. Without frames that refer to later ones an encoder keeps the one that it
// refers to and those that wait.
constexpr int framesOnDevice = 20;

// The quantizer of a quality, on the encoder's own scale, on which less is better.
int quantizerOf(const MovieSettings& settings, Family family) {
    struct Scale {
        int best, worst;
    };
    // Of 51 in H.264 and HEVC, of 63 in VP9 and AV1: the same as without hardware.
    const auto scale = [&]() -> Scale {
        switch (settings.codec) {
        case MovieCodec::h264: return {12, 42};
        case MovieCodec::hevc: return {14, 44};
        case MovieCodec::vp9: return {15, 55};
        default: return {18, 58};
        }
    }();
    const int quality = std::clamp(settings.quality.value_or(usualQuality), 0, 100);
    const auto step =
        static_cast<int>(std::lround(scale.worst + (scale.best - scale.worst) * quality / 100.0));
    const bool isOpen = settings.codec == MovieCodec::vp9 || settings.codec == MovieCodec::av1;
    // VA-API counts the steps of VP9 and AV1 as their streams do, to 255; the others know 51 for all codecs.
    if (isOpen) return family == Family::vaapi ? step * 4 : std::min(step, 51);
    return step;
}

void setQuality(
    const MovieSettings& settings, Family family, AVCodecContext& encoder, libav::Options& options) {
    const int quantizer = quantizerOf(settings, family);
    if (family == Family::nvenc) {
        options.set("rc", "vbr");
        options.set("cq", std::to_string(quantizer));
        return;
    }
    encoder.global_quality = quantizer;   // Quick Sync keeps to a quality where this stands alone
    if (family == Family::vaapi) options.set("rc_mode", "CQP");
}

void setRate(const MovieSettings& settings, Family family, AVCodecContext& encoder, libav::Options& options) {
    encoder.bit_rate = settings.bitsPerSec;
    encoder.rc_max_rate = static_cast<std::int64_t>(double(settings.bitsPerSec) * mostOverMean);
    if (family == Family::nvenc) options.set("rc", "vbr");
    const bool isLimited = settings.codec == MovieCodec::h264 || settings.codec == MovieCodec::hevc;
    if (settings.mayTakeLess && isLimited) encoder.qmin = finestQuantizer;
}

void setEffort(const MovieSettings& settings, Family family, libav::Options& options) {
    static constexpr std::array nvenc{"p2", "p4", "p6"}, qsv{"veryfast", "medium", "slow"};
    const auto effort = static_cast<std::size_t>(settings.effort);
    if (family == Family::nvenc) options.set("preset", nvenc[effort]);
    if (family == Family::qsv) options.set("preset", qsv[effort]);
}

// As libavutil/hwcontext.h asks for: a device, a pool of its frames with the format in memory that they are
// filled from, and a reference to the pool in the encoder before that is opened.
void openDevice(AVCodecContext& encoder, const std::string& failure) {
    const libav::ErrorScope errors;
    AVBufferRef* made = nullptr;
    // The first that answers; the environment of libva says which driver it takes.
    const int code = av_hwdevice_ctx_create(&made, AV_HWDEVICE_TYPE_VAAPI, nullptr, nullptr, 0);
    if (code < 0 && code != AVERROR(ENOMEM))
        throw MediaError(failure +
                         ": no device of VA-API answers; it needs one of /dev/dri/renderD128 and on that "
                         "this user may open, and its driver.");
    libav::check(code, errors, failure);
    const libav::Buffer device(made);
    auto pool = libav::owned<libav::Buffer>(av_hwframe_ctx_alloc(device.get()));
    auto& frames = *reinterpret_cast<AVHWFramesContext*>(pool->data);
    frames.format = AV_PIX_FMT_VAAPI;
    frames.sw_format = AV_PIX_FMT_NV12;
    frames.width = encoder.width;
    frames.height = encoder.height;
    frames.initial_pool_size = framesOnDevice;
    libav::check(av_hwframe_ctx_init(pool.get()), errors, failure);
    encoder.hw_frames_ctx = pool.release();   // freed with the encoder
}

libav::Frame emptyLike(const AVFrame& planes, AVPixelFormat format) {
    auto frame = libav::owned<libav::Frame>(av_frame_alloc());
    frame->format = format;
    frame->width = planes.width;
    frame->height = planes.height;
    return frame;
}

libav::Frame interleaved(const AVFrame& planes) {
    libav::Frame frame = emptyLike(planes, AV_PIX_FMT_NV12);
    if (av_frame_get_buffer(frame.get(), 0) < 0 || av_frame_copy_props(frame.get(), &planes) < 0)
        throw std::bad_alloc();
    for (int y = 0; y < planes.height; ++y)
        std::memcpy(frame->data[0] + std::ptrdiff_t(y) * frame->linesize[0],
            planes.data[0] + std::ptrdiff_t(y) * planes.linesize[0], std::size_t(planes.width));
    for (int y = 0; y < planes.height / 2; ++y) {
        const std::uint8_t* blue = planes.data[1] + std::ptrdiff_t(y) * planes.linesize[1];
        const std::uint8_t* red = planes.data[2] + std::ptrdiff_t(y) * planes.linesize[2];
        std::uint8_t* both = frame->data[1] + std::ptrdiff_t(y) * frame->linesize[1];
        for (int x = 0; x < planes.width / 2; ++x) {
            both[2 * x] = blue[x];
            both[2 * x + 1] = red[x];
        }
    }
    return frame;
}

libav::Frame onDevice(const AVFrame& frame, AVBufferRef& pool, const std::string& failure) {
    const libav::ErrorScope errors;
    auto there = libav::owned<libav::Frame>(av_frame_alloc());
    libav::check(av_hwframe_get_buffer(&pool, there.get(), 0), errors, failure);
    libav::check(av_hwframe_transfer_data(there.get(), &frame, 0), errors, failure);
    if (av_frame_copy_props(there.get(), &frame) < 0) throw std::bad_alloc();
    return there;
}

}   // namespace

std::span<const HardwareEncoder> hardwareEncoders() {
    static const std::vector<HardwareEncoder> table{
        {"h264_vaapi", MovieCodec::h264, Family::vaapi},
        {"hevc_vaapi", MovieCodec::hevc, Family::vaapi},
        {"vp9_vaapi", MovieCodec::vp9, Family::vaapi},
        {"av1_vaapi", MovieCodec::av1, Family::vaapi},
        {"h264_nvenc", MovieCodec::h264, Family::nvenc},
        {"hevc_nvenc", MovieCodec::hevc, Family::nvenc},
        {"av1_nvenc", MovieCodec::av1, Family::nvenc},
        {"h264_qsv", MovieCodec::h264, Family::qsv},
        {"hevc_qsv", MovieCodec::hevc, Family::qsv},
        {"vp9_qsv", MovieCodec::vp9, Family::qsv},
        {"av1_qsv", MovieCodec::av1, Family::qsv},
    };
    return table;
}

namespace HardwareFrames {

void set(const MovieSettings& settings, AVCodecContext& encoder, libav::Options& options,
    const std::string& failure) {
    const HardwareEncoder& asked = *settings.hardware;
    for (const auto& [name, value] : asked.options) options.set(name.c_str(), value);
    encoder.pix_fmt = AV_PIX_FMT_NV12;
    encoder.max_b_frames = 0;   // packets come in the order of their frames
    if (settings.codec == MovieCodec::h264) encoder.profile = FF_PROFILE_H264_HIGH;
    if (settings.quality || settings.bitsPerSec == 0)
        setQuality(settings, asked.family, encoder, options);
    else
        setRate(settings, asked.family, encoder, options);
    setEffort(settings, asked.family, options);
    if (asked.family != Family::vaapi) return;
    openDevice(encoder, failure);
    encoder.pix_fmt = AV_PIX_FMT_VAAPI;
}

libav::Frame copied(const AVFrame& planes, const AVCodecContext& encoder, const std::string& failure) {
    libav::Frame frame = interleaved(planes);
    return encoder.hw_frames_ctx ? onDevice(*frame, *encoder.hw_frames_ctx, failure) : std::move(frame);
}

}   // namespace HardwareFrames

}   // namespace tavix::media
