#include "TavixPlatform/Media/MovieEncoder.h"

#include "TavixPlatform/Media/HardwareFrames.h"
#include "TavixPlatform/Media/OutputFile.h"
#include "TavixPlatform/Media/PieceFile.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace tavix::media {
namespace {

// Threads, and whatever else an encoder would take from the machine, are fixed: a frame refers only to what
// the frames encoded beside it have finished, so the pictures depend on how many there are.
constexpr int encoderThreads = 2;
constexpr int keyFrameDistanceSec = 2;   // an editor decodes no more than that to show any one frame

struct Codec {
    const char* encoder;
    AVPixelFormat pixels;
    const char* name;
    unsigned tag;   // in the sample entry; 0 leaves it to the container
};

constexpr unsigned tagOf(char a, char b, char c, char d) { return MKTAG(a, b, c, d); }

// Of the two ProRes encoders this one is four times as quick at the same distance from the source.
const Codec& codecOf(MovieCodec codec) {
    static constexpr std::array<Codec, 7> codecs{{
        {"libx264", AV_PIX_FMT_YUV420P, "H.264", 0},
        {"libx265", AV_PIX_FMT_YUV420P, "HEVC", tagOf('h', 'v', 'c', '1')},
        {"prores_aw", AV_PIX_FMT_YUV422P10, "ProRes 422 HQ", tagOf('a', 'p', 'c', 'h')},
        {"prores_aw", AV_PIX_FMT_YUVA444P10, "ProRes 4444", tagOf('a', 'p', '4', 'h')},
        {"libvpx-vp9", AV_PIX_FMT_YUV420P, "VP9", 0},
        {"libsvtav1", AV_PIX_FMT_YUV420P, "AV1", 0},
        {"libvpx-vp9", AV_PIX_FMT_YUVA420P, "VP9 with alpha", 0},
    }};
    return codecs[static_cast<std::size_t>(codec)];
}

bool isProRes(MovieCodec codec) {
    return codec == MovieCodec::proRes422HQ || codec == MovieCodec::proRes4444;
}

std::string failureOf(const MovieSettings& settings) {
    return "Cannot encode " + std::to_string(settings.sizePx.width) + " by " +
           std::to_string(settings.sizePx.height) + " pixels as " + codecOf(settings.codec).name;
}

void refuseImpossible(const MovieSettings& settings) {
    const auto [width, height] = settings.sizePx;
    const std::string failure = failureOf(settings) + ": ";
    if (width < 1 || height < 1) throw MediaError(failure + "both sides must be at least 1 pixel.");
    const imaging::PlanarFormat format = planarFormatOf(settings.codec);
    if (needsEvenHeight(settings.codec) && (width % 2 || height % 2))
        throw MediaError(failure + "width and height must be even.");
    if (format == imaging::PlanarFormat::yuv422p10 && width % 2)
        throw MediaError(failure + "the width must be even.");
    if (settings.frameDuration < 1 || settings.timescale < 1)
        throw MediaError(failure + "a frame's duration and the timescale must be at least 1.");
}

void tagColor(AVCodecContext& encoder) {
    encoder.color_primaries = AVCOL_PRI_BT709;
    encoder.color_trc = AVCOL_TRC_BT709;
    encoder.colorspace = AVCOL_SPC_BT709;
    encoder.color_range = AVCOL_RANGE_MPEG;
    if (encoder.pix_fmt == AV_PIX_FMT_YUV420P || encoder.pix_fmt == AV_PIX_FMT_YUVA420P)
        encoder.chroma_sample_location = AVCHROMA_LOC_LEFT;
}

// Of the encoder's own scale, on which less is better: `best` for 100 and `worst` for 0.
std::string constantRate(int quality, double best, double worst) {
    return std::to_string(std::lround(worst + (best - worst) * std::clamp(quality, 0, 100) / 100));
}

std::string shown(double coarseness) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", coarseness);
    return text;
}

bool hasRate(const MovieSettings& settings) {
    return settings.bitsPerSec > 0 && !settings.quality && !settings.coarseness;
}

// Of H.264 and HEVC: no pictures are coded finer than this where they may take less than their rate. They are
// 52 dB and more from their source then.
constexpr int finestQuantizer = 10;

// What a rate comes to for pictures of texts, shapes and devices: measured, as all six examples lie within
// four steps of it. x264 begins every film with a guess of its own that is up to twenty steps off, which a
// piece of two seconds does not make up for: it took twice the bits for its quality.
int quantizerOf(const MovieSettings& settings, double framesPerSec) {
    constexpr double knownBits = 0.226, knownQuantizer = 12, perOctave = 4.4;   // bits for each pixel
    const double pixels = double(settings.sizePx.width) * settings.sizePx.height;
    const double bits = double(settings.bitsPerSec) / (pixels * framesPerSec);
    const double guess = knownQuantizer - perOctave * std::log2(bits / knownBits);
    return static_cast<int>(std::lround(std::clamp(guess, double(finestQuantizer), 45.0)));
}

