// Laws of coverage: what outlines cover together is what their union covers, wherever its edges lie.
#include "TavixPlatform/Text/CoverageMask.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

namespace tavix::text {
namespace {

constexpr imaging::Size size{40, 20};
constexpr Columns everywhere{0, size.width};
constexpr imaging::Color white{1, 1, 1, 1};

Outline box(double x0, double y0, double x1, double y1) {
    Outline outline;
    for (const auto& [x, y] : {std::pair{x0, y0}, {x0, y1}, {x1, y1}, {x1, y0}})
        outline.points.push_back({x, y, Outline::Kind::onCurve});
    outline.contourEnds.push_back(4);
    return outline;
}

// How much of pixel (x, y), y up, lies in [x0, x1] by [y0, y1]; in levels.
double levelsIn(int x, int y, double x0, double y0, double x1, double y1) {
    const double width = std::min(x + 1.0, x1) - std::max(double(x), x0),
                 height = std::min(y + 1.0, y1) - std::max(double(y), y0);
    return 255 * std::max(width, 0.0) * std::max(height, 0.0);
}

int alphaAt(const imaging::Bitmap& bitmap, int x, int y) {
    return bitmap.view().row(size.height - 1 - y)[4 * x + 3];
}

imaging::Bitmap covered(const std::vector<Outline>& outlines) {
    imaging::Bitmap bitmap(size);
    CoverageMask mask(size);
    for (std::size_t i = 0; i < outlines.size(); ++i)
        mask.cover(outlines[i], {}, everywhere, std::span(outlines).first(i));
    mask.paintOver(bitmap.view(), white);
    return bitmap;
}

// Each in a mask of its own, one over the other.
imaging::Bitmap coveredApart(const std::vector<Outline>& outlines) {
    imaging::Bitmap bitmap(size);
    for (std::size_t i = 0; i < outlines.size(); ++i) {
        CoverageMask mask(size);
        mask.cover(outlines[i], {}, everywhere, std::span(outlines).first(i));
        mask.paintOver(bitmap.view(), white);
    }
    return bitmap;
}

TEST(CoverageMask, CoversTheUnionOfBoxesWhereverTheyAbutOrOverlap) {
    constexpr double y0 = 4.3, y1 = 12.6;
    for (const double seam : {15.0, 15.1, 15.5, 15.83})
        for (const double overlap : {0.0, 0.2, 1.0, 3.7}) {
            SCOPED_TRACE(std::to_string(seam) + " " + std::to_string(overlap));
            const std::vector<Outline> halves{box(5.4, y0, seam + overlap, y1), box(seam, y0, 30.7, y1)};
            const imaging::Bitmap together = covered(halves), apart = coveredApart(halves);
            for (int y = 0; y < size.height; ++y)
                for (int x = 0; x < size.width; ++x) {
                    ASSERT_NEAR(alphaAt(together, x, y), levelsIn(x, y, 5.4, y0, 30.7, y1), 4)
                        << x << " " << y;
                    ASSERT_NEAR(alphaAt(apart, x, y), alphaAt(together, x, y), 2) << x << " " << y;
                }
        }
}

TEST(CoverageMask, CoversThePixelThatManyShareAsFarAsAllDo) {
    std::vector<Outline> slivers;
    for (int i = 0; i < 4; ++i) slivers.push_back(box(10 + i * 0.25, 5, 10 + (i + 1) * 0.25, 9));
    EXPECT_NEAR(alphaAt(covered(slivers), 10, 6), 255, 2);
    EXPECT_NEAR(alphaAt(coveredApart(slivers), 10, 6), 255, 2);
    const std::vector<Outline> same(4, slivers.front());
    EXPECT_NEAR(alphaAt(covered(same), 10, 6), 64, 2) << "the same quarter, four times";
}

TEST(CoverageMask, KeepsTheEdgeOfWhatLiesAlone) {
    const Outline alone = box(10.5, 5.5, 12.5, 9.5);
    const std::vector<Outline> far{box(20.5, 5.5, 22.5, 9.5)};
    imaging::Bitmap bitmap(size);
    CoverageMask mask(size);
    mask.cover(alone, {}, everywhere, far);
    mask.paintOver(bitmap.view(), white);
    EXPECT_NEAR(alphaAt(bitmap, 10, 7), 128, 1);
    EXPECT_NEAR(alphaAt(bitmap, 10, 5), 64, 1);
    EXPECT_EQ(alphaAt(bitmap, 20, 7), 0) << "the others are not drawn";
}

}   // namespace
}   // namespace tavix::text
