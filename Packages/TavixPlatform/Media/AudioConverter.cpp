#include "TavixPlatform/Media/AudioConverter.h"

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
#include <libavutil/samplefmt.h>
#include <libswresample/swresample.h>
}

#include <algorithm>

namespace tavix::media {
namespace {

constexpr char failure[] = "Cannot convert a sound";

constexpr int mostChannels = 64;   // of the library, which fills matrices of this size whatever is in use

constexpr int filterTaps = 64;
constexpr double cutoff = 0.95;   // of half the lower rate

}   // namespace

void AudioConverter::Deleter::operator()(SwrContext* p) const { swr_free(&p); }

AudioConverter::AudioConverter(const AVFrame& like, const AudioFormat& to)
    : to_(to), inputRate_(like.sample_rate), inputFormat_(like.format), machine_(swr_alloc()) {
    if (!machine_) throw std::bad_alloc();
    const libav::ErrorScope errors;
    setLayouts(like);
    void* options = machine_.get();
    av_opt_set_chlayout(options, "in_chlayout", &inputLayout_, 0);
    av_opt_set_chlayout(options, "out_chlayout", &outputLayout_, 0);
    av_opt_set_int(options, "in_sample_rate", inputRate_, 0);
    av_opt_set_int(options, "out_sample_rate", to_.sampleRate, 0);
    av_opt_set_sample_fmt(options, "in_sample_fmt", static_cast<AVSampleFormat>(inputFormat_), 0);
    av_opt_set_sample_fmt(options, "out_sample_fmt", AV_SAMPLE_FMT_FLT, 0);
    // In double precision the roundings of different instruction sets are too small to show in a float.
    if (inputRate_ != to_.sampleRate)
        av_opt_set_sample_fmt(options, "internal_sample_fmt", AV_SAMPLE_FMT_DBLP, 0);
    av_opt_set_int(options, "filter_size", filterTaps, 0);
    av_opt_set_double(options, "cutoff", cutoff, 0);
    av_opt_set_int(options, "exact_rational", 1, 0);
    setMatrix();
    libav::check(swr_init(machine_.get()), errors, failure);
}

AudioConverter::~AudioConverter() {
    av_channel_layout_uninit(&inputLayout_);
    av_channel_layout_uninit(&outputLayout_);
}

void AudioConverter::setLayouts(const AVFrame& like) {
    if (like.ch_layout.order == AV_CHANNEL_ORDER_UNSPEC || !av_channel_layout_check(&like.ch_layout))
        av_channel_layout_default(&inputLayout_, std::max(like.ch_layout.nb_channels, 1));
    else if (av_channel_layout_copy(&inputLayout_, &like.ch_layout) < 0)
        throw std::bad_alloc();
    av_channel_layout_default(&outputLayout_, to_.channels);
    planes_.resize(static_cast<std::size_t>(inputLayout_.nb_channels));
}

// The library would make one channel 3 dB quieter, and let the sum of several pass full scale.
void AudioConverter::setMatrix() {
    if (av_channel_layout_compare(&inputLayout_, &outputLayout_) == 0) return;
    std::vector<double> matrix(mostChannels * mostChannels);
    constexpr double half = 0.70710678118654752;   // of the power: the middle and the sides in a downmix
    const bool isKnown = inputLayout_.nb_channels > 1 &&
                         swr_build_matrix2(&inputLayout_, &outputLayout_, half, half, 0, 1, 1, matrix.data(),
                             mostChannels, AV_MATRIX_ENCODING_NONE, nullptr) >= 0;
    if (!isKnown) std::fill(matrix.begin(), matrix.end(), 1.0 / inputLayout_.nb_channels);
    swr_set_matrix(machine_.get(), matrix.data(), mostChannels);
}

bool AudioConverter::takes(const AVFrame& frame) const {
    return frame.sample_rate == inputRate_ && frame.format == inputFormat_ &&
           frame.ch_layout.nb_channels == inputLayout_.nb_channels;
}

void AudioConverter::convert(const AVFrame& frame, int first, int count, std::vector<float>& to) {
    const auto format = static_cast<AVSampleFormat>(inputFormat_);
    const bool isPlanar = av_sample_fmt_is_planar(format) != 0;
    const int stride = av_get_bytes_per_sample(format) * (isPlanar ? 1 : inputLayout_.nb_channels);
    const int planeCount = isPlanar ? inputLayout_.nb_channels : 1;
    for (int i = 0; i < planeCount; ++i)
        planes_[static_cast<std::size_t>(i)] =
            frame.extended_data[i] + std::ptrdiff_t{first} * std::ptrdiff_t{stride};
    convert(planes_.data(), count, to);
}

void AudioConverter::beginWithSilence(int count) {
    const libav::ErrorScope errors;
    if (count > 0) libav::check(swr_inject_silence(machine_.get(), count), errors, failure);
}

void AudioConverter::finish(std::vector<float>& to) { convert(nullptr, 0, to); }

void AudioConverter::convert(const std::uint8_t** planes, int count, std::vector<float>& to) {
    const libav::ErrorScope errors;
    const auto channels = static_cast<std::size_t>(to_.channels);
    const int room = libav::check(swr_get_out_samples(machine_.get(), count), errors, failure);
    const std::size_t before = to.size();
    to.resize(before + static_cast<std::size_t>(room) * channels);
    auto* out = reinterpret_cast<std::uint8_t*>(to.data() + before);
    const int made = swr_convert(machine_.get(), &out, room, planes, count);
    to.resize(before + static_cast<std::size_t>(std::max(made, 0)) * channels);
    libav::check(made, errors, failure);
}

}   // namespace tavix::media
