#include "TavixPlatform/Media/AudioWriter.h"

#include "TavixPlatform/Media/OutputFile.h"

extern "C" {
#include <libavutil/channel_layout.h>
}

#include <algorithm>
#include <cstring>
#include <string>

namespace tavix::media {
namespace {

libav::CodecContext openEncoder(const AudioSettings& settings, const std::string& failure) {
    const libav::ErrorScope errors;
    const bool isOpus = settings.codec == AudioCodec::opus;
    const AVCodec* codec = avcodec_find_encoder_by_name(isOpus ? "libopus" : "aac");
    if (!codec) throw MediaError(failure + ": FFmpeg was built without " + (isOpus ? "Opus." : "AAC."));
    auto encoder = libav::owned<libav::CodecContext>(avcodec_alloc_context3(codec));
    encoder->sample_fmt = isOpus ? AV_SAMPLE_FMT_FLT : AV_SAMPLE_FMT_FLTP;
    encoder->sample_rate = settings.format.sampleRate;
    encoder->time_base = {1, settings.format.sampleRate};
    av_channel_layout_default(&encoder->ch_layout, settings.format.channels);
    encoder->bit_rate = settings.bitsPerSec;
    encoder->flags |= AV_CODEC_FLAG_GLOBAL_HEADER | AV_CODEC_FLAG_BITEXACT;
    // There are bits enough to code noise as it is, instead of having the player make its own.
    libav::Options options;
    if (!isOpus) options.set("aac_pns", "0");
    libav::check(avcodec_open2(encoder.get(), codec, options.get()), errors, failure);
    return encoder;
}

}   // namespace

class AudioWriter::Session {
public:
    explicit Session(const AudioSettings& settings)
        : failure_("Cannot encode the sound \"" + settings.path.string() + "\""),
          encoder_(openEncoder(settings, failure_)),
          file_(settings.path, settings.codec == AudioCodec::opus ? "webm" : "ipod"),
          packet_(libav::owned<libav::Packet>(av_packet_alloc())) {
        file_.addTrack(*encoder_, 0);
        libav::Options options;
        // The length is told in these units, to the sample.
        if (settings.codec == AudioCodec::aac)
            options.set("movie_timescale", std::to_string(settings.format.sampleRate));
        file_.begin(options);
    }

    void append(std::span<const float> samples) {
        const std::size_t full = static_cast<std::size_t>(encoder_->frame_size) * channels();
        while (!samples.empty()) {
            const auto part = samples.first(std::min(samples.size(), full - pending_.size()));
            pending_.insert(pending_.end(), part.begin(), part.end());
            samples = samples.subspan(part.size());
            if (pending_.size() == full) encodePending();
        }
    }

    void finish() {
        if (!pending_.empty()) encodePending();
        send(nullptr);
        file_.finish();
    }

private:
    std::size_t channels() const { return static_cast<std::size_t>(encoder_->ch_layout.nb_channels); }

    void encodePending() {
        auto frame = libav::owned<libav::Frame>(av_frame_alloc());
        frame->format = encoder_->sample_fmt;
        frame->sample_rate = encoder_->sample_rate;
        frame->nb_samples = static_cast<int>(pending_.size() / channels());
        frame->pts = written_;
        if (av_channel_layout_copy(&frame->ch_layout, &encoder_->ch_layout) < 0 ||
            av_frame_get_buffer(frame.get(), 0) < 0)
            throw std::bad_alloc();
        fill(*frame);
        written_ += frame->nb_samples;
        pending_.clear();
        send(frame.get());
    }

    void fill(AVFrame& frame) const {
        if (!av_sample_fmt_is_planar(encoder_->sample_fmt)) {
            std::memcpy(frame.data[0], pending_.data(), pending_.size() * sizeof(float));
            return;
        }
        for (std::size_t channel = 0; channel < channels(); ++channel) {
            auto* plane = reinterpret_cast<float*>(frame.extended_data[channel]);
            for (std::size_t i = channel; i < pending_.size(); i += channels()) *plane++ = pending_[i];
        }
    }

    // Null says that there are no more frames.
    void send(const AVFrame* frame) {
        const libav::ErrorScope errors;
        libav::check(avcodec_send_frame(encoder_.get(), frame), errors, failure_);
        for (;;) {
            const int code = avcodec_receive_packet(encoder_.get(), packet_.get());
            if (code == AVERROR(EAGAIN) || code == AVERROR_EOF) return;
            libav::check(code, errors, failure_);
            file_.write(*packet_);
        }
    }

    std::string failure_;
    libav::CodecContext encoder_;
    OutputFile file_;
    libav::Packet packet_;
    std::vector<float> pending_;   // less than the encoder takes at a time
    std::int64_t written_ = 0;
};

AudioWriter::AudioWriter(const AudioSettings& settings) : session_(std::make_unique<Session>(settings)) {}
AudioWriter::~AudioWriter() = default;
void AudioWriter::append(std::span<const float> interleaved) { session_->append(interleaved); }
void AudioWriter::finish() { session_->finish(); }

}   // namespace tavix::media
