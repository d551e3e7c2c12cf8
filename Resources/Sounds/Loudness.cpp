#include "Sounds/Loudness.h"

#include <algorithm>
#include <cmath>

namespace tavix::sounds {

namespace {

struct Biquad {
    double b0, b1, b2, a1, a2;
    double x1 = 0, x2 = 0, y1 = 0, y2 = 0;
    double next(double x) {
        const double y = b0 * x + b1 * x1 + b2 * x2 - a1 * y1 - a2 * y2;
        x2 = x1, x1 = x, y2 = y1, y1 = y;
        return y;
    }
};

// The sums of squares of the K-weighted signal before each sample. Coefficients for 48 kHz: BS.1770-4, tables
// 1 and 2.
std::vector<double> weightedEnergy(const std::vector<float>& samples) {
    Biquad shelf{1.53512485958697, -2.69169618940638, 1.19839281085285, -1.69065929318241, 0.73248077421585};
    Biquad highPass{1, -2, 1, -1.99004745483398, 0.99007225036621};
    std::vector<double> sums{0};
    sums.reserve(samples.size() + 1);
    for (const float sample : samples) {
        const double weighted = highPass.next(shelf.next(sample));
        sums.push_back(sums.back() + weighted * weighted);
    }
    return sums;
}

}   // namespace

double momentaryLoudness(const Sound& sound) {
    const auto left = weightedEnergy(sound.left), right = weightedEnergy(sound.right);
    constexpr auto window = static_cast<std::size_t>(0.4 * sampleRateHz);
    constexpr auto step = static_cast<std::size_t>(0.01 * sampleRateHz);
    double largest = 0;
    for (std::size_t end = step; end < sound.count() + step; end += step) {
        const std::size_t to = std::min(end, sound.count()), from = to > window ? to - window : 0;
        largest = std::max(largest, left[to] - left[from] + right[to] - right[from]);
    }
    return -0.691 + 10 * std::log10(largest / static_cast<double>(window));
}

void matchLoudness(Sound& sound, double lufs) {
    sound.scale(std::pow(10, (lufs - momentaryLoudness(sound)) / 20));
}

}   // namespace tavix::sounds
