#include "TavixCore/Timeline/TimeMapping.h"

#include <gtest/gtest.h>

namespace tavix::TimeMapping {
namespace {

TEST(TimeMapping, BelievesPlausibleRatesOnly) {
    const struct {
        std::optional<double> pixelSpanSec;
        double deviceSpanSec, rate;
    } cases[] = {{{}, 1, 1}, {0.9, 1, 0.9}, {0.85, 1, 0.85}, {1.05, 1, 1.05}, {1.06, 1, 1}, {0.84, 1, 1},
        {0.0, 1, 1}, {-1.0, -1, 1}, {1.0, 0, 1}, {9.5, 10, 0.95}};
    for (const auto& c : cases)
        EXPECT_EQ(recorderRate(c.pixelSpanSec, c.deviceSpanSec), c.rate)
            << c.pixelSpanSec.value_or(0) << " over " << c.deviceSpanSec;
}

TEST(TimeMapping, PutsTheGoSignalAtTheSyncPixel) {
    EXPECT_EQ(outputSeconds(12, 12, 0.7, 0.9), 0.7);
    EXPECT_DOUBLE_EQ(outputSeconds(22, 12, 0.7, 0.9), 9.7);
}

}   // namespace
}   // namespace tavix::TimeMapping