// The beginning of a piece, as it would come in the middle of a film: a picture that others refer to is finer
// than they are, which x264 leaves out for its first one.
std::string firstPictures(const MovieSettings& settings, double framesPerSec) {
    constexpr int finerSteps = 2, lastOfBeginning = 2;
    if (!hasRate(settings)) return ":zones=0,0,b=1.4";
    const int quantizer = quantizerOf(settings, framesPerSec);
    return ":ratetol=4:zones=0,0,q=" + std::to_string(quantizer - finerSteps) + "/1," +
           std::to_string(lastOfBeginning) + ",q=" + std::to_string(quantizer);
}

std::string limitOf(const MovieSettings& settings) {
    const bool isLimited = (settings.mayTakeLess && hasRate(settings)) || settings.coarseness;
    return isLimited ? ":qpmin=" + std::to_string(finestQuantizer) : "";
}

void setH264(const MovieSettings& settings, AVCodecContext& encoder, libav::Options& options) {
    struct Manner {
        const char* preset;
        int framesAhead;   // looked at before one is coded; each takes some 13 MB at 1080 x 1920
    };
    static constexpr Manner manners[] = {{"veryfast", 4}, {"medium", 10}, {"slow", 20}};
    const Manner& manner = manners[static_cast<std::size_t>(settings.effort)];
    encoder.profile = FF_PROFILE_H264_HIGH;
    options.set("preset", manner.preset);
    options.set("profile", "high");
    if (settings.quality) options.set("crf", constantRate(*settings.quality, 12, 42));
    if (settings.coarseness) options.set("crf", shown(*settings.coarseness));
    options.set("x264-params", "cpu-independent=1:lookahead-threads=1:sync-lookahead=0:rc-lookahead=" +
                                   std::to_string(manner.framesAhead) +
                                   firstPictures(settings, av_q2d(encoder.framerate)) + limitOf(settings));
}

void setHevc(const MovieSettings& settings, libav::Options& options) {
    static constexpr std::array presets{"ultrafast", "medium", "slow"};
    options.set("preset", presets[static_cast<std::size_t>(settings.effort)]);
    if (settings.quality) options.set("crf", constantRate(*settings.quality, 14, 44));
    if (settings.coarseness) options.set("crf", shown(*settings.coarseness));
    // info=0 leaves the library's version and settings out of the stream. One frame at a time, its rows in
    // parallel: with several, rate control now and then depends on which is done first.
    options.set(
        "x265-params", "log-level=none:info=0:frame-threads=1:pools=" + std::to_string(encoderThreads) +
                           ":chromaloc=0:open-gop=0:b-pyramid=1" + limitOf(settings));
}

// These two are chosen for small films: without a rate they keep to a quality that few can tell from the
// source.
constexpr int usualQuality = 70;

std::string wholeRate(const MovieSettings& settings, double best, double worst) {
    if (settings.coarseness) return std::to_string(std::lround(*settings.coarseness));
    return constantRate(settings.quality.value_or(usualQuality), best, worst);
}

void setVp9(const MovieSettings& settings, libav::Options& options) {
    static constexpr std::array speeds{"6", "4", "2"};
    options.set("deadline", "good");
    options.set("cpu-used", speeds[static_cast<std::size_t>(settings.effort)]);
    options.set("row-mt", "1");
    options.set("lag-in-frames", "16");
    if (!hasRate(settings)) options.set("crf", wholeRate(settings, 15, 55));
}

// It prints to standard error, unless this is set before it is first used.
void quietAv1() {
    static const int isSet = ::setenv("SVT_LOG", "0", 0);
    static_cast<void>(isSet);
}

void setAv1(const MovieSettings& settings, libav::Options& options) {
    static constexpr std::array presets{"10", "8", "6"};
    quietAv1();
    options.set("preset", presets[static_cast<std::size_t>(settings.effort)]);
    options.set("svtav1-params", "lp=" + std::to_string(encoderThreads));
    if (!hasRate(settings)) options.set("crf", wholeRate(settings, 18, 58));
}

void setProRes(const MovieSettings& settings, AVCodecContext& encoder, libav::Options& options) {
    // Every picture stands alone, so here the number of threads changes nothing but the speed.
    encoder.thread_type = FF_THREAD_FRAME;
    encoder.profile =
        settings.codec == MovieCodec::proRes4444 ? FF_PROFILE_PRORES_4444 : FF_PROFILE_PRORES_HQ;
    options.set("vendor", "apl0");
}

