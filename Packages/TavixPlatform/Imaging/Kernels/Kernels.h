// The inner loops: rows in, rows out. They know counts and numbers, never nodes, rectangles or files. Each is
// compiled for several instruction sets and picked once; all of them give the same bits.
//
// Rows of float pixels belong to scratch memory: they hold room for a whole number of 64-byte vectors, and
// kernels may write up to there. Rows of 8-bit pixels are written exactly.
//
// An 8-bit pixel is a word: blue in the lowest byte, then green, red, alpha; premultiplied. A row of float
// pixels is planar. Eight-bit products are divided by 255 with rounding to nearest.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tavix::imaging {

// Four planes of one row, in the order blue, green, red, alpha.
struct FloatRow {
    float* plane[4];
};

// Where bilinear samples of a row lie in a source: sample i stands at (u0 + i du, v0 + i dv), in pixels of
// the source with its first row at v = 0, pixel centres at whole numbers. All in 32.32 fixed point.
struct SampleLine {
    const std::uint8_t* pixels;
    std::ptrdiff_t strideBytes;
    int width, height;
    std::int64_t u0, v0, du, dv;
};

// Where the samples of a row lie in a source that is seen in perspective: number i at ((u0 + i du) / (w0 + i
// dw), (v0 + i dv) / (w0 + i dw)).
struct ProjectLine {
    float u0, du, v0, dv, w0, dw;
};

// Fixed-point rows of a matrix on straight colour (red, green, blue, alpha).
struct MatrixRows {
    float r[4], g[4], b[4], a[4];
};
struct ControlValues {
    float brightness, contrast, saturation;
};
struct ColorPair {
    float dark[4], light[4];   // red, green, blue, alpha; straight
};

// A row of a decoded video picture: samples of up to eight bits are bytes, of more bits words. Chroma, blue
// before red, comes from the two rows of it that lie nearest. Positions beyond the edges repeat the edge.
struct VideoRow {
    std::size_t width;   // pixels; chroma has as many samples, or half of them rounded up
    const void* luma;
    const void* chroma[2];
    const void* farChroma[2];   // readable, though it may count for nothing
};
// How samples become colour. Chroma weights are in quarters: of the nearer of two rows; and where chroma has
// half the width, of its sample number x / 2 in pixel x, whose rest comes from the sample before it in even
// pixels and after it in odd ones.
struct VideoRule {
    int bits;   // 8 to 12
    bool halvesWidth;
    int nearWeight, evenWeight, oddWeight;
    std::int16_t black;   // luma of black, as if it had 15 bits
    // Of red, green and blue in steps of a byte over samples in steps of eight bits; times 8192.
    std::int16_t lumaGain, redOfCr, greenOfCb, greenOfCr, blueOfCb;   // green is what they take away
};

// Where the samples of a pair of rows go.
struct Yuv420Rows {
    std::uint8_t *luma0, *luma1, *cb, *cr;
};
// What is added before a sample is cut to whole steps, in 1/256: 128 rounds to nearest. Rows of scratch
// memory.
struct RoundingRows {
    const std::uint8_t *luma0, *luma1, *chroma;
};

