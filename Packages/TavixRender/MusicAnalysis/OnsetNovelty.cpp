#include "TavixRender/MusicAnalysis/OnsetNovelty.h"

#include "TavixPlatform/Imaging/StopScope.h"

#include <kissfft/kiss_fftr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <numeric>
#include <utility>

namespace tavix::OnsetNovelty {

namespace {

constexpr int binCount = frameSamples / 2;
using Magnitudes = std::array<float, binCount>;

// The compressed magnitudes of one frame at a time, with buffers that are made once.
class Spectrum {
public:
    Spectrum() : plan_(kiss_fftr_alloc(frameSamples, 0, nullptr, nullptr)) {
        for (int n = 0; n < frameSamples; ++n)
            window_[static_cast<std::size_t>(n)] =
                static_cast<float>(0.5 * (1 - std::cos(2 * std::numbers::pi * n / frameSamples)));
    }

    void compute(std::span<const float, frameSamples> frame, Magnitudes& result) {
        for (std::size_t n = 0; n < frame.size(); ++n) windowed_[n] = frame[n] * window_[n];
        kiss_fftr(plan_.get(), windowed_.data(), bins_.data());
        // Twice the transform, as a one-sided spectrum has it; compression then makes quiet onsets count.
        constexpr float sensitivity = 2 * 5.f / frameSamples;
        for (std::size_t k = 0; k < result.size(); ++k)
            result[k] =
                std::log1p(std::sqrt(bins_[k].r * bins_[k].r + bins_[k].i * bins_[k].i) * sensitivity);
    }

private:
    struct Free {
        void operator()(kiss_fftr_state* plan) const { kiss_fftr_free(plan); }
    };
    std::unique_ptr<kiss_fftr_state, Free> plan_;
    std::array<float, frameSamples> window_, windowed_;
    std::array<kiss_fft_cpx, frameSamples / 2 + 1> bins_;
};

double rise(const Magnitudes& from, const Magnitudes& to) {
    float sum = 0;
    for (std::size_t k = 0; k < to.size(); ++k) sum += std::max(to[k] - from[k], 0.f);
    return sum;
}

void subtractLocalMean(std::vector<double>& values, double frameRate) {
    const auto half = static_cast<std::ptrdiff_t>(std::max(std::lround(frameRate * 0.4), 3l) / 2);
    std::vector<double> sums(values.size() + 1, 0);
    std::partial_sum(values.begin(), values.end(), sums.begin() + 1);
    const auto last = std::ssize(values) - 1;
    for (std::ptrdiff_t i = 0; i <= last; ++i) {
        const auto low = std::max<std::ptrdiff_t>(i - half, 0), high = std::min(i + half, last);
        const double mean = (sums[static_cast<std::size_t>(high + 1)] - sums[static_cast<std::size_t>(low)]) /
                            static_cast<double>(high - low + 1);
        auto& value = values[static_cast<std::size_t>(i)];
        value = std::max(value - mean, 0.0);
    }
}

}   // namespace

std::vector<double> curve(std::span<const float> samples, double sampleRateHz) {
    if (samples.size() < frameSamples) return {};
    std::vector<double> novelty((samples.size() - frameSamples) / hopSamples + 1, 0);
    Spectrum spectrum;
    Magnitudes before, now;
    for (std::size_t i = 0; i < novelty.size(); ++i) {
        imaging::checkStop();
        spectrum.compute(samples.subspan(i * hopSamples).first<frameSamples>(), now);
        if (i > 0) novelty[i] = rise(before, now);
        std::swap(before, now);
    }
    subtractLocalMean(novelty, sampleRateHz / hopSamples);
    return novelty;
}

std::vector<double> onsetsSec(std::span<const double> novelty, double sampleRateHz) {
    if (novelty.empty()) return {};
    const auto count = static_cast<double>(novelty.size());
    const double mean = std::accumulate(novelty.begin(), novelty.end(), 0.0) / count;
    double squares = 0;
    for (const double value : novelty) squares += (value - mean) * (value - mean);
    const double threshold = mean + 1.5 * std::sqrt(squares / count);
    const auto reach = static_cast<std::size_t>(std::max(std::lround(sampleRateHz / hopSamples * 0.05), 1l));
    std::vector<double> onsets;
    for (std::size_t i = 0; i < novelty.size(); ++i) {
        if (!(novelty[i] > threshold)) continue;
        const auto from = i - std::min(i, reach), to = std::min(i + reach, novelty.size() - 1);
        const auto window = novelty.subspan(from, to - from + 1);
        if (*std::max_element(window.begin(), window.end()) <= novelty[i])
            onsets.push_back(secAt(static_cast<double>(i), sampleRateHz));
    }
    return onsets;
}

}   // namespace tavix::OnsetNovelty
