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

using imaging::PixelRegion;

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

// The pixels that an outline may touch; none for one that is too far away, or has too many points, to be
// drawn.
PixelRegion boxOf(const Outline& outline, const MaskPlacement& placement) {
    if (outline.points.empty() || outline.points.size() > maxPoints) return {};
    const imaging::Rect bounds = outline.bounds();
    const double x0 = bounds.x * placement.scale + placement.dx,
                 x1 = bounds.maxX() * placement.scale + placement.dx;
    const double y0 = bounds.y * placement.scale + placement.dy,
                 y1 = bounds.maxY() * placement.scale + placement.dy;
    if (!(std::max({std::abs(x0), std::abs(x1), std::abs(y0), std::abs(y1)}) < maxDistancePx)) return {};
    return {int(std::floor(x0)), int(std::floor(y0)), int(std::ceil(x1)), int(std::ceil(y1))};
}

// A pixel where edges meet is looked at in so many cells along a side.
constexpr int finer = 24;
constexpr int mostSeamPixels = 1 << 12;   // at once; two megabytes of cells

bool isEdge(std::uint8_t coverage) { return coverage > 0 && coverage < 255; }

std::size_t indexIn(const PixelRegion& box, int x, int y) {
    return std::size_t(y - box.y0) * std::size_t(box.width()) + std::size_t(x - box.x0);
}

// In a cell, edges may abut or lie on each other: somewhere between the larger coverage and the sum.
void join(std::vector<std::uint8_t>& to, const std::vector<std::uint8_t>& more) {
    for (std::size_t i = 0; i < to.size(); ++i) {
        const int larger = std::max(to[i], more[i]), sum = std::min(to[i] + more[i], 255);
        to[i] = static_cast<std::uint8_t>((larger + sum + 1) / 2);
    }
}

// Of the cells of a pixel, 0 to 1.
double meanOf(const std::vector<std::uint8_t>& values, const PixelRegion& cells, int x, int y) {
    int sum = 0;
    for (int row = y * finer; row < (y + 1) * finer; ++row)
        for (int column = x * finer; column < (x + 1) * finer; ++column)
            sum += values[indexIn(cells, column, row)];
    return sum / (255.0 * finer * finer);
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

    // How much of each pixel of the box the outline covers, the bottom row first.
    void coverage(const Outline& outline, MaskPlacement placement, const PixelRegion& box,
        std::vector<std::uint8_t>& result) const {
        result.assign(std::size_t(box.width()) * std::size_t(box.height()), 0);
        placement.dx -= box.x0;
        placement.dy -= box.y0;
        FreeTypeOutline shape = converted(outline, placement);
        FT_Outline source{};
        source.n_points = static_cast<short>(shape.points.size());
        source.n_contours = static_cast<short>(shape.contours.size());
        source.points = shape.points.data();
        source.tags = shape.tags.data();
        source.contours = shape.contours.data();
        struct Target {
            std::uint8_t* pixels;
            std::size_t width;
        } target{result.data(), std::size_t(box.width())};
        FT_Raster_Params params{};
        params.flags = FT_RASTER_FLAG_AA | FT_RASTER_FLAG_DIRECT | FT_RASTER_FLAG_CLIP;
        params.clip_box = {0, 0, box.width(), box.height()};
        params.user = &target;
        params.gray_spans = [](int y, int count, const FT_Span* spans, void* user) {
            const auto& to = *static_cast<const Target*>(user);
            for (const FT_Span* span = spans; span != spans + count; ++span)
                std::fill_n(to.pixels + std::size_t(y) * to.width + span->x, span->len, span->coverage);
        };
        FT_Outline_Render(library, &source, &params);
    }
};

CoverageMask::CoverageMask(imaging::Size size)
    : size_(size), coverage_(std::size_t(size.width) * std::size_t(size.height)), firstRow_(size.height),
      lastRow_(-1), rasterizer_(std::make_unique<Rasterizer>()) {}
CoverageMask::~CoverageMask() = default;

void CoverageMask::cover(const Outline& outline, const MaskPlacement& placement, const Columns& columns,
    std::span<const Outline> before) {
    const PixelRegion box =
        intersection(boxOf(outline, placement), PixelRegion{columns.begin, 0, columns.end, size_.height});
    if (box.isEmpty()) return;
    rasterizer_->coverage(outline, placement, box, own_);
    settleSeams(outline, placement, box, before);
    firstRow_ = std::min(firstRow_, box.y0);
    lastRow_ = std::max(lastRow_, box.y1 - 1);
    const std::uint8_t* from = own_.data();
    for (int y = box.y0; y < box.y1; ++y) {
        std::uint8_t* to = coverage_.data() + std::size_t(y) * std::size_t(size_.width) + box.x0;
        for (int x = box.x0; x < box.x1; ++x, ++from, ++to)
            *to = static_cast<std::uint8_t>(*from + dividedBy255(*to * (255u - *from)));
    }
}

// Edges within one pixel say how much of it they cover, but not which part. Where two meet, the pixels are
// looked at more closely.
void CoverageMask::settleSeams(const Outline& outline, const MaskPlacement& placement, const PixelRegion& box,
    std::span<const Outline> before) {
    PixelRegion seam;
    std::vector<const Outline*> meeting;
    for (const Outline& other : before) {
        const PixelRegion common = intersection(boxOf(other, placement), box);
        if (common.isEmpty()) continue;
        rasterizer_->coverage(other, placement, common, other_);
        const std::uint8_t* theirs = other_.data();
        bool meets = false;
        for (int y = common.y0; y < common.y1; ++y)
            for (int x = common.x0; x < common.x1; ++x, ++theirs)
                if (isEdge(*theirs) && isEdge(own_[indexIn(box, x, y)])) {
                    seam = unionOf(seam, PixelRegion{x, y, x + 1, y + 1});
                    meets = true;
                }
        if (meets) meeting.push_back(&other);
    }
    const int rowsAtOnce = std::max(mostSeamPixels / std::max(seam.width(), 1), 1);
    for (int y = seam.y0; y < seam.y1; y += rowsAtOnce)
        settle(outline, meeting, placement, {seam.x0, y, seam.x1, std::min(y + rowsAtOnce, seam.y1)}, box);
}

void CoverageMask::settle(const Outline& outline, std::span<const Outline* const> meeting,
    const MaskPlacement& placement, const PixelRegion& seam, const PixelRegion& box) {
    const MaskPlacement fine{placement.scale * finer, placement.dx * finer, placement.dy * finer};
    const PixelRegion cells{seam.x0 * finer, seam.y0 * finer, seam.x1 * finer, seam.y1 * finer};
    std::vector<std::uint8_t> theirs(std::size_t(cells.width()) * std::size_t(cells.height()));
    for (const Outline* other : meeting) {
        rasterizer_->coverage(*other, fine, cells, other_);
        join(theirs, other_);
    }
    std::vector<std::uint8_t> all = theirs;
    rasterizer_->coverage(outline, fine, cells, other_);
    join(all, other_);
    for (int y = seam.y0; y < seam.y1; ++y)
        for (int x = seam.x0; x < seam.x1; ++x) {
            std::uint8_t& own = own_[indexIn(box, x, y)];
            const double under = meanOf(theirs, cells, x, y), both = meanOf(all, cells, x, y);
            if (!isEdge(own) || under <= 0 || under >= 1) continue;
            own = static_cast<std::uint8_t>(
                std::lround(std::clamp((both - under) / (1 - under), 0.0, 1.0) * 255));
        }
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
