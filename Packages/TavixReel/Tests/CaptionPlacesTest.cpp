// Where captions are: rows in an editor, guides on the canvas, and the bar itself.
#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Captions/CaptionBar.h"
#include "TavixReel/Captions/CaptionLaneLayout.h"
#include "TavixReel/Captions/CaptionSnap.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

using CanvasGeometry::CanvasSize;
using CaptionLaneLayout::Window;

TEST(CaptionLanes, NeverOverlapAndNeedNoMoreRowsThanThereAreCaptionsAtOnce) {
    SeededRandom dice("lanes");
    for (int i = 0; i < 500; ++i) {
        std::vector<Window> windows;
        std::vector<TimeRangeSec> ranges;
        for (std::size_t k = 0; k < 12; ++k) {
            const double start = std::floor(dice.next(0, 20)), end = start + std::floor(dice.next(1, 6));
            windows.push_back({k, {start, end}});
            ranges.push_back({start, end});
        }
        const auto rows = CaptionLaneLayout::rowAssignment(windows, {});
        std::size_t most = 0;
        for (std::size_t a = 0; a < 12; ++a) {
            most = std::max(most, rows.at(a) + 1);
            for (std::size_t b = 0; b < a; ++b)
                if (rows.at(a) == rows.at(b)) {
                    ASSERT_TRUE(
                        ranges[a].endSec <= ranges[b].startSec || ranges[b].endSec <= ranges[a].startSec);
                }
        }
        ASSERT_EQ(most, CaptionLaneLayout::maxConcurrent(ranges));
    }
}

TEST(CaptionLanes, KeepWhatIsPinned) {
    const std::vector<Window> windows{{0, {0, 4}}, {1, {1, 3}}, {2, {2, 5}}, {3, {4, 6}}};
    const std::map<std::size_t, std::size_t> expected{{0, 0}, {1, 2}, {2, 1}, {3, 0}};
    EXPECT_EQ(CaptionLaneLayout::rowAssignment(windows, {{1, 2}}), expected);
    EXPECT_EQ(
        CaptionLaneLayout::maxConcurrent(std::vector<TimeRangeSec>{{0, 2}, {2, 4}, {3, 3}, {9, 5}}), 1u);
    EXPECT_EQ(CaptionLaneLayout::maxConcurrent({}), 0u);
}

TEST(CaptionSnap, SticksToTheNearestGuideOfEachDirection) {
    using enum CaptionSnap::GuideKind;
    const CanvasSize canvas{1000, 2000};
    const struct {
        PixelRect proposed;
        double thresholdPx;
        PixelRect rect;
        std::vector<CaptionSnap::Guide> guides;
    } cases[] = {
        {{405, 700, 200, 50}, 10, {400, 700, 200, 50}, {{centerX, 500}}},
        {{45, 1955, 200, 50}, 10, {50, 1955, 200, 50}, {{leftEdge, 50}}},
        {{45, 1905, 200, 50}, 10, {50, 1900, 200, 50}, {{leftEdge, 50}, {bottomEdge, 1950}}},
        {{755, 52, 200, 50}, 10, {750, 50, 200, 50}, {{rightEdge, 950}, {topEdge, 50}}},
        {{300, 970, 200, 50}, 10, {300, 975, 200, 50}, {{centerY, 1000}}},
        // As wide as the safe canvas: all three agree, and the middle is named.
        {{52, 0, 900, 50}, 10, {50, 0, 900, 50}, {{centerX, 500}}},
        {{400, 50, 200, 50}, 0, {400, 50, 200, 50}, {{centerX, 500}, {topEdge, 50}}},
        {{400.5, 51, 200, 50}, 0, {400.5, 51, 200, 50}, {}},
    };
    for (const auto& c : cases) {
        const auto result = CaptionSnap::resolve(c.proposed, canvas, 50, c.thresholdPx);
        EXPECT_EQ(result.rect, c.rect);
        EXPECT_EQ(result.guides, c.guides);
    }
}

using namespace CaptionLayout;

TEST(CaptionBar, StandsInTheMiddleAboveTheInset) {
    const CanvasSize canvas{1080, 1920};
    const CaptionStyle style;
    const BarRoom room = barRoom(style, canvas);
    EXPECT_NEAR(room.pointSize, 49.92, 1e-9);
    EXPECT_NEAR(room.maxBarWidth, 1080 - 192, 1e-9);   // the inset is a part of the height on both axes
    EXPECT_NEAR(room.wrapWidth, 888 - 1.2 * 49.92, 1e-9);
    const double widths[] = {300, 420};
    const Bar placed = bar(room, {widths, 40, 60}, style, {}, canvas);
    EXPECT_NEAR(placed.barWidth, 420 + 1.2 * 49.92, 1e-9);
    EXPECT_NEAR(placed.barHeight, 120 + 49.92, 1e-9);
    EXPECT_NEAR(placed.barX + placed.barWidth / 2, 540, 1e-9);
    EXPECT_NEAR(placed.barBottomYUp, 96, 1e-9);
    EXPECT_NEAR(placed.rectTopLeft().maxY(), 1920 - 96, 1e-9);
    EXPECT_NEAR(placed.cornerRadius, 0.018 * 1920, 1e-9);
    EXPECT_EQ(barRoom({.fontSizeFraction = 0.0001}, canvas).pointSize, 8);
}

TEST(CaptionBar, StaysOnTheCanvasWhereverItIsPut) {
    SeededRandom dice("bar");
    for (int i = 0; i < 3000; ++i) {
        const CanvasSize canvas{dice.next(100, 2000), dice.next(100, 2000)};
        CaptionStyle style;
        style.fontSizeFraction = dice.next(0.01, 0.1);
        style.maxBarWidthFraction = dice.next(0.2, 1.4);
        const BarRoom room = barRoom(style, canvas);
        const std::vector<double> widths(1 + dice.next() % 2, dice.next(1, 3000));
        const NormalizedPoint position{dice.next(-0.5, 1.5), dice.next(-0.5, 1.5)};
        const Bar placed = bar(room, {widths, 10, room.pointSize * 1.2}, style, position, canvas);
        const PixelRect rect = placed.rectTopLeft();
        ASSERT_GE(placed.barX, 0);
        ASSERT_GE(placed.barBottomYUp, 0);
        if (rect.width <= canvas.widthPx) {
            ASSERT_LE(rect.maxX(), canvas.widthPx + 1e-9);
        }
        if (rect.height <= canvas.heightPx) {
            ASSERT_GE(rect.y, -1e-9);
        }
        // A centre that is moved onto the canvas first gives the same bar.
        const NormalizedPoint clamped = clampedCenter(position, rect.width, rect.height, canvas);
        if (rect.width <= canvas.widthPx && rect.height <= canvas.heightPx) {
            ASSERT_NEAR(clamped.x * canvas.widthPx, rect.center().x, 1e-6);
            ASSERT_NEAR(clamped.y * canvas.heightPx, rect.center().y, 1e-6);
        }
    }
    EXPECT_EQ(clampedCenter({7, 8}, 1, 1, {0, 5}), (NormalizedPoint{7, 8}));
}

}   // namespace
}   // namespace tavix
