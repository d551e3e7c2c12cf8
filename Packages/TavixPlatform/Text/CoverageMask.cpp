#include "TavixPlatform/Text/CoverageMask.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace tavix::text {
namespace {

// What the rasterizer can count in: 16 bits of points, and far fewer pixels than its 24 bits.
constexpr std::size_t maxPoints = 32000;
constexpr double maxDistancePx = 100000;

struct FreeTypeOutline {
    std::vector<FT_Vector> points;
    std::vector<char> tags;
    std::vector<short> contours;
};

FreeTypeOutline converted(const Outline& outline, const MaskPlacement& placement) {
    FreeTypeOutline result;
    const auto fixed = [](double px) { return static_cast<FT_Pos>(std::lround(px * 64)); };
    for (const Outline::Point& point : outline.points) {
        result.points.push_back({fixed(point.x * placement.scale + placement.dx),
            fixed(point.y * placement.scale + placement.dy)});
        result.tags.push_back(point.kind == Outline::Kind::onCurve     ? FT_CURVE_TAG_ON
                              : point.kind == Outline::Kind::quadratic ? FT_CURVE_TAG_CONIC
                                                                       : FT_CURVE_TAG_CUBIC);
    }
    for (const std::size_t end : outline.contourEnds) result.contours.push_back(static_cast<short>(end - 1));
    return result;
}

}   // namespace

// A library of its own: objects of FreeType may not be shared by threads.
struct CoverageMask::Rasterizer {
    FT_Library library = nullptr;

    Rasterizer() {
        if (FT_Init_FreeType(&library) != 0) throw std::bad_alloc();
    }
    ~Rasterizer() { FT_Done_FreeType(library); }
    Rasterizer(const Rasterizer&) = delete;
    Rasterizer& operator=(const Rasterizer&) = delete;
};

CoverageMask::CoverageMask(imaging::Size size)
    : size_(size), coverage_(std::size_t(size.width) * std::size_t(size.height)), firstRow_(size.height),
      lastRow_(-1), rasterizer_(std::make_unique<Rasterizer>()) {}
CoverageMask::~CoverageMask() = default;

void CoverageMask::cover(const Outline& outline, const MaskPlacement& placement, const Columns& columns) {
    if (outline.points.empty() || outline.points.size() > maxPoints) return;
    const imaging::Rect bounds = outline.bounds();
    const double x0 = bounds.x * placement.scale + placement.dx,
                 x1 = bounds.maxX() * placement.scale + placement.dx;
    const double y0 = bounds.y * placement.scale + placement.dy,
                 y1 = bounds.maxY() * placement.scale + placement.dy;
    const bool isNear = std::max({std::abs(x0), std::abs(x1), std::abs(y0), std::abs(y1)}) < maxDistancePx;
    if (!isNear || x1 <= columns.begin || x0 >= columns.end || y1 <= 0 || y0 >= size_.height) return;
    FreeTypeOutline shape = converted(outline, placement);
    FT_Outline source{};
    source.n_points = static_cast<short>(shape.points.size());
    source.n_contours = static_cast<short>(shape.contours.size());
    source.points = shape.points.data();
    source.tags = shape.tags.data();
    source.contours = shape.contours.data();
    FT_Raster_Params params{};
    params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
    params.clip_box = {columns.begin, 0, columns.end, size_.height};
    params.user = this;
    params.gray_spans = [](int y, int count, const FT_Span* spans, void* user) {
        auto& mask = *static_cast<CoverageMask*>(user);
        mask.firstRow_ = std::min(mask.firstRow_, y);
        mask.lastRow_ = std::max(mask.lastRow_, y);
        std::uint8_t* row = mask.coverage_.data() + std::size_t(y) * std::size_t(mask.size_.width);
        for (const FT_Span* span = spans; span != spans + count; ++span)
            for (int x = span->x; x < span->x + span->len; ++x) row[x] = std::max(row[x], span->coverage);
    };
    FT_Outline_Render(rasterizer_->library, &source, &params);
}

void CoverageMask::paintOver(const imaging::BitmapView& target, const imaging::Color& color) {
    const auto byte = [](double value) {
        return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    const double alpha = std::clamp(color.a, 0.0, 1.0);
    const unsigned premultiplied[4] = {
        byte(color.b * alpha), byte(color.g * alpha), byte(color.r * alpha), byte(alpha)};
    for (int y = firstRow_; y <= lastRow_; ++y) {
        std::uint8_t* covered = coverage_.data() + std::size_t(y) * std::size_t(size_.width);
        std::uint8_t* pixel = target.row(size_.height - 1 - y);
        for (int x = 0; x < size_.width; ++x, pixel += 4) {
            if (covered[x] == 0) continue;
            const unsigned left = 255 - dividedBy255(premultiplied[3] * covered[x]);
            for (int channel = 0; channel < 4; ++channel)
                pixel[channel] = static_cast<std::uint8_t>(
                    dividedBy255(premultiplied[channel] * covered[x]) + dividedBy255(pixel[channel] * left));
        }
        std::fill(covered, covered + size_.width, std::uint8_t{0});
    }
    firstRow_ = size_.height;
    lastRow_ = -1;
}

}   // namespace tavix::text
