#include "TavixPlatform/Media/VideoPlanes.h"

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace tavix::media {
namespace {

constexpr int hdWidthPx = 1280, hdHeightPx = 720;

// Weights of red and blue in luma: ITU-R BT.601, BT.709, BT.2020, FCC 73.682, SMPTE 240M.
struct LumaWeights {
    double red, blue;
};
LumaWeights weightsOf(AVColorSpace matrix) {
    switch (matrix) {
    case AVCOL_SPC_BT709: return {0.2126, 0.0722};
    case AVCOL_SPC_BT2020_NCL:
    case AVCOL_SPC_BT2020_CL: return {0.2627, 0.0593};
    case AVCOL_SPC_FCC: return {0.30, 0.11};
    case AVCOL_SPC_SMPTE240M: return {0.212, 0.087};
    default: return {0.299, 0.114};
    }
}

void setColor(imaging::VideoRule& rule, LumaWeights weights, bool isFullRange) {
    // Of the largest sample in eight-bit steps: 255 for eight bits, a little more for deeper ones.
    const double most = std::ldexp((1 << rule.bits) - 1, 8 - rule.bits);
    const double luma = isFullRange ? 255 / most : 255.0 / 219;
    const double chroma = isFullRange ? 255 / most : 255.0 / 224;
    const double green = 1 - weights.red - weights.blue;
    const double red = 2 * (1 - weights.red) * chroma, blue = 2 * (1 - weights.blue) * chroma;
    const auto gain = [](double v) { return static_cast<std::int16_t>(std::lround(v * 8192)); };
    rule.black = isFullRange ? 0 : 16 << 7;
    rule.lumaGain = gain(luma);
    rule.redOfCr = gain(red);
    rule.blueOfCb = gain(blue);
    rule.greenOfCb = gain(blue * weights.blue / green);
    rule.greenOfCr = gain(red * weights.red / green);
}

// Where chroma stands between the columns of luma: on the left one, or in the middle.
bool isBetweenColumns(AVChromaLocation location) {
    return location == AVCHROMA_LOC_CENTER || location == AVCHROMA_LOC_TOP || location == AVCHROMA_LOC_BOTTOM;
}
bool isOnUpperRow(AVChromaLocation location) {
    return location == AVCHROMA_LOC_TOP || location == AVCHROMA_LOC_TOPLEFT;
}

}   // namespace

AVColorSpace matrixOf(const AVFrame& frame) {
    if (frame.colorspace != AVCOL_SPC_UNSPECIFIED && frame.colorspace != AVCOL_SPC_RESERVED)
        return frame.colorspace;
    return frame.width >= hdWidthPx || frame.height >= hdHeightPx ? AVCOL_SPC_BT709 : AVCOL_SPC_SMPTE170M;
}

bool isFullRange(const AVFrame& frame) {
    switch (frame.format) {
    case AV_PIX_FMT_YUVJ420P:
    case AV_PIX_FMT_YUVJ422P:
    case AV_PIX_FMT_YUVJ440P:
    case AV_PIX_FMT_YUVJ444P: return true;
    default: return frame.color_range == AVCOL_RANGE_JPEG;
    }
}

std::optional<VideoPlanes> VideoPlanes::of(const AVFrame& frame) {
    const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(AVPixelFormat(frame.format));
    constexpr std::uint64_t others = AV_PIX_FMT_FLAG_BE | AV_PIX_FMT_FLAG_PAL | AV_PIX_FMT_FLAG_BITSTREAM |
                                     AV_PIX_FMT_FLAG_HWACCEL | AV_PIX_FMT_FLAG_RGB | AV_PIX_FMT_FLAG_BAYER |
                                     AV_PIX_FMT_FLAG_FLOAT;
    if (!kind || (kind->flags & others) || !(kind->flags & AV_PIX_FMT_FLAG_PLANAR)) return std::nullopt;
    const bool hasAlpha = (kind->flags & AV_PIX_FMT_FLAG_ALPHA) != 0;
    if (kind->nb_components != (hasAlpha ? 4 : 3) || kind->log2_chroma_w > 1 || kind->log2_chroma_h > 1)
        return std::nullopt;
    const int bits = kind->comp[0].depth, step = bits > 8 ? 2 : 1;
    for (int c = 0; c < kind->nb_components; ++c) {
        const AVComponentDescriptor& component = kind->comp[c];
        if (component.plane != c || component.depth != bits || component.step != step ||
            component.offset != 0 || component.shift != 0)
            return std::nullopt;
    }
    if (bits < 8 || bits > 12) return std::nullopt;

    VideoPlanes planes(frame);
    planes.hasAlpha_ = hasAlpha;
    planes.halvesHeight_ = kind->log2_chroma_h == 1;
    planes.isBetweenRows_ = !isOnUpperRow(frame.chroma_location);
    planes.rule_.bits = bits;
    planes.rule_.halvesWidth = kind->log2_chroma_w == 1;
    const bool isBetween = isBetweenColumns(frame.chroma_location);
    planes.rule_.evenWeight = isBetween ? 3 : 4;
    planes.rule_.oddWeight = isBetween ? 3 : 2;
    setColor(planes.rule_, weightsOf(matrixOf(frame)), isFullRange(frame));
    return planes;
}

imaging::VideoRow VideoPlanes::rowAt(int y, int& nearWeight) const {
    int near = y, far = y;
    nearWeight = 4;
    if (halvesHeight_) {
        const int last = (frame_.height + 1) / 2 - 1;
        near = y / 2;
        if (isBetweenRows_) {
            far = std::clamp(y % 2 ? near + 1 : near - 1, 0, last);
            nearWeight = 3;
        } else {
            far = std::min(near + y % 2, last);
            nearWeight = y % 2 ? 2 : 4;
        }
    }
    const auto at = [&](int plane, int row) -> const void* {
        return frame_.data[plane] + std::ptrdiff_t{row} * frame_.linesize[plane];
    };
    return {std::size_t(frame_.width), at(0, y), {at(1, near), at(2, near)}, {at(1, far), at(2, far)}};
}

void VideoPlanes::putAlpha(std::uint32_t* row, int y) const {
    const std::uint8_t* bytes = frame_.data[3] + std::ptrdiff_t{y} * frame_.linesize[3];
    const auto* words = reinterpret_cast<const std::uint16_t*>(bytes);
    const unsigned most = (1u << rule_.bits) - 1;
    for (int x = 0; x < frame_.width; ++x) {
        // Alpha has the full range, whatever the colours have.
        const unsigned alpha =
            rule_.bits == 8 ? bytes[x] : (std::min<unsigned>(words[x], most) * 255 + most / 2) / most;
        row[x] = (row[x] & 0x00FFFFFFu) | alpha << 24;
    }
}

void VideoPlanes::convert(const imaging::BitmapView& to, int firstRow) const {
    imaging::VideoRule rule = rule_;
    for (int y = firstRow; y < firstRow + to.size.height; ++y) {
        auto* out = reinterpret_cast<std::uint32_t*>(to.row(y - firstRow));
        const imaging::VideoRow row = rowAt(y, rule.nearWeight);
        imaging::kernels().videoToPixels(out, row, rule);
        if (hasAlpha_) putAlpha(out, y);
    }
}

bool VideoPlanes::canHalve() const {
    return rule_.bits == 8 && rule_.halvesWidth && halvesHeight_ && !hasAlpha_;
}

void VideoPlanes::convertHalved(const imaging::BitmapView& to) const {
    imaging::VideoRule rule = rule_;
    rule.halvesWidth = false;
    rule.nearWeight = 4;
    const auto width = static_cast<std::size_t>(to.size.width);
    std::vector<std::uint8_t> luma(width);
    for (int y = 0; y < to.size.height; ++y) {
        const std::uint8_t* above = frame_.data[0] + std::ptrdiff_t{2} * y * frame_.linesize[0];
        const std::uint8_t* below = above + frame_.linesize[0];
        for (std::size_t x = 0; x < width; ++x) {
            const unsigned sum = above[2 * x] + above[2 * x + 1] + below[2 * x] + below[2 * x + 1] + 2U;
            luma[x] = static_cast<std::uint8_t>(sum / 4);
        }
        const auto chroma = [&](int plane) -> const void* {
            return frame_.data[plane] + std::ptrdiff_t{y} * frame_.linesize[plane];
        };
        const imaging::VideoRow row{width, luma.data(), {chroma(1), chroma(2)}, {chroma(1), chroma(2)}};
        imaging::kernels().videoToPixels(reinterpret_cast<std::uint32_t*>(to.row(y)), row, rule);
    }
}

}   // namespace tavix::media
