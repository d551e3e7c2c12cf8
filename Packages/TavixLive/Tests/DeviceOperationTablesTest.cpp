// The named edits of devices by tables: what each makes of which motion.
#include "EditStates.h"
#include "TavixLive/Operations/DeviceOperations.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tavix {
namespace {

using testing::first;
using testing::keyframe;
using testing::stateWithLayers;

EditState withDevice() {
    EditState state = stateWithLayers(1);
    DeviceContent device;
    device.scene3D.emplace();
    first(state).content = device;
    return state;
}
DeviceContent& deviceOf(EditState& state) { return *state.content<DeviceContent>(0, 0); }

TEST(DeviceTables, KnowMotionThatSomebodyMade) {
    using Make = void (*)(EditState&);
    const std::pair<Make, bool> cases[] = {{[](EditState&) {}, false},
        {[](EditState& s) { deviceOf(s).placement.emplace(); }, true},
        {[](EditState& s) {
             deviceOf(s).scene3D->poseTrack = {{0, {}}};
         },
            true},
        {[](EditState& s) {
             deviceOf(s).scene3D->depthTrack = {{0, 1}};
         },
            true},
        {[](EditState& s) { deviceOf(s).scene3D.reset(); }, false},
        {[](EditState& s) { first(s).tracks.emplace_back(); }, true},
        {[](EditState& s) { first(s).enter.emplace(); }, true},
        {[](EditState& s) { first(s).exit.emplace(); }, false},
        {[](EditState& s) { first(s).content = TextContent{}, first(s).enter.emplace(); }, false}};
    for (const auto& [make, has] : cases) {
        EditState state = withDevice();
        make(state);
        EXPECT_EQ(DeviceOperations::deviceHasAuthoredMotion(state.spec, 0, 0), has)
            << &make - &cases[0].first;
    }
    EXPECT_FALSE(DeviceOperations::deviceHasAuthoredMotion({}, 0, 0));
}

// A named motion takes the place of what was there, whatever that was.
TEST(DeviceTables, ReplaceEarlierMotionByANamedOne) {
    for (const char* name : {"rise-up", "tiltShowcase"}) {
        DeviceMotionRef ref;
        ref.preset = *DeviceMotionPreset::fromRawValue(name);
        EditState bare = withDevice(), moved = withDevice();
        deviceOf(moved).placement = DevicePlacementSpec{{{1, {0.4, 0.4}, 2}}};
        deviceOf(moved).scene3D->poseTrack = {{3, {9, 9, 9}}};
        first(moved).tracks = {{AnimProperty::opacity, {keyframe(0, 0)}}};
        first(moved).enter.emplace();
        moved.spec.scenes[0].durationSec = bare.spec.scenes[0].durationSec = 0.5;
        DeviceOperations::applyDeviceMotionPreset(bare, 0, 0, ref);
        DeviceOperations::applyDeviceMotionPreset(moved, 0, 0, ref);
        EXPECT_EQ(moved, bare) << name;
        EXPECT_TRUE(DeviceOperations::deviceHasAuthoredMotion(bare.spec, 0, 0));
        EXPECT_GT(bare.spec.scenes[0].durationSec, 0.9) << "there is time for it";
    }
}

TEST(DeviceTables, CountKeyframesNearEachOtherAsOne) {
    const struct {
        std::vector<double> tilts, places, row;
    } cases[] = {{{}, {}, {}}, {{0, 1}, {1.01, 2}, {0, 1, 2}}, {{1, 1.015}, {1.03}, {1, 1.03}},
        {{2}, {0}, {0, 2}}, {{0.5}, {0.525}, {0.5, 0.525}}};
    for (const auto& c : cases) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        for (const double t : c.tilts) device.scene3D->poseTrack.push_back({t, {}});
        if (!c.places.empty()) device.placement.emplace();
        for (const double t : c.places) device.placement->track.push_back({t, {}, 1});
        EXPECT_EQ(DeviceKeyframes::unifiedKeyframeTimes(device), c.row);
        DeviceKeyframes::unifyKeyframeTimes(device, state.spec.output);
        if (c.row.empty()) continue;
        for (const double t : c.row)
            EXPECT_EQ(std::ranges::count_if(device.scene3D->depthTrack,
                          [&](const auto& keyframe) { return keyframe.tSec == t; }),
                1)
                << "every track has one there";
        EXPECT_EQ(device.scene3D->depthTrack.size(), c.row.size());
    }
}