void setCodec(const MovieSettings& settings, AVCodecContext& encoder, libav::Options& options) {
    if (isProRes(settings.codec)) return setProRes(settings, encoder, options);
    encoder.gop_size =
        std::max(static_cast<int>(std::lround(keyFrameDistanceSec * av_q2d(encoder.framerate))), 1);
    if (settings.hardware) return HardwareFrames::set(settings, encoder, options, failureOf(settings));
    encoder.bit_rate = hasRate(settings) ? settings.bitsPerSec : 0;
    switch (settings.codec) {
    case MovieCodec::h264: return setH264(settings, encoder, options);
    case MovieCodec::hevc: return setHevc(settings, options);
    case MovieCodec::vp9:
    case MovieCodec::vp9Alpha: return setVp9(settings, options);
    default: return setAv1(settings, options);
    }
}

}   // namespace

imaging::PlanarFormat planarFormatOf(MovieCodec codec) {
    switch (codec) {
    case MovieCodec::proRes422HQ: return imaging::PlanarFormat::yuv422p10;
    case MovieCodec::proRes4444:
    case MovieCodec::vp9Alpha: return imaging::PlanarFormat::yuva444p10;
    default: return imaging::PlanarFormat::yuv420p8;
    }
}

bool needsEvenHeight(MovieCodec codec) { return !isProRes(codec); }

const char* softwareEncoderName(MovieCodec codec) { return codecOf(codec).encoder; }

libav::CodecContext openMovieEncoder(const MovieSettings& settings) {
    refuseImpossible(settings);
    const libav::ErrorScope errors;
    const Codec& kind = codecOf(settings.codec);
    const std::string name = settings.hardware ? settings.hardware->name : kind.encoder;
    const AVCodec* codec = avcodec_find_encoder_by_name(name.c_str());
    if (!codec) throw MediaError(failureOf(settings) + ": FFmpeg was built without " + name + ".");
    auto encoder = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
    encoder->width = settings.sizePx.width;
    encoder->height = settings.sizePx.height;
    encoder->pix_fmt = kind.pixels;
    encoder->sample_aspect_ratio = {1, 1};
    encoder->time_base = {1, settings.timescale};
    av_reduce(&encoder->framerate.num, &encoder->framerate.den, settings.timescale, settings.frameDuration,
        std::numeric_limits<int>::max());
    encoder->thread_count = encoderThreads;
    encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    encoder->codec_tag = kind.tag;
    tagColor(*encoder);
    libav::Options options;
    setCodec(settings, *encoder, options);
    int code = avcodec_open2(encoder.get(), codec, options.get());
    // Codes of drivers say less than the log: "Operation not permitted" where a library is missing.
    if (settings.hardware && code < 0 && code != AVERROR(ENOMEM)) code = AVERROR_EXTERNAL;
    libav::check(code, errors, failureOf(settings));
    return encoder;
}

libav::BitstreamFilter openMovieFilter(const MovieSettings& settings, const AVCodecContext& encoder) {
    if (settings.codec != MovieCodec::h264) return nullptr;
    const libav::ErrorScope errors;
    const std::string failure = failureOf(settings);
    AVBSFContext* made = nullptr;
    // Type 6 is supplemental information, where the encoder signs with its version and settings.
    libav::check(av_bsf_list_parse_str("filter_units=remove_types=6", &made), errors, failure);
    libav::BitstreamFilter filter(made);
    libav::check(avcodec_parameters_from_context(filter->par_in, &encoder), errors, failure);
    filter->time_base_in = encoder.time_base;
    libav::check(av_bsf_init(filter.get()), errors, failure);
    return filter;
}

libav::Options movieOptions(MovieContainer container, int timescale) {
    libav::Options options;
    if (container == MovieContainer::webm) {
        options.set("cues_to_front", "1");
        return options;
    }
    options.set("movflags", "faststart+write_colr");
    options.set("video_track_timescale", std::to_string(timescale));
    options.set("movie_timescale", std::to_string(timescale));
    return options;
}

const char* nameOf(MovieContainer container) {
    switch (container) {
    case MovieContainer::mov: return "mov";
    case MovieContainer::webm: return "webm";
    default: return "mp4";
    }
}

namespace {

// A film of one track.
class MovieFile final : public PacketSink {
public:
    MovieFile(const MovieSettings& settings, const AVCodecContext& encoder, MovieContainer container)
        : file_(settings.path, nameOf(container)) {
        file_.addTrack(encoder, codecOf(settings.codec).tag);
        libav::Options options = movieOptions(container, settings.timescale);
        file_.begin(options);
    }
    void take(AVPacket& packet) override { file_.write(packet); }
    void finish() override { file_.finish(); }

private:
    OutputFile file_;
};

}   // namespace

std::unique_ptr<PacketSink> openMovieFile(const MovieSettings& settings, const AVCodecContext& encoder) {
    if (settings.container == MovieContainer::piece)
        return std::make_unique<PieceWriter>(settings.path, encoder, codecOf(settings.codec).tag);
    const bool isMov = isProRes(settings.codec);
    return std::make_unique<MovieFile>(settings, encoder, isMov ? MovieContainer::mov : settings.container);
}

}   // namespace tavix::media
