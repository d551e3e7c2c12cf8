#include "Backgrounds/Painter.h"

#include "Backgrounds/Noise.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tavix::backgrounds {

namespace {

constexpr int cellPx = 4;
constexpr std::size_t channelCount = 3;
// Triangular noise of one level either way frees the rounding error from the picture; the half more lets
// enough of it through JPEG's quantisation. All channels share it, so it is a grain of light and not of
// colour.
constexpr float grainLevels = 1.5f;

using Weights = std::array<float, 4>;

// The four weights of a uniform cubic B-spline at a position within a cell.
Weights splineWeights(float t) {
    const float u = 1 - t;
    return {u * u * u / 6, (3 * t * t * t - 6 * t * t + 4) / 6, (3 * u * u * u - 6 * u * u + 4) / 6,
        t * t * t / 6};
}

// Encoded colour on the grid, with the margin of cells that the spline reaches for.
class Grid {
public:
    Grid(const Recipe& recipe, int sidePx)
        : across_(static_cast<std::size_t>(sidePx / cellPx) + 3), values_(across_ * across_ * channelCount) {
        const float pitch = static_cast<float>(cellPx) / static_cast<float>(sidePx);
        float* out = values_.data();
        for (std::size_t y = 0; y < across_; ++y)
            for (std::size_t x = 0; x < across_; ++x) {
                const EncodedRgb rgb = encoded(colorAt(
                    recipe, (static_cast<float>(x) - 1) * pitch, (static_cast<float>(y) - 1) * pitch));
                out = std::copy(rgb.begin(), rgb.end(), out);
            }
    }

    std::size_t rowLength() const { return across_ * channelCount; }

    // One line of the grid's values at a full-size row.
    void blendRows(int yPx, std::vector<float>& line) const {
        const Weights w = splineWeights(static_cast<float>(yPx % cellPx) / cellPx);
        const float* row = values_.data() + static_cast<std::size_t>(yPx / cellPx) * rowLength();
        const std::size_t n = rowLength();
        for (std::size_t i = 0; i < n; ++i)
            line[i] = w[0] * row[i] + w[1] * row[i + n] + w[2] * row[i + 2 * n] + w[3] * row[i + 3 * n];
    }

private:
    std::size_t across_;
    std::vector<float> values_;
};

float grain(int xPx, int yPx) {
    const auto x = static_cast<std::uint32_t>(xPx), y = static_cast<std::uint32_t>(yPx);
    return grainLevels * (whiteNoise(x, y, 11) - whiteNoise(x, y, 12));
}

std::uint8_t level(float encodedValue, float grainOfPixel) {
    return static_cast<std::uint8_t>(std::clamp(encodedValue * 255 + grainOfPixel + 0.5f, 0.0f, 255.0f));
}

}   // namespace

Picture paint(const Recipe& recipe, int sidePx) {
    const Grid grid(recipe, sidePx);
    std::array<Weights, cellPx> weights{};
    for (std::size_t i = 0; i < weights.size(); ++i)
        weights[i] = splineWeights(static_cast<float>(i) / cellPx);

    Picture picture{sidePx, std::vector<std::uint8_t>(static_cast<std::size_t>(sidePx) *
                                                      static_cast<std::size_t>(sidePx) * channelCount)};
    std::vector<float> line(grid.rowLength());
    std::uint8_t* out = picture.bytes.data();
    for (int y = 0; y < sidePx; ++y) {
        grid.blendRows(y, line);
        for (int x = 0; x < sidePx; ++x) {
            const Weights& w = weights[static_cast<std::size_t>(x % cellPx)];
            const float* cell = line.data() + static_cast<std::size_t>(x / cellPx) * channelCount;
            const float grainHere = grain(x, y);
            for (std::size_t c = 0; c < channelCount; ++c)
                *out++ = level(
                    w[0] * cell[c] + w[1] * cell[c + 3] + w[2] * cell[c + 6] + w[3] * cell[c + 9], grainHere);
        }
    }
    return picture;
}

}   // namespace tavix::backgrounds
