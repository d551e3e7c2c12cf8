#include "TavixPlatform/Imaging/Nodes/GaussianPyramid.h"

#include "TavixPlatform/Imaging/Nodes/Nodes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tavix::imaging {

namespace {

constexpr double widestAtOnce = 3;
constexpr int rowsPerJob = 16;

int floorDiv(int a, int b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

void forRows(
    RenderContext& context, const PixelRegion& region, const std::function<void(int, Scratch&)>& job) {
    context.forEach((region.height() + rowsPerJob - 1) / rowsPerJob, [&](int strip, Scratch& scratch) {
        const int first = region.y0 + strip * rowsPerJob;
        for (int y = first; y < std::min(first + rowsPerJob, region.y1); ++y) {
            const Scratch::Mark mark(scratch);
            job(y, scratch);
        }
    });
}

// What a halved picture is made from.
PixelRegion regionBefore(const PixelRegion& r) {
    return {2 * r.x0 - 1, 2 * r.y0 - 1, 2 * r.x1 + 1, 2 * r.y1 + 1};
}
// Where the half of a picture may differ from what lies around it.
PixelRegion regionAfter(const PixelRegion& r) {
    if (r.isEmpty()) return {};
    return {
        floorDiv(r.x0, 2) - 1, floorDiv(r.y0, 2) - 1, floorDiv(r.x1 - 1, 2) + 2, floorDiv(r.y1 - 1, 2) + 2};
}

// One halving of the rows that `rowOf(y, x0, x1, scratch)` gives.
template <class RowOf> void halveInto(RenderContext& context, const FloatPicture& out, const RowOf& rowOf) {
    const PixelRegion from = regionBefore(out.region);
    const std::size_t floats = std::size_t(from.width()) * 4;
    static constexpr float weights[4] = {0.125f, 0.375f, 0.375f, 0.125f};
    forRows(context, out.region, [&](int y, Scratch& scratch) {
        const float* rows[4];
        for (int i = 0; i < 4; ++i) rows[i] = rowOf(2 * y - 1 + i, from.x0, from.x1, scratch);
        auto* sum = scratch.take<float>(floats);
        kernels().weightedSum(sum, rows, weights, 4, floats);
        kernels().halve(out.at(out.region.x0, y), sum, std::size_t(out.region.width()));
    });
}

// Separable convolution.
void convolve(RenderContext& context, const FloatPicture& in, bool isContinued, const FloatPicture& out,
    const std::vector<float>& taps) {
    const int radius = int(taps.size()) / 2;
    const PixelRegion& r = out.region;
    const PixelRegion tall = grownBy(r, radius);
    const FloatPicture across({r.x0, tall.y0, r.x1, tall.y1}, context.pool());
    forRows(context, across.region, [&](int y, Scratch& scratch) {
        const float* row = in.row(y, tall.x0, tall.x1, isContinued, scratch);
        auto* rows = scratch.take<const float*>(taps.size());
        for (std::size_t t = 0; t < taps.size(); ++t) rows[t] = row + t * 4;
        kernels().weightedSum(across.at(r.x0, y), rows, taps.data(), int(taps.size()), across.rowFloats());
    });
    forRows(context, r, [&](int y, Scratch& scratch) {
        auto* rows = scratch.take<const float*>(taps.size());
        for (std::size_t t = 0; t < taps.size(); ++t) rows[t] = across.at(r.x0, y - radius + int(t));
        kernels().weightedSum(out.at(r.x0, y), rows, taps.data(), int(taps.size()), out.rowFloats());
    });
}

// The standard deviation left to blur after the halvings, in pixels of the small picture: (1 3 3 1)/8 has
// variance 3/4, at step i in pixels of 2^i, together (4^k - 1)/4; the B-spline has 1/3 of a small pixel
// squared.
double restSigma(double sigmaPx, int halvings) {
    const double pixel2 = std::ldexp(1.0, 2 * halvings);
    return std::sqrt(std::max((sigmaPx * sigmaPx - (pixel2 - 1) / 4) / pixel2 - 1.0 / 3, 0.01));
}

std::array<float, 4> splineWeights(double t) {
    const double s = 1 - t;
    return {float(s * s * s / 6), float((3 * t * t * t - 6 * t * t + 4) / 6),
        float((3 * s * s * s - 6 * s * s + 4) / 6), float(t * t * t / 6)};
}

}   // namespace

BlurSource BlurSource::of(RenderContext& context, const NodeRef& input, const PixelRegion& needed) {
    const auto [node, isContinued] = behind(input);
    const PixelRegion all = pixelsCovering(node->extent());
    if (isContinued) return {context.pictureOf(node, all), all};
    return {context.pictureOf(node, needed), {}};
}

void BlurSource::row(float* out, int y, int x0, int x1) const {
    const PixelRegion& r = picture.region;
    if (!edge.isEmpty()) y = std::clamp(y, edge.y0, edge.y1 - 1);
    const auto clearPixels = [&](int from, int to) {
        if (to > from) std::memset(out + std::ptrdiff_t(from - x0) * 4, 0, std::size_t(to - from) * 16);
    };
    if (picture.isEmpty() || y < r.y0 || y >= r.y1) return clearPixels(x0, x1);
    const int from = std::clamp(r.x0, x0, x1), to = std::clamp(r.x1, from, x1);
    clearPixels(x0, from);
    clearPixels(to, x1);
    const ConstBitmapView view = picture.bitmap->view();
    const auto* pixels = reinterpret_cast<const std::uint32_t*>(view.row(r.y1 - 1 - y));
    kernels().expand(out + std::ptrdiff_t(from - x0) * 4, pixels + (from - r.x0), std::size_t(to - from));
    if (edge.isEmpty()) return;
    const auto repeat = [&](int pixel, int first, int last) {
        float value[4] = {};
        if (pixel >= r.x0 && pixel < r.x1) kernels().expand(value, pixels + (pixel - r.x0), 1);
        for (int x = first; x < last; ++x) std::memcpy(out + std::ptrdiff_t(x - x0) * 4, value, sizeof value);
    };
    repeat(edge.x0, x0, std::min(edge.x0, x1));
    repeat(edge.x1 - 1, std::max(edge.x1, x0), x1);
}

FloatPicture::FloatPicture(const PixelRegion& r, const std::shared_ptr<BytePool>& pool)
    : region(r), bytes(takeBytes(byteCount(), pool)) {}
float* FloatPicture::at(int x, int y) const {
    return reinterpret_cast<float*>(bytes.get()) + std::size_t(y - region.y0) * rowFloats() +
           std::ptrdiff_t(x - region.x0) * 4;
}
const float* FloatPicture::row(int y, int x0, int x1, bool isContinued, Scratch& scratch) const {
    if (region.contains({x0, y, x1, y + 1})) return at(x0, y);
    auto* out = scratch.take<float>(std::size_t(x1 - x0) * 4);
    if (isContinued) y = std::clamp(y, region.y0, region.y1 - 1);
    static constexpr float clearPixel[4] = {};
    const bool isClear = y < region.y0 || y >= region.y1;
    const auto fill = [&](int from, int to, const float* pixel) {
        for (int x = from; x < to; ++x)
            std::memcpy(out + std::ptrdiff_t(x - x0) * 4, pixel, sizeof clearPixel);
    };
    if (isClear) {
        fill(x0, x1, clearPixel);
        return out;
    }
    const int from = std::clamp(region.x0, x0, x1), to = std::clamp(region.x1, from, x1);
    fill(x0, from, isContinued ? at(region.x0, y) : clearPixel);
    if (to > from)
        std::memcpy(
            out + std::ptrdiff_t(from - x0) * 4, at(from, y), std::size_t(to - from) * sizeof clearPixel);
    fill(to, x1, isContinued ? at(region.x1 - 1, y) : clearPixel);
    return out;
}
std::size_t FloatPicture::byteCount() const {
    return rowFloats() * sizeof(float) * std::size_t(region.height());
}

std::vector<float> gaussianTaps(double sigmaPx) {
    const int radius = int(std::ceil(3 * sigmaPx));
    std::vector<double> taps;
    double sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        taps.push_back(std::exp(-0.5 * i * i / (sigmaPx * sigmaPx)));
        sum += taps.back();
    }
    std::vector<float> result;
    for (double tap : taps) result.push_back(float(tap / sum));
    return result;
}