TEST(DeviceTables, ChangeAKeyframeThatIsNearAndAddOneThatIsNot) {
    for (const auto& [atSec, count] :
        {std::pair{1.0, 1u}, {1.019, 1u}, {0.981, 1u}, {1.021, 2u}, {0.5, 2u}}) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        DeviceKeyframes::upsertUnifiedKeyframe(device, 1, {{1, 1, 1}, 0.2, {}, 1});
        DeviceKeyframes::upsertUnifiedKeyframe(device, atSec, {{2, 2, 2}, 0.4, {0.3, 0}, -4});
        EXPECT_EQ(device.scene3D->poseTrack.size(), count) << atSec;
        EXPECT_EQ(device.scene3D->depthTrack.size(), count) << atSec;
        EXPECT_EQ(device.placement->track.size(), count) << atSec;
        const auto& changed = device.placement->track[atSec < 1 && count == 2 ? 0 : count - 1];
        EXPECT_EQ(changed.offset.x, 0.3);
        EXPECT_EQ(changed.scale, 0.05) << "never smaller";
    }
}

TEST(DeviceTables, MoveAKeyframeBetweenItsNeighbours) {
    const struct {
        double from, to;
        std::vector<double> row;
    } cases[] = {{1, 1.5, {0, 1.5, 2}}, {1, 9, {0, 1.98, 2}}, {1, -9, {0, 0.02, 2}}, {0, -1, {0, 1, 2}},
        {2, 9, {0, 1, 4}}, {1.029, 1.2, {0, 1.2, 2}}, {1.031, 1.2, {0, 1, 2}}};
    for (const auto& c : cases) {
        EditState state = withDevice();
        DeviceContent& device = deviceOf(state);
        for (const double sec : {0.0, 1.0, 2.0})
            DeviceKeyframes::upsertUnifiedKeyframe(device, sec, {{sec, 0, 0}, 0.5, {}, 1});
        DeviceKeyframes::moveUnifiedKeyframe(device, c.from, c.to, 4);
        const auto row = DeviceKeyframes::unifiedKeyframeTimes(device);
        ASSERT_EQ(row.size(), c.row.size());
        for (std::size_t i = 0; i < row.size(); ++i) {
            EXPECT_NEAR(row[i], c.row[i], 1e-12) << c.from << " to " << c.to;
            EXPECT_EQ(device.scene3D->poseTrack[i].tSec, row[i]);
            EXPECT_EQ(device.scene3D->depthTrack[i].tSec, row[i]);
            EXPECT_EQ(device.placement->track[i].tSec, row[i]);
        }
    }
}

// A layer that comes later has its keyframes on its own clock; the end of the scene is the end of both.
TEST(DeviceTables, AppendAKeyframeAtTheNewEndOfTheScene) {
    for (const double fromSec : {0.0, 1.5})
        for (const auto& [extraSec, grownSec] : {std::pair{1.0, 1.0}, {0.0, 0.01}, {-3.0, 0.01}}) {
            EditState state = withDevice();
            first(state).fromSec = fromSec;
            DeviceContent& device = deviceOf(state);
            DeviceKeyframes::upsertUnifiedKeyframe(device, 0, {{1, 0, 0}, 0.5, {}, 1});
            DeviceKeyframes::upsertUnifiedKeyframe(device, 1, {{7, 0, 0}, 0.5, {0.2, 0}, 2});
            const auto end = DeviceOperations::appendKeyframe(state, 0, 0, extraSec);
            EXPECT_EQ(end, 4 + grownSec);
            EXPECT_EQ(state.spec.scenes[0].durationSec, 4 + grownSec);
            EXPECT_NEAR(fromSec + device.placement->track.back().tSec, 4 + grownSec, 1e-12);
            EXPECT_EQ(device.placement->track.back().offset.x, 0.2) << "as it stood before";
            EXPECT_EQ(device.scene3D->poseTrack.back().tiltDegrees.x, 7);
        }
}

TEST(DeviceTables, MoveFurtherTheFurtherADeviceIs) {
    const struct {
        double depth, overscan, perPoint;
    } cases[] = {{0.5, 1, 1.0 / 500}, {0, 1, 1.5 / 500}, {1.4, 1, 0.2 / 500}, {9, 1, 0.2 / 500},
        {0.5, 0.5, 2.0 / 500}, {0.5, 0.01, 20.0 / 500}};
    for (const auto& c : cases) {
        DeviceOperations::DeviceDragStart start;
        start.state.depth = c.depth;
        start.state.offset = {0.1, -0.1};
        using enum DeviceOperations::DeviceMoveAxis;
        for (const auto axis : {free, x, y}) {
            const auto to = DeviceOperations::moved(start, 30, -20, {500, c.overscan}, axis);
            EXPECT_NEAR(to.offset.x, 0.1 + (axis == y ? 0 : 30 * c.perPoint), 1e-12);
            EXPECT_NEAR(to.offset.y, -0.1 + (axis == x ? 0 : -20 * c.perPoint), 1e-12);
        }
    }
}

}   // namespace
}   // namespace tavix
