#include "Sounds/Sound.h"

#include <algorithm>
#include <numbers>
#include <string_view>

namespace tavix::sounds {

namespace {

void putText(std::vector<std::uint8_t>& bytes, std::string_view text) {
    for (const char c : text) bytes.push_back(static_cast<std::uint8_t>(c));
}

void putLittleEndian(std::vector<std::uint8_t>& bytes, std::uint32_t value, int size) {
    for (int i = 0; i < size; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint32_t pcm24(float sample) {
    return static_cast<std::uint32_t>(std::lround(std::clamp(sample, -1.f, 1.f) * 8388607.f));
}

}   // namespace

void Sound::scale(double gain) {
    for (auto* channel : {&left, &right})
        for (float& sample : *channel) sample = static_cast<float>(sample * gain);
}

double Sound::peak() const {
    float largest = 0;
    for (const auto* channel : {&left, &right})
        for (const float sample : *channel) largest = std::max(largest, std::abs(sample));
    return largest;
}

void Sound::fadeEnds(double inSec, double outSec) {
    const auto gain = [](double fraction) { return 0.5 - 0.5 * std::cos(std::numbers::pi * fraction); };
    for (std::size_t i = 0; i < count(); ++i) {
        const double fromStartSec = static_cast<double>(i) / sampleRateHz;
        const double toEndSec = static_cast<double>(count() - 1 - i) / sampleRateHz;
        double g = 1;
        if (fromStartSec < inSec) g *= gain(fromStartSec / inSec);
        if (toEndSec < outSec) g *= gain(toEndSec / outSec);
        left[i] = static_cast<float>(left[i] * g);
        right[i] = static_cast<float>(right[i] * g);
    }
}

// RIFF WAVE, format 1 (Microsoft and IBM, "Multimedia Programming Interface and Data Specifications 1.0").
std::vector<std::uint8_t> wavBytes(const Sound& sound) {
    constexpr std::uint32_t channels = 2, sampleBytes = 3, headerBytes = 44;
    const auto rate = static_cast<std::uint32_t>(sampleRateHz);
    const auto dataBytes = static_cast<std::uint32_t>(sound.count()) * channels * sampleBytes;
    std::vector<std::uint8_t> bytes;
    bytes.reserve(headerBytes + dataBytes);
    putText(bytes, "RIFF");
    putLittleEndian(bytes, headerBytes - 8 + dataBytes, 4);
    putText(bytes, "WAVE");
    putText(bytes, "fmt ");
    putLittleEndian(bytes, 16, 4);
    putLittleEndian(bytes, 1, 2);
    putLittleEndian(bytes, channels, 2);
    putLittleEndian(bytes, rate, 4);
    putLittleEndian(bytes, rate * channels * sampleBytes, 4);
    putLittleEndian(bytes, channels * sampleBytes, 2);
    putLittleEndian(bytes, sampleBytes * 8, 2);
    putText(bytes, "data");
    putLittleEndian(bytes, dataBytes, 4);
    for (std::size_t i = 0; i < sound.count(); ++i) {
        putLittleEndian(bytes, pcm24(sound.left[i]), sampleBytes);
        putLittleEndian(bytes, pcm24(sound.right[i]), sampleBytes);
    }
    return bytes;
}

}   // namespace tavix::sounds
