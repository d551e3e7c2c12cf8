#include "TavixPlatform/Media/FrameConversion.h"

#include "TavixPlatform/Imaging/Kernels/Kernels.h"
#include "TavixPlatform/Media/Orientation.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixPlatform/Media/VideoPlanes.h"

extern "C" {
#include <libavutil/display.h>
#include <libavutil/pixdesc.h>
#include <libswscale/swscale.h>
}

#include <algorithm>
#include <cmath>
#include <cstring>
#include <new>
#include <string>

namespace tavix::media {
namespace {

using imaging::Bitmap;

constexpr double mostPixelAspect = 16;   // beyond it, either way, the number is a fault of the file

// Everything that has no kernel of its own: palettes, packed and RGB formats, semi-planar and deep ones.
struct Scaler {
    explicit Scaler(const AVFrame& frame)
        : context(sws_getContext(frame.width, frame.height, AVPixelFormat(frame.format), frame.width,
              frame.height, AV_PIX_FMT_BGRA,
              SWS_BICUBIC | SWS_FULL_CHR_H_INT | SWS_ACCURATE_RND | SWS_BITEXACT, nullptr, nullptr,
              nullptr)) {
        if (!context) throw std::bad_alloc();
        const int* matrix = sws_getCoefficients(matrixOf(frame));
        constexpr int one = 1 << 16;
        sws_setColorspaceDetails(
            context, matrix, isFullRange(frame) ? 1 : 0, sws_getCoefficients(SWS_CS_DEFAULT), 1, 0, one, one);
    }
    ~Scaler() { sws_freeContext(context); }
    Scaler(const Scaler&) = delete;
    Scaler& operator=(const Scaler&) = delete;
    SwsContext* context;
};

bool hasAlpha(AVPixelFormat format) {
    const AVPixFmtDescriptor* kind = av_pix_fmt_desc_get(format);
    return kind && (kind->flags & (AV_PIX_FMT_FLAG_ALPHA | AV_PIX_FMT_FLAG_PAL));
}

void convertByScaler(const AVFrame& frame, const imaging::BitmapView& to) {
    const Scaler scaler(frame);
    std::uint8_t* planes[] = {to.pixels, nullptr, nullptr, nullptr};
    const int strides[] = {static_cast<int>(to.strideBytes), 0, 0, 0};
    sws_scale(scaler.context, frame.data, frame.linesize, 0, frame.height, planes, strides);
}

void premultiply(const imaging::BitmapView& bitmap) {
    for (int y = 0; y < bitmap.size.height; ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(bitmap.row(y));
        imaging::kernels().premultiply(row, row, std::size_t(bitmap.size.width));
    }
}

Bitmap bitmapOf(const AVFrame& frame, const std::shared_ptr<imaging::BytePool>& pool) {
    Bitmap bitmap = Bitmap::uninitialised({frame.width, frame.height}, pool);
    if (const auto planes = VideoPlanes::of(frame))
        planes->convert(bitmap.view());
    else
        convertByScaler(frame, bitmap.view());
    if (hasAlpha(AVPixelFormat(frame.format))) premultiply(bitmap.view());
    return bitmap;
}

// A strip to one row of means, of as many pixels each way as the strip is high.
void putMeans(const imaging::BitmapView& strip, std::uint8_t* row) {
    const int side = strip.size.height;
    const auto count = static_cast<std::uint32_t>(side * side);
    for (int x = 0; x < strip.size.width / side; ++x) {
        std::uint32_t sums[4] = {};
        for (int y = 0; y < side; ++y) {
            const std::uint8_t* pixels = strip.row(y) + std::ptrdiff_t{x} * side * 4;
            for (int i = 0; i < side * 4; i += 4)
                for (int c = 0; c < 4; ++c) sums[c] += pixels[i + c];
        }
        for (int c = 0; c < 4; ++c) row[x * 4 + c] = static_cast<std::uint8_t>((sums[c] + count / 2) / count);
    }
}

// A strip at a time, so that nothing of the frame's own size is made.
Bitmap halvedBitmapOf(const AVFrame& frame, int halvings, const std::shared_ptr<imaging::BytePool>& pool) {
    const auto planes = VideoPlanes::of(frame);
    Bitmap whole = planes ? Bitmap() : bitmapOf(frame, pool);
    const int side = 1 << halvings;
    Bitmap halved = Bitmap::uninitialised({frame.width / side, frame.height / side}, pool);
    Bitmap strip = planes ? Bitmap::uninitialised({frame.width, side}, pool) : Bitmap();
    for (int y = 0; y < halved.size().height; ++y) {
        if (planes) {
            planes->convert(strip.view(), y * side);
            if (hasAlpha(AVPixelFormat(frame.format))) premultiply(strip.view());
            putMeans(strip.view(), halved.view().row(y));
        } else {
            putMeans({whole.view().row(y * side), {frame.width, side}, whole.view().strideBytes},
                halved.view().row(y));
        }
    }
    return halved;
}

// The first halving is of the planes, which is a quarter of the work; what is left is done by means.
Bitmap halvedByPlanes(const AVFrame& frame, const VideoPlanes& planes, int halvings,
    const std::shared_ptr<imaging::BytePool>& pool) {
    Bitmap half = Bitmap::uninitialised({frame.width / 2, frame.height / 2}, pool);
    planes.convertHalved(half.view());
    if (halvings == 1) return half;
    const int side = 1 << (halvings - 1);
    Bitmap halved = Bitmap::uninitialised({half.size().width / side, half.size().height / side}, pool);
    for (int y = 0; y < halved.size().height; ++y)
        putMeans({half.view().row(y * side), {half.size().width, side}, half.view().strideBytes},
            halved.view().row(y));
    return halved;
}

Bitmap reducedBitmapOf(
    const AVFrame& frame, const FrameSetting& setting, const std::shared_ptr<imaging::BytePool>& pool) {
    const int mask = (1 << setting.halvings) - 1;   // films may change their size on the way
    if (setting.halvings == 0 || ((frame.width | frame.height) & mask) != 0) return bitmapOf(frame, pool);
    if (setting.halvesPlanes)
        if (const auto planes = VideoPlanes::of(frame); planes && planes->canHalve())
            return halvedByPlanes(frame, *planes, setting.halvings, pool);
    return halvedBitmapOf(frame, setting.halvings, pool);
}

// EXIF's number for a display matrix; turns that are no quarter turn count as the nearest one.
int orientationOf(const std::int32_t* matrix) {
    // Rows of the matrix say where the picture's axes point, y down: x to (m0, m1), y to (m3, m4).
    const bool swapsAxes = std::abs(double(matrix[1])) + std::abs(double(matrix[3])) >
                           std::abs(double(matrix[0])) + std::abs(double(matrix[4]));
    const bool xIsNegative = (swapsAxes ? matrix[1] : matrix[0]) < 0,
               yIsNegative = (swapsAxes ? matrix[3] : matrix[4]) < 0;
    static constexpr int upright[2][2] = {{1, 4}, {2, 3}}, turned[2][2] = {{5, 6}, {8, 7}};
    return (swapsAxes ? turned : upright)[xIsNegative][yIsNegative];
}

}   // namespace

FrameSetting frameSettingOf(AVFormatContext& format, AVStream& track) {
    FrameSetting setting;
    std::size_t bytes = 0;
    const std::uint8_t* matrix = av_stream_get_side_data(&track, AV_PKT_DATA_DISPLAYMATRIX, &bytes);
    if (matrix && bytes >= 9 * sizeof(std::int32_t))
        setting.orientation = orientationOf(reinterpret_cast<const std::int32_t*>(matrix));
    const AVRational aspect = av_guess_sample_aspect_ratio(&format, &track, nullptr);
    if (aspect.num > 0 && aspect.den > 0 && av_q2d(aspect) < mostPixelAspect &&
        av_q2d(av_inv_q(aspect)) < mostPixelAspect)
        setting.pixelAspect = aspect;
    return setting;
}

imaging::Size shownSizeOf(imaging::Size coded, const FrameSetting& setting) {
    const bool isTurned = setting.orientation > 4;
    const imaging::Size upright = isTurned ? imaging::Size{coded.height, coded.width} : coded;
    const double aspect = av_q2d(isTurned ? av_inv_q(setting.pixelAspect) : setting.pixelAspect);
    const auto stretched = [](int side, double by) { return std::max(int(std::lround(side * by)), 1); };
    if (aspect > 1) return {stretched(upright.width, aspect), upright.height};
    return {upright.width, stretched(upright.height, 1 / aspect)};
}

void refuseFrameSize(int width, int height) {
    if (width > 0 && height > 0 && width <= mostFrameSidePx && height <= mostFrameSidePx &&
        std::int64_t{width} * height <= mostFramePixels)
        return;
    throw MediaError("Its frames have " + std::to_string(width) + " × " + std::to_string(height) +
                     " pixels; at most 8192 × 4608 are shown. Scale the film down first.");
}

bool canConvert(const AVFrame& frame) {
    if (frame.width < 1 || frame.height < 1 || frame.width > mostFrameSidePx ||
        frame.height > mostFrameSidePx || std::int64_t{frame.width} * frame.height > mostFramePixels)
        return false;
    return VideoPlanes::of(frame) || sws_isSupportedInput(AVPixelFormat(frame.format));
}

imaging::Image imageOf(
    const AVFrame& frame, const FrameSetting& setting, const std::shared_ptr<imaging::BytePool>& pool) {
    Bitmap bitmap = upright(reducedBitmapOf(frame, setting, pool), setting.orientation);
    if (hasAlpha(AVPixelFormat(frame.format)))
        bitmap.indexCoverage();
    else
        bitmap.declareOpaque();
    const imaging::Size size = bitmap.size();
    const auto image = imaging::Image::bitmap(std::make_shared<const Bitmap>(std::move(bitmap)));
    const imaging::Size shown = shownSizeOf({frame.width, frame.height}, setting);
    if (shown == size) return image;
    return image.transformed(
        imaging::Affine::scaling(double(shown.width) / size.width, double(shown.height) / size.height));
}

}   // namespace tavix::media
