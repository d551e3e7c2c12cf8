#include "TavixPlatform/Media/AlphaPlanes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

namespace tavix::media {
namespace {

constexpr int luma = 0, alpha = 3;

const std::uint16_t* wordsOf(const AVFrame& frame, int plane, int y) {
    return reinterpret_cast<const std::uint16_t*>(
        frame.data[plane] + std::ptrdiff_t{y} * frame.linesize[plane]);
}
std::uint8_t* bytesOf(const AVFrame& frame, int plane, int y) {
    return frame.data[plane] + std::ptrdiff_t{y} * frame.linesize[plane];
}

// Colours have the limited range in both, so that they only lose two bits; alpha has the full one.
std::uint8_t ofColor(unsigned value) { return static_cast<std::uint8_t>(std::min((value + 2) / 4, 255u)); }
std::uint8_t ofAlpha(unsigned value) {
    return static_cast<std::uint8_t>((std::min(value, 1023u) * 255 + 511) / 1023);
}

std::uint8_t chromaAt(const AVFrame& frame, int plane, int x, int y) {
    std::uint64_t sum = 0, weights = 0, plain = 0;
    constexpr unsigned shares[3] = {1, 2, 1};
    for (int j = 0; j < 2; ++j) {
        const std::uint16_t* values = wordsOf(frame, plane, 2 * y + j);
        const std::uint16_t* alphas = wordsOf(frame, alpha, 2 * y + j);
        for (int i = 0; i < 3; ++i) {
            const int at = std::clamp(2 * x + i - 1, 0, frame.width - 1);
            const std::uint64_t weight = std::uint64_t{shares[i]} * alphas[at];
            sum += weight * values[at];
            weights += weight;
            plain += shares[i] * values[at];
        }
    }
    constexpr std::uint64_t all = 8;
    return ofColor(
        static_cast<unsigned>(weights > 0 ? (sum + weights / 2) / weights : (plain + all / 2) / all));
}

}   // namespace

libav::Frame withHalvedChroma(const AVFrame& frame) {
    auto halved = libav::owned<libav::Frame>(av_frame_alloc());
    halved->format = AV_PIX_FMT_YUVA420P;
    halved->width = frame.width;
    halved->height = frame.height;
    halved->pts = frame.pts;
    if (av_frame_get_buffer(halved.get(), 0) < 0) throw std::bad_alloc();
    for (int y = 0; y < frame.height; ++y)
        for (int x = 0; x < frame.width; ++x) {
            bytesOf(*halved, luma, y)[x] = ofColor(wordsOf(frame, luma, y)[x]);
            bytesOf(*halved, alpha, y)[x] = ofAlpha(wordsOf(frame, alpha, y)[x]);
        }
    for (const int plane : {1, 2})
        for (int y = 0; y < frame.height / 2; ++y)
            for (int x = 0; x < frame.width / 2; ++x)
                bytesOf(*halved, plane, y)[x] = chromaAt(frame, plane, x, y);
    return halved;
}

}   // namespace tavix::media