int GaussianPyramid::halvingsFor(double sigmaPx) {
    int halvings = 0;
    while (std::ldexp(sigmaPx, -halvings) > widestAtOnce) ++halvings;
    return halvings;
}

GaussianPyramid::GaussianPyramid(
    RenderContext& context, const BlurSource& source, double sigmaPx, const PixelRegion& wanted) {
    const int halvings = halvingsFor(sigmaPx);
    phases_ = 1 << halvings;
    for (int phase = 0; phase < phases_; ++phase) weights_.push_back(splineWeights((phase + 0.5) / phases_));
    const std::vector<float> taps = gaussianTaps(restSigma(sigmaPx, halvings));
    const PixelRegion small{floorDiv(wanted.x0, phases_) - 2, floorDiv(wanted.y0, phases_) - 2,
        floorDiv(wanted.x1 - 1, phases_) + 3, floorDiv(wanted.y1 - 1, phases_) + 3};

    // Each halving is wanted where the next one looks, but beyond the source it holds nothing new.
    const bool isContinued = !source.edge.isEmpty();
    std::vector<PixelRegion> regions{
        grownBy(small, int(taps.size()) / 2)};   // of the smallest, then of larger ones
    for (int i = 1; i < halvings; ++i) regions.push_back(regionBefore(regions.back()));
    PixelRegion held = isContinued ? source.edge : source.picture.region;
    for (std::size_t i = regions.size(); i-- > 0;) {
        held = regionAfter(held);
        regions[i] = isContinued ? held : intersection(regions[i], held);
    }
    auto picture = std::make_unique<FloatPicture>(regions.back(), context.pool());
    halveInto(context, *picture, [&](int y, int x0, int x1, Scratch& scratch) {
        auto* row = scratch.take<float>(std::size_t(x1 - x0) * 4);
        source.row(row, y, x0, x1);
        return row;
    });
    for (int i = halvings - 2; i >= 0; --i) {
        auto half = std::make_unique<FloatPicture>(regions[std::size_t(i)], context.pool());
        halveInto(context, *half, [&](int y, int x0, int x1, Scratch& scratch) {
            return picture->row(y, x0, x1, isContinued, scratch);
        });
        picture = std::move(half);
    }
    top_ = std::make_unique<FloatPicture>(small, context.pool());
    convolve(context, *picture, isContinued, *top_, taps);
}

void GaussianPyramid::rowInto(float* out, int y, int x0, int x1, float* between) const {
    // A pixel lies between the centres of small pixels base and base + 1; the spline mixes base - 1 ... base
    // + 2.
    const auto baseOf = [&](int v) { return floorDiv(v - phases_ / 2, phases_); };
    const auto phaseOf = [&](int v) { return v - phases_ / 2 - baseOf(v) * phases_; };
    const int row = baseOf(y), first = baseOf(x0) - 1, last = baseOf(x1 - 1) + 2;
    const float* rows[4];
    for (int i = 0; i < 4; ++i) rows[i] = top_->at(first, row - 1 + i);
    kernels().weightedSum(
        between, rows, weights_[std::size_t(phaseOf(y))].data(), 4, std::size_t(last - first + 1) * 4);
    kernels().interpolate(out, between, reinterpret_cast<const float(*)[4]>(weights_.data()), phases_,
        phaseOf(x0), std::size_t(x1 - x0));
}

}   // namespace tavix::imaging
