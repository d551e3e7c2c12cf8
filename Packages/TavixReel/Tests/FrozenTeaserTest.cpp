#include "TavixCore/Tests/FrozenForms.h"
#include "TavixCore/Tests/FrozenTable.h"
#include "TavixReel/Choreography/TeaserChoreography.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

namespace tavix {
namespace {

TEST(FrozenTables, HoldEveryClipOfTheTeaserLibrary) {
    using namespace TeaserChoreography;
    const struct {
        const char* constant;
        const Clip& clip;
    } constants[] = {{"heroRise", heroRise()}, {"scrollLean", scrollLean()}, {"exitUp", exitUp()},
        {"growFromDepth", growFromDepth()}, {"tiltAwayExit", tiltAwayExit()},
        {"presentPairLeft", presentPairLeft()}};
    JsonArray rows;
    for (const auto& [key, clip] : all()) {
        // The tag of the first place is the key; it is told apart, so that the places are numbers alone.
        std::vector<DevicePlacementKeyframe> places = clip.placement;
        EXPECT_EQ(places.at(0).move, key);
        places[0].move.reset();
        JsonObject row{{"name", key}, {"durationSec", clip.durationSec},
            {"placement", frozen::placesForm(places)}, {"pose", frozen::posesForm(clip.pose)}};
        for (const auto& one : constants)
            if (one.clip == clip) row.set("constant", one.constant);
        rows.push_back(row);
    }
    EXPECT_THAT(
        frozen::departures(frozen::table("teaser-clips"),
            JsonObject{{"poseSpring", frozen::numbers({poseSpring.responseSec, poseSpring.damping})},
                {"placementSpring", frozen::numbers({placementSpring.responseSec, placementSpring.damping})},
                {"rows", rows}}),
        testing::IsEmpty());
}

}   // namespace
}   // namespace tavix
