#include "TavixReel/Choreography/TeaserChoreography.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TeaserChoreography, TagsChainsAndShiftsItsClips) {
    EXPECT_EQ(TeaserChoreography::all().size(), 6u);
    for (const auto& [key, clip] : TeaserChoreography::all()) {
        SCOPED_TRACE(key);
        EXPECT_EQ(clip.placement[0].move, key);
        for (std::size_t i = 1; i < clip.placement.size(); ++i) {
            EXPECT_FALSE(clip.placement[i].move);
            EXPECT_GT(clip.placement[i].tSec, clip.placement[i - 1].tSec);
        }
        EXPECT_EQ(clip.placement.back().tSec, clip.durationSec);
        EXPECT_EQ(clip.pose.back().tSec, clip.durationSec);
        auto tiny = clip;
        tiny.placement[0].scale = 0;
        const auto later = tiny.shifted(2);
        EXPECT_EQ(later.durationSec, clip.durationSec);
        EXPECT_EQ(later.placement[0].scale, 0.05);
        EXPECT_EQ(later.placement[0].move, key);
        EXPECT_EQ(later.pose[1].tSec, clip.pose[1].tSec + 2);
        EXPECT_EQ(later.pose[1].tiltDegrees, clip.pose[1].tiltDegrees);
    }
    using namespace TeaserChoreography;
    EXPECT_EQ(heroRise().pose.back().tiltDegrees, scrollLean().pose.front().tiltDegrees);
    EXPECT_EQ(scrollLean().pose.back().tiltDegrees, exitUp().pose.front().tiltDegrees);
    EXPECT_EQ(exitUp().placement.front().offset.y, 0.08);
    EXPECT_EQ(tiltAwayExit().durationSec, growFromDepth().durationSec);
    EXPECT_EQ(presentPairLeft().placement.back().scale, 0.72);
}

}   // namespace
}   // namespace tavix
