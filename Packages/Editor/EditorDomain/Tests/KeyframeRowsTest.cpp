// Values at the playhead: what they show, and what a change of them does.
#include "Editor/EditorDomain/Inspector/KeyframeRows.h"
#include "TavixCore/Animation/CompositionMath.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/LayerOperations.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <optional>

namespace tavix {
namespace {

// The second scene starts at 4 s, its layer half a second later.
struct KeyframeRowsTest : ::testing::Test {
    EditState state;

    KeyframeRowsTest() {
        state.spec.output = {1080, 1920, 30};
        for (int i = 0; i < 2; ++i) state.spec.scenes.emplace_back().durationSec = 4;
        LayerOperations::addLayer(state, 1, ContentKind::shape);
        layer().fromSec = 0.5;
    }
    CompositionLayer& layer() { return state.spec.scenes[1].layers[0]; }
    std::optional<InspectorRow> rowAt(double sec, const std::string& key) const {
        for (const InspectorRow& row : keyframeRows(state, state.selection.layers(), sec).rows)
            if (row.path.tokens().back() == key) return row;
        return std::nullopt;
    }
    double shownAt(double sec, const std::string& key) const {
        return rowAt(sec, key)->value.doubleValue().value();
    }
    void set(double sec, const std::string& key, double value, const std::string& part = {}) {
        KeyframeEdit::set(state, *rowAt(sec, key), part, value, sec);
    }
    void animate() {   // from 1 to 2 in two seconds
        layer().tracks = {{AnimProperty::scale, {{}, {}}}};
        layer().tracks[0].keyframes[0].value = 1;
        layer().tracks[0].keyframes[1].t = 2;
        layer().tracks[0].keyframes[1].value = 2;
    }
    DeviceContent& makeDevice() {
        layer().content = defaultContent(ContentKind::device);
        return std::get<DeviceContent>(layer().content);
    }
};

TEST_F(KeyframeRowsTest, ShowWhatHoldsAtThePlayhead) {
    EXPECT_EQ(shownAt(5, "scale"), 1);
    EXPECT_TRUE(rowAt(5, "scale")->isAtRest);
    animate();
    EXPECT_NEAR(shownAt(5.5, "scale"), std::sqrt(2), 1e-9);   // half way, as zooming looks even
    EXPECT_EQ(shownAt(0, "scale"), 1);                        // held at both ends
    EXPECT_EQ(shownAt(99, "scale"), 2);
    EXPECT_FALSE(rowAt(5, "scaleX"));   // shown once it is animated
    EXPECT_EQ(rowAt(5, "x")->shownTimes, 1080);
    EXPECT_EQ(rowAt(5, "y")->shownTimes, 1920);
}

TEST_F(KeyframeRowsTest, WhatIsSetIsShownAndAnOtherMomentOfAnAnimationStays) {
    for (const double sec : {4.5, 5.0, 6.5, 7.9})
        for (const double value : {0.5, 1.7}) {
            animate();
            const std::size_t before = layer().tracks[0].keyframes.size();
            set(sec, "scale", value);
            EXPECT_NEAR(shownAt(sec, "scale"), value, 1e-9) << sec;
            const bool isOnOne = sec == 4.5 || sec == 6.5;
            EXPECT_EQ(layer().tracks[0].keyframes.size(), before + (isOnOne ? 0 : 1)) << sec;
            EXPECT_EQ(shownAt(4.5, "scale"), sec == 4.5 ? value : 1) << sec;
        }
}

TEST_F(KeyframeRowsTest, WhatDoesNotMoveChangesForAllTheTime) {
    set(5, "opacity", 0.4);
    set(6, "opacity", 0.6);
    for (const double sec : {4.5, 5.0, 6.0, 8.0}) EXPECT_EQ(shownAt(sec, "opacity"), 0.6) << sec;
    EXPECT_FALSE(rowAt(5, "opacity")->keyed->isAnimated);
    set(5, "opacity", 7);   // held in its range
    EXPECT_EQ(shownAt(5, "opacity"), 1);
}

TEST_F(KeyframeRowsTest, TheDiamondComesAndGoes) {
    animate();
    const CompositionLayer before = layer();
    const double value = shownAt(5.5, "scale");
    EXPECT_FALSE(rowAt(5.5, "scale")->keyed->isHere);
    KeyframeEdit::toggle(state, *rowAt(5.5, "scale"), 5.5);
    const auto keyed = *rowAt(5.5, "scale")->keyed;
    EXPECT_TRUE(keyed.isHere);
    EXPECT_EQ(keyed.beforeSec, 4.5);
    EXPECT_EQ(keyed.nextSec, 6.5);
    EXPECT_EQ(shownAt(5.5, "scale"), value);
    KeyframeEdit::toggle(state, *rowAt(5.5, "scale"), 5.5);
    EXPECT_EQ(layer(), before);
    EXPECT_EQ(rowAt(4.5, "scale")->keyed->beforeSec, std::nullopt);
    for (const double sec : {4.5, 6.5}) KeyframeEdit::toggle(state, *rowAt(sec, "scale"), sec);
    EXPECT_TRUE(layer().tracks.empty());
}

TEST_F(KeyframeRowsTest, SeveralLayersAreSetAtTheSameMomentOfTheFilm) {
    animate();
    LayerOperations::addLayer(state, 1, ContentKind::shape);
    state.selection = {1, 0, {{1, 1}}};
    EXPECT_TRUE(rowAt(6, "scale")->isMixed);
    set(6, "scale", 1.25);
    EXPECT_FALSE(rowAt(6, "scale")->isMixed);
    EXPECT_EQ(shownAt(6, "scale"), 1.25);
}

TEST_F(KeyframeRowsTest, ADeviceHasOneRowOfKeyframesForAllThatMovesIt) {
    DeviceContent& device = makeDevice();
    set(5, "tilt", 30, "y");
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device), testing::ElementsAre(0.5));
    set(7, "tilt", 40, "y");   // one keyframe is a value for all the time
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device), testing::ElementsAre(0.5));
    KeyframeEdit::toggle(state, *rowAt(6.5, "tilt"), 6.5);
    set(6.5, "size", 2);
    EXPECT_THAT(DeviceKeyframes::unifiedKeyframeTimes(device), testing::ElementsAre(0.5, 2));
    EXPECT_NEAR(shownAt(6.5, "size"), 2, 1e-9);
    EXPECT_NEAR(rowAt(6.5, "tilt")->value.find("y")->doubleValue().value(), 40, 0.01);
    EXPECT_TRUE(rowAt(6.5, "depth")->keyed->isHere);
    EXPECT_FALSE(rowAt(6.5, "x"));   // its placement owns that
    device.scene3D.reset();
    EXPECT_FALSE(rowAt(6.5, "tilt"));
    EXPECT_TRUE(rowAt(6.5, "offset"));
}

}   // namespace
}   // namespace tavix
