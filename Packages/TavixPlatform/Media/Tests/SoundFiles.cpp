#include "TavixPlatform/Media/Tests/SoundFiles.h"

#include "TavixPlatform/Media/AudioReader.h"
#include "TavixPlatform/Media/OutputFile.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libswresample/swresample.h>
}

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace tavix::media::tests {
namespace {

constexpr int freeFrameSize = 960;   // of coders without one of their own; whole milliseconds at 48 kHz

struct SwrDeleter {
    void operator()(SwrContext* p) const { swr_free(&p); }
};

libav::CodecContext openEncoder(const AudioFormat& format, const Coding& coding) {
    const AVCodec* codec = avcodec_find_encoder_by_name(coding.encoder.c_str());
    if (!codec) throw MediaError("no encoder " + coding.encoder);
    auto encoder = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
    encoder->sample_fmt = codec->sample_fmts[0];
    encoder->sample_rate = format.sampleRate;
    encoder->time_base = {1, format.sampleRate};
    av_channel_layout_default(&encoder->ch_layout, format.channels);
    encoder->bit_rate = coding.bitsPerSec;
    encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    const libav::ErrorScope errors;
    libav::Options options;
    options.set("aac_pns", "0");   // noise made by the decoder is another each time
    libav::check(avcodec_open2(encoder.get(), codec, options.get()), errors, coding.encoder);
    return encoder;
}

libav::Frame frameOf(AVCodecContext& encoder, const float* samples, int count) {
    auto frame = libav::owned<libav::Frame>(av_frame_alloc());
    frame->format = encoder.sample_fmt;
    frame->sample_rate = encoder.sample_rate;
    frame->nb_samples = count;
    av_channel_layout_copy(&frame->ch_layout, &encoder.ch_layout);
    av_frame_get_buffer(frame.get(), 0);
    SwrContext* made = nullptr;
    swr_alloc_set_opts2(&made, &encoder.ch_layout, encoder.sample_fmt, encoder.sample_rate,
        &encoder.ch_layout, AV_SAMPLE_FMT_FLT, encoder.sample_rate, 0, nullptr);
    const std::unique_ptr<SwrContext, SwrDeleter> converter(made);
    swr_init(converter.get());
    auto in = reinterpret_cast<const std::uint8_t*>(samples);
    swr_convert(converter.get(), frame->extended_data, count, &in, count);
    return frame;
}

}   // namespace

Samples noise(std::int64_t frames, int channels, unsigned seed) {
    std::mt19937 random(seed);
    Samples samples(static_cast<std::size_t>(frames * channels));
    std::vector<double> smooth(static_cast<std::size_t>(channels));
    for (std::size_t i = 0; i < samples.size(); ++i) {
        double& level = smooth[i % smooth.size()];
        level += 0.4 * (double(random()) / 2147483648.0 - 1 - level);
        samples[i] = static_cast<float>(std::round(level * 20000) / 32768);
    }
    return samples;
}

Samples tone(std::int64_t frames, const AudioFormat& format, double frequencyHz, double amplitude) {
    Samples samples;
    for (std::int64_t i = 0; i < frames; ++i)
        samples.insert(samples.end(), static_cast<std::size_t>(format.channels),
            static_cast<float>(
                amplitude * std::sin(2 * std::numbers::pi * frequencyHz * double(i) / format.sampleRate)));
    return samples;
}

Samples click(std::int64_t frames, int channels, std::int64_t at, float amplitude) {
    Samples samples(static_cast<std::size_t>(frames * channels));
    std::fill_n(samples.begin() + at * channels, channels, amplitude);
    return samples;
}

void writeSound(const std::filesystem::path& path, const AudioFormat& format, const Samples& samples,
    const Coding& coding) {
    const libav::CodecContext encoder = openEncoder(format, coding);
    OutputFile file(path, coding.container.c_str());
    file.addTrack(*encoder, 0);
    libav::Options options;
    file.begin(options);
    const auto packet = libav::owned<libav::Packet>(av_packet_alloc());
    const auto drain = [&](const AVFrame* frame) {
        avcodec_send_frame(encoder.get(), frame);
        while (avcodec_receive_packet(encoder.get(), packet.get()) >= 0) file.write(*packet);
    };
    const int frameSize = encoder->frame_size > 0 ? encoder->frame_size : freeFrameSize;
    const std::int64_t total = std::ssize(samples) / format.channels;
    for (std::int64_t at = 0; at < total; at += frameSize) {
        const auto count = static_cast<int>(std::min<std::int64_t>(frameSize, total - at));
        const libav::Frame frame = frameOf(*encoder, samples.data() + at * format.channels, count);
        frame->pts = at + (coding.gapFrames > 0 && at >= coding.gapAt ? coding.gapFrames : 0);
        drain(frame.get());
    }
    drain(nullptr);
    file.finish();
}

Samples readSound(const std::filesystem::path& path, const AudioFormat& format, std::size_t blockFrames) {
    AudioReader reader(path, format);
    const auto channels = static_cast<std::size_t>(format.channels);
    Samples all, block(blockFrames * channels);
    for (std::size_t got = blockFrames; got == blockFrames;) {
        got = reader.read(block);
        all.insert(all.end(), block.begin(), block.begin() + std::ptrdiff_t(got * channels));
    }
    return all;
}

int delayOf(const Samples& late, const Samples& samples, int channels, int most) {
    const auto at = [&](const Samples& from, std::int64_t frame) {
        const std::int64_t i = frame * channels;
        return i >= 0 && i < std::ssize(from) ? double(from[static_cast<std::size_t>(i)]) : 0.0;
    };
    const std::int64_t frames = std::ssize(samples) / channels;
    double highest = -1;
    int best = 0;
    for (int delay = -most; delay <= most; ++delay) {
        double sum = 0;
        for (std::int64_t i = 0; i < frames; i += 3) sum += at(samples, i) * at(late, i + delay);
        if (sum > highest) {
            highest = sum;
            best = delay;
        }
    }
    return best;
}

double peakOf(const Samples& samples) {
    double peak = 0;
    for (const float sample : samples) peak = std::max(peak, std::abs(double(sample)));
    return peak;
}

}   // namespace tavix::media::tests
