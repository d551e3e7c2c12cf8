// From a driver's report and a device's clock to the sidecar of a recording.
#include "TavixReel/Recording/SyncFlash.h"
#include "TavixReel/Recording/TimeMapping.h"
#include "TavixReel/Recording/TimelineBuilder.h"

#include <gtest/gtest.h>

#include <limits>

namespace tavix {
namespace {

constexpr Timeline::Video video{.widthPx = 1206, .heightPx = 2622, .fps = 59.94};

TEST(TimelineBuilder, MapsTheReportOntoTheVideo) {
    DoneReport report{.flowStart = 100, .flowEnd = 900, .displayScale = 3};
    report.steps = {
        {.index = 2, .startedAt = 110, .endedAt = 800, .type = "scroll", .actionAt = 111, .motionEndAt = 112},
        {.index = 0, .startedAt = 102, .endedAt = 800, .rect = LogicalRect{1, 2, 30, 40}, .label = "Save"},
    };
    const Timeline built = TimelineBuilder::build(report, 0.5, video, 0.5);
    const Timeline expected{.video = video,
        .events = {
            {.index = 0, .type = "tap", .tSec = 1.5, .regionPx = PixelRect{3, 6, 90, 120}, .label = "Save"},
            {.index = 2, .type = "scroll", .tSec = 5.5, .actionSec = 6, .endSec = 6.5}}};
    EXPECT_EQ(built, expected);
}

TEST(TimelineBuilder, KeepsTheOrderOfEqualStepsAndCountsAMissingScaleAsOne) {
    const DoneReport report{.steps = {{.index = 1, .startedAt = 3, .rect = LogicalRect{1, 2, 3, 4}},
                                {.index = 1, .startedAt = 2}, {.index = -1, .startedAt = 9}}};
    const Timeline built = TimelineBuilder::build(report, 0, video, 1);
    ASSERT_EQ(built.events.size(), 3u);
    EXPECT_EQ(built.events[0].tSec, 9);
    EXPECT_EQ(built.events[1].tSec, 3);
    EXPECT_EQ(built.events[1].regionPx, (PixelRect{1, 2, 3, 4}));
    EXPECT_EQ(built.events[2].tSec, 2);
    EXPECT_TRUE(TimelineBuilder::build({}, 0, video, 1).events.empty());
}

TEST(TimeMapping, BelievesPlausibleRatesOnly) {
    const struct {
        std::optional<double> pixelSpanSec;
        double deviceSpanSec, rate;
    } cases[] = {{{}, 1, 1}, {0.9, 1, 0.9}, {0.85, 1, 0.85}, {1.05, 1, 1.05}, {1.06, 1, 1}, {0.84, 1, 1},
        {0.0, 1, 1}, {-1.0, -1, 1}, {1.0, 0, 1}, {9.5, 10, 0.95}};
    for (const auto& c : cases)
        EXPECT_EQ(TimeMapping::recorderRate(c.pixelSpanSec, c.deviceSpanSec), c.rate)
            << c.pixelSpanSec.value_or(0) << " over " << c.deviceSpanSec;
}

TEST(TimeMapping, PutsTheGoSignalAtTheSyncPixel) {
    EXPECT_EQ(TimeMapping::outputSeconds(12, 12, 0.7, 0.9), 0.7);
    EXPECT_DOUBLE_EQ(TimeMapping::outputSeconds(22, 12, 0.7, 0.9), 9.7);
}

TEST(SyncFlash, MatchesMagentaAndItsShiftsAlone) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        double r, g, b;
        bool matches;
    } cases[] = {{1, 0, 1, true}, {1, 0.18, 1, true}, {0.83, 0.17, 0.83, true}, {1.18, -0.18, 1, true},
        {0.81, 0, 1, false}, {1, 0.19, 1, false}, {1, 0, 0.81, false}, {1, 1, 1, false}, {nan, 0, 1, false}};
    for (const auto& c : cases)
        EXPECT_EQ(SyncFlash::matches(c.r, c.g, c.b), c.matches) << c.r << " " << c.g << " " << c.b;
}

}   // namespace
}   // namespace tavix
