#include "TestSounds.h"

#include "TavixPlatform/Media/AudioReader.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <numbers>
#include <string>

namespace tavix::testing {

namespace {

template <class T> void put(std::string& bytes, T value) {
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

}   // namespace

void writeWav(const std::filesystem::path& path, const std::vector<float>& frames) {
    constexpr std::uint16_t floatSamples = 3, channels = 1, bits = 32;
    const auto dataBytes = static_cast<std::uint32_t>(frames.size() * 4);
    std::string bytes = "RIFF";
    put(bytes, dataBytes + 36);
    bytes += "WAVEfmt ";
    put(bytes, std::uint32_t{16});
    put(bytes, floatSamples);
    put(bytes, channels);
    put(bytes, std::uint32_t{soundRateHz});
    put(bytes, std::uint32_t{soundRateHz * 4});
    put(bytes, std::uint16_t{4});
    put(bytes, bits);
    bytes += "data";
    put(bytes, dataBytes);
    for (const float frame : frames) put(bytes, frame);
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<float> silenceWithClick(std::int64_t frames, std::int64_t clickAt) {
    std::vector<float> sound(static_cast<std::size_t>(frames));
    sound[static_cast<std::size_t>(clickAt)] = 0.9F;
    return sound;
}

std::vector<float> sine(double durationSec, double frequencyHz, double amplitude) {
    std::vector<float> sound(static_cast<std::size_t>(std::llround(durationSec * soundRateHz)));
    for (std::size_t i = 0; i < sound.size(); ++i)
        sound[i] = static_cast<float>(
            amplitude * std::sin(2 * std::numbers::pi * frequencyHz * double(i) / soundRateHz));
    return sound;
}

std::vector<float> heard(const std::filesystem::path& path) {
    media::AudioReader reader(path, {soundRateHz, 2});
    std::vector<float> left, block(2 * 4096);
    while (const std::size_t frames = reader.read(block))
        for (std::size_t i = 0; i < frames; ++i) left.push_back(block[2 * i]);
    return left;
}

std::int64_t loudestFrame(const std::vector<float>& frames) {
    const auto isQuieter = [](float a, float b) { return std::abs(a) < std::abs(b); };
    return std::max_element(frames.begin(), frames.end(), isQuieter) - frames.begin();
}

double rootMeanSquare(const std::vector<float>& frames, double fromSec, double toSec) {
    const auto from = static_cast<std::size_t>(fromSec * soundRateHz),
               to = std::min(static_cast<std::size_t>(toSec * soundRateHz), frames.size());
    double sum = 0;
    for (std::size_t i = from; i < to; ++i) sum += double(frames[i]) * double(frames[i]);
    return std::sqrt(sum / double(to - from));
}

}   // namespace tavix::testing