struct Kernels {
    // dst = src * opacity / 255 over dst.
    void (*over)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count, unsigned opacity);
    void (*overSolid)(std::uint32_t* dst, std::uint32_t color, std::size_t count);
    void (*fade)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count, unsigned opacity);
    void (*add)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count);   // limited to 255
    // The larger value of each channel.
    void (*lighten)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count);
    // src over dst where dst is; the alpha of dst stays.
    void (*atop)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count);
    // dst = `to` where the weight is 255, `from` where it is 0. Weights are words, as `luminance` leaves
    // them.
    void (*mix)(std::uint32_t* dst, const std::uint32_t* from, const std::uint32_t* to,
        const std::uint32_t* weight, std::size_t count);
    void (*luminance)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count);
    // Samples number first ... first + count - 1 of the line, edge pixels continued. Sample positions do not
    // depend on where a call begins.
    void (*sample)(std::uint32_t* dst, const SampleLine& line, std::int64_t first, std::size_t count);

    // Samples at the positions (u[i], v[i]), as above but each on its own.
    void (*sampleAt)(
        std::uint32_t* dst, const SampleLine& source, const float* u, const float* v, std::size_t count);

    // Their places, from number `first` on. Rows of scratch memory.
    void (*project)(float* u, float* v, const ProjectLine& line, int first, std::size_t count);

    void (*unpack)(FloatRow dst, const std::uint32_t* src, std::size_t count);
    // Rounds to bytes, limiting colour to 0 ... alpha. `dither` is added before rounding, in steps of a byte;
    // none: 0.
    void (*pack)(std::uint32_t* dst, FloatRow src, const float* dither, std::size_t count);
    void (*overFloat)(FloatRow dst, FloatRow src, std::size_t count);
    void (*gain)(FloatRow row, const float* perPixel, std::size_t count);   // every channel but alpha
    void (*scaleAll)(FloatRow row, float factor, std::size_t count);
    void (*colorMatrix)(FloatRow row, const MatrixRows& matrix, std::size_t count);
    void (*colorControls)(FloatRow row, const ControlValues& values, std::size_t count);
    void (*monochrome)(FloatRow row, const float color[3], float intensity, std::size_t count);
    void (*falseColor)(FloatRow row, const ColorPair& colors, std::size_t count);
    void (*screen)(FloatRow dst, FloatRow glow, float intensity, std::size_t count);

    // Interleaved float pixels, four floats each in the byte order of the word.
    void (*expand)(float* dst, const std::uint32_t* src, std::size_t count);
    // As `pack`; `dither` has four equal values for each pixel.
    void (*packInterleaved)(std::uint32_t* dst, const float* src, const float* dither, std::size_t count);
    void (*deinterleave)(FloatRow dst, const float* src, std::size_t count);
    // dst[i] = sum over t of weights[t] * rows[t][i], for `count` floats.
    void (*weightedSum)(
        float* dst, const float* const* rows, const float* weights, int taps, std::size_t count);
    // dst pixel i = (src[2i] + 3 src[2i + 1] + 3 src[2i + 2] + src[2i + 3]) / 8.
    void (*halve)(float* dst, const float* src, std::size_t count);
    // dst pixel i = sum over t < 4 of weights[phase][t] * src[base + t], where base and phase are the
    // quotient and the remainder of (first + i) by `phases`.
    void (*interpolate)(
        float* dst, const float* src, const float (*weights)[4], int phases, int first, std::size_t count);

    // dst pixel i = sum over t < taps of weights[i * taps + t] * src[first[i] + t].
    void (*resample)(
        float* dst, const float* src, const int* first, const float* weights, int taps, std::size_t count);

    // A pair of rows to 4:2:0, BT.709 limited. `count` is even; pixel -1 of both rows is read when `hasLeft`.
    // Values between two steps are rounded by the `rounding` of the sample.
    void (*toYuv420)(const Yuv420Rows& out, const std::uint32_t* row0, const std::uint32_t* row1,
        bool hasLeft, const RoundingRows& rounding, std::size_t count);
    // Blocks of eight columns of the rows: whether one of their channels differs within the block, and none
    // by more than `most` steps, as where a gradient is. Sets a byte for each, 255 or 0.
    void (*findRamps)(
        std::uint8_t* isRamp, const std::uint32_t* const* rows, int rowCount, int most, std::size_t blocks);
    // A row of video to opaque pixels, to within a step of the exact value. Writes `row.width` pixels.
    void (*videoToPixels)(std::uint32_t* dst, const VideoRow& row, const VideoRule& rule);
    // Straight colour to premultiplied; `dst` may be `src`.
    void (*premultiply)(std::uint32_t* dst, const std::uint32_t* src, std::size_t count);
};

const Kernels& kernels();

}   // namespace tavix::imaging
