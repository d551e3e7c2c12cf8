#include "Editor/EditorDomain/Timeline/Waveform.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

std::int8_t quantized(float value) {
    return static_cast<std::int8_t>(std::lround(std::clamp(value, -1.0f, 1.0f) * 127));
}

Waveform::Peak joined(const Waveform::Peak& a, const Waveform::Peak& b) {
    return {std::min(a.low, b.low), std::max(a.high, b.high)};
}

std::vector<Waveform::Peak> halved(const std::vector<Waveform::Peak>& peaks) {
    std::vector<Waveform::Peak> half((peaks.size() + 1) / 2);
    for (std::size_t i = 0; i < half.size(); ++i)
        half[i] = 2 * i + 1 < peaks.size() ? joined(peaks[2 * i], peaks[2 * i + 1]) : peaks[2 * i];
    return half;
}

}   // namespace

Waveform::Waveform(std::span<const float> samples, double sampleRateHz) {
    if (samples.empty() || !(sampleRateHz > 0)) return;
    const double perPeak = sampleRateHz / peaksPerSec;
    std::vector<Peak> peaks(static_cast<std::size_t>(std::ceil(double(samples.size()) / perPeak)));
    for (std::size_t i = 0; i < peaks.size(); ++i) {
        const auto from = std::min(static_cast<std::size_t>(double(i) * perPeak), samples.size() - 1);
        const auto to =
            std::clamp(static_cast<std::size_t>(double(i + 1) * perPeak), from + 1, samples.size());
        const auto [low, high] = std::ranges::minmax(samples.subspan(from, to - from));
        peaks[i] = {quantized(low), quantized(high)};
    }
    levels_.push_back(std::move(peaks));
    while (levels_.back().size() > 1) levels_.push_back(halved(levels_.back()));
}

Waveform::Peak Waveform::between(double fromSec, double toSec) const {
    if (levels_.empty() || !(toSec > fromSec)) return {};
    const double wanted = std::max((toSec - fromSec) * peaksPerSec / 2, 1.0);
    const auto level = std::min(static_cast<std::size_t>(std::log2(wanted)), levels_.size() - 1);
    const auto& peaks = levels_[level];
    const double perSec = peaksPerSec / double(std::size_t(1) << level);
    const auto first = std::max(static_cast<long>(std::floor(fromSec * perSec)), 0L);
    const auto last = std::min(static_cast<long>(std::ceil(toSec * perSec)), static_cast<long>(peaks.size()));
    Peak peak;
    for (long i = first; i < last; ++i) peak = joined(peak, peaks[static_cast<std::size_t>(i)]);
    return peak;
}

}   // namespace tavix
