// Sound files for tests, and what is heard in them.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace tavix::testing {

inline constexpr int soundRateHz = 48000;

// Mono frames, -1 to 1, kept exactly.
void writeWav(const std::filesystem::path& path, const std::vector<float>& frames);
std::vector<float> silenceWithClick(std::int64_t frames, std::int64_t clickAt);
std::vector<float> sine(double durationSec, double frequencyHz, double amplitude);

// The left channel of any file, at `soundRateHz`.
std::vector<float> heard(const std::filesystem::path& path);
std::int64_t loudestFrame(const std::vector<float>& frames);
// Of the frames between two times.
double rootMeanSquare(const std::vector<float>& frames, double fromSec, double toSec);

}   // namespace tavix::testing
