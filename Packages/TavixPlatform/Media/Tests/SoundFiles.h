// Sound files for tests, written with FFmpeg's own coders.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace tavix::media::tests {

using Samples = std::vector<float>;   // interleaved

// Noise below full scale, mostly in the lower half of the spectrum, at values that 16 bits hold exactly.
Samples noise(std::int64_t frames, int channels, unsigned seed = 1);
Samples tone(std::int64_t frames, const AudioFormat& format, double frequencyHz, double amplitude = 0.5);
// Silence with one frame of `amplitude` in all channels.
Samples click(std::int64_t frames, int channels, std::int64_t at, float amplitude = 0.9F);

struct Coding {
    std::string encoder = "pcm_f32le";
    std::string container = "wav";
    std::int64_t bitsPerSec = 0;
    // From this frame on, times are later by so many frames.
    std::int64_t gapAt = 0, gapFrames = 0;
};
// The frames around the gap must fit the coder's own frame size.
void writeSound(const std::filesystem::path& path, const AudioFormat& format, const Samples& samples,
    const Coding& coding = {});

// The whole of a file, in blocks of that many frames.
Samples readSound(
    const std::filesystem::path& path, const AudioFormat& format, std::size_t blockFrames = 4096);

// By how many frames `late` comes after `samples`; compared in one channel, within `most` frames.
int delayOf(const Samples& late, const Samples& samples, int channels, int most);
double peakOf(const Samples& samples);

}   // namespace tavix::media::tests
