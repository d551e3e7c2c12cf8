#include "TavixCore/Device/ChoreographyAuthor.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixCore/Device/DevicePlacementTrajectory.h"
#include "TavixCore/Device/DevicePoseTrajectory.h"
#include "TavixCore/Support/Names.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tavix {
namespace {

constexpr TrajectorySpring everySpring[] = {
    {0.5, 0.7}, {0.5, 0.05}, {0.5, 0.2}, {0.9, 0.9989}, {0.9, 0.9995}, {0.2, 1}, {0.1, 3}};

TEST(PoseTrajectory, RestsOnASingleKeyframe) {
    for (const double fps : {24.0, 60.0, 120.0}) {
        const auto trajectory = DevicePoseTrajectory::chasing({{0, {1, 2, 3}}}, fps, {0.5, 0.7});
        EXPECT_EQ(trajectory.frames.size(), static_cast<std::size_t>(std::round(2.6 * 0.5 * fps) + 1));
        for (const Vector3& frame : trajectory.frames) EXPECT_EQ(frame, (Vector3{1, 2, 3}));
    }
    EXPECT_TRUE(DevicePoseTrajectory::chasing({}, 60, {0.5, 0.7}).frames.empty());
    EXPECT_EQ(DevicePoseTrajectory{}.sample(1), Vector3{});
    for (const double fps : {0.0, -1.0, std::nan("")})
        EXPECT_EQ(DevicePoseTrajectory::chasing({{3, {1, 0, 0}}, {1, {2, 0, 0}}}, fps, {0.5, 0.7}).frames,
            std::vector{(Vector3{1, 0, 0})});
}

TEST(PoseTrajectory, SettlesOnTheLastKeyframeWithEverySpring) {
    for (const TrajectorySpring& spring : everySpring) {
        SCOPED_TRACE(spring.damping);
        const auto trajectory =
            DevicePoseTrajectory::chasing({{0, {0, 0, 0}}, {1, {90, -40, 10}}}, 60, spring);
        const double leftover = spring.damping < 0.5 ? 90 * std::exp(-0.2 * 2 * 3.1416 * 3.6) + 0.1 : 1;
        EXPECT_NEAR(trajectory.frames.back().x, 90, leftover);
        EXPECT_NEAR(trajectory.frames.back().y, -40, leftover);
    }
}

TEST(PoseTrajectory, DoesNotDependOnTheFrameRate) {
    const std::vector<DevicePoseKeyframe> track{
        {0, {0, 0, 0}}, {1, {90, 0, 0}}, {1.5, {0, 45, 0}}, {3, {0, 0, 20}}};
    for (const TrajectorySpring& spring : everySpring) {
        const auto slow = DevicePoseTrajectory::chasing(track, 24, spring);
        const auto fast = DevicePoseTrajectory::chasing(track, 120, spring);
        for (std::size_t i = 0; i < slow.frames.size() && i * 5 < fast.frames.size(); ++i) {
            EXPECT_NEAR(slow.frames[i].x, fast.frames[i * 5].x, 1e-6) << spring.damping << " at frame " << i;
            EXPECT_NEAR(slow.frames[i].y, fast.frames[i * 5].y, 1e-6);
        }
    }
}

// The spring's own equation, x'' = -2 ζω x' - ω² x, holds between neighbouring frames.
TEST(PoseTrajectory, ObeysTheEquationOfASpring) {
    constexpr double fps = 4000, responseSec = 0.5, omega = 2 * 3.14159265358979 / responseSec;
    for (const double damping : {0.3, 0.7, 1.0}) {
        const auto frames =
            DevicePoseTrajectory::chasing({{0, {0, 0, 0}}, {0.1, {1, 0, 0}}}, fps, {responseSec, damping})
                .frames;
        for (std::size_t i = 50; i < 2000; i += 150) {
            const double away = frames[i].x - 1, rate = (frames[i + 1].x - frames[i - 1].x) * fps / 2;
            const double acceleration = (frames[i + 1].x - 2 * frames[i].x + frames[i - 1].x) * fps * fps;
            EXPECT_NEAR(acceleration, -2 * damping * omega * rate - omega * omega * away, 0.1) << damping;
        }
    }
}

TEST(PoseTrajectory, LeavesEarlyForAPoseThatFollowsClosely) {
    const auto close = DevicePoseTrajectory::chasing({{0, {0, 0, 0}}, {0.5, {90, 0, 0}}}, 60, {0.5, 0.7});
    EXPECT_EQ(close.frames[0].x, 0);
    EXPECT_GT(close.frames[1].x, 0);
    const auto far = DevicePoseTrajectory::chasing({{1, {90, 0, 0}}, {0, {0, 0, 0}}}, 60, {0.5, 0.7});
    EXPECT_EQ(far.frames[0].x, 90) << "starts at the first keyframe as given";
    const auto later = DevicePoseTrajectory::chasing({{0, {0, 0, 0}}, {1, {90, 0, 0}}}, 60, {0.5, 0.7});
    for (std::size_t i = 0; i <= 60; ++i) EXPECT_EQ(later.frames[i].x, 0) << i;
    EXPECT_GT(later.frames[61].x, 0);
}

TEST(PoseTrajectory, SamplesTheNearestFrame) {
    const DevicePoseTrajectory trajectory{{{0, 0, 0}, {1, 0, 0}, {2, 0, 0}}, 10};
    const struct {
        double atSec, x;
    } cases[] = {{-5, 0}, {0.04, 0}, {0.06, 1}, {0.2, 2}, {1e300, 2}, {std::nan(""), 0}};
    for (const auto& c : cases) EXPECT_EQ(trajectory.sample(c.atSec).x, c.x) << c.atSec;
}

TEST(PoseTrajectory, StaysWithinItsMemory) {
    EXPECT_EQ(DevicePoseTrajectory::chasing({{0, {}}, {1e12, {}}}, 60, {0.5, 0.7}).frames.size(),
        longestTrajectoryFrames);
    EXPECT_EQ(DevicePoseTrajectory::smooth({{-1e12, {}}, {-1e11, {}}}, 60).frames.size(), 1u);
}

TEST(SmoothTrajectory, PassesThroughItsKeyframesAndHoldsPlateaus) {
    const std::vector<DevicePoseKeyframe> track{
        {2, {30, 0, 0}}, {0, {10, 0, 0}}, {1, {30, 5, 0}}, {3, {0, 7, 0}}};
    const auto trajectory = DevicePoseTrajectory::smooth(track, 60);
    EXPECT_EQ(trajectory.frames.size(), 181u);
    for (const DevicePoseKeyframe& keyframe : track)
        EXPECT_EQ(trajectory.sample(keyframe.tSec), keyframe.tiltDegrees);
    for (std::size_t i = 60; i <= 120; ++i) EXPECT_NEAR(trajectory.frames[i].x, 30, 1e-12) << i;
    const auto fine = DevicePoseTrajectory::smooth(track, 240);
    for (std::size_t i = 0; i < trajectory.frames.size(); ++i)
        EXPECT_NEAR(trajectory.frames[i].x, fine.frames[4 * i].x, 1e-9);
    EXPECT_EQ(DevicePoseTrajectory::smooth({{5, {1, 2, 3}}}, 60).frames, std::vector{(Vector3{1, 2, 3})});
}

TEST(PlacementTrajectory, MovesSizesLogarithmically) {
    const std::vector<DevicePlacementKeyframe> track{{0, {0, 0}, 1}, {2, {0, 0}, 4}};
    const auto smooth = DevicePlacementTrajectory::smooth(track, 60);
    EXPECT_EQ(smooth.frames.size(), 145u) << "0.4 s longer than the track";
    EXPECT_NEAR(smooth.sample(1).scale, 2, 1e-9);
    EXPECT_NEAR(smooth.frames.back().scale, 4, 1e-9);
    const auto inverse = DevicePlacementTrajectory::chasing({{0, {0, 0}, 4}, {2, {0, 0}, 1}}, 60, {0.9, 0.5});
    const auto chasing = DevicePlacementTrajectory::chasing(track, 60, {0.9, 0.5});
    for (std::size_t i = 0; i < chasing.frames.size(); ++i)
        EXPECT_NEAR(chasing.frames[i].scale * inverse.frames[i].scale, 4, 1e-9);
}

TEST(PlacementTrajectory, TakesAScaleOfZero) {
    const std::vector<DevicePlacementKeyframe> track{{0, {0, 0}, 0}, {1, {0.2, 0}, 1}};
    const auto chasing = DevicePlacementTrajectory::chasing(track, 60, {0.9, 0.85});
    EXPECT_NEAR(chasing.frames.front().scale, 1e-6, 1e-15);
    for (const auto& frame : chasing.frames) ASSERT_TRUE(std::isfinite(frame.scale));
    EXPECT_EQ(DevicePlacementTrajectory::smooth(track, 60).frames.front().scale, 0.05);
    EXPECT_EQ(DevicePlacementTrajectory{}.sample(3), DevicePlacementTrajectory::Placement{});
}

TEST(DepthTrajectory, HoldsItsEndsAndItsPlateaus) {
    const std::vector<DeviceScalarKeyframe> track{{1, 0.2}, {2, 0.8}, {3, 0.8}, {4, 0.1}};
    const struct {
        double atSec, value;
    } cases[] = {{0, 0.2}, {1, 0.2}, {1.5, 0.5}, {2, 0.8}, {2.3, 0.8}, {3, 0.8}, {4, 0.1}, {9, 0.1}};
    for (const auto& c : cases)
        EXPECT_NEAR(DeviceDepthTrajectory::sample(track, c.atSec).value(), c.value, 1e-12) << c.atSec;
    EXPECT_EQ(DeviceDepthTrajectory::sample({}, 1), std::nullopt);
    EXPECT_EQ(DeviceDepthTrajectory::sample(std::vector<DeviceScalarKeyframe>{{1, 2}, {1, 3}}, 1), 2);
}

using ChoreographyAuthor::PhoneMove;

TEST(ChoreographyAuthor, PlacesTheModelWhereItsNameSays) {
    for (const ChoreographyAuthor::CanvasSize canvas :
        {ChoreographyAuthor::CanvasSize{1920, 1080}, {1080, 1920}, {1080, 1080}}) {
        const double aspect = canvas.heightPx / canvas.widthPx, width = 0.397072 * aspect;
        const auto left = resolvePlacement(PhoneMove::parkLeft, canvas),
                   right = resolvePlacement(PhoneMove::parkRight, canvas);
        EXPECT_NEAR(left.scale, std::min(0.43 / width, 1.0), 1e-12);
        EXPECT_NEAR(left.offsetX, 0.8 * (width * left.scale / 2 + 0.05 - 0.5) / aspect, 1e-12);
        EXPECT_NEAR(right.offsetX, -left.offsetX, 1e-12);
        const auto top = resolvePlacement(PhoneMove::scanTop, canvas),
                   bottom = resolvePlacement(PhoneMove::scanBottom, canvas);
        EXPECT_NEAR(top.scale, std::min(0.88 / width, 2.4), 1e-12);
        EXPECT_NEAR(top.offsetY - 0.8632 * top.scale / 2, 0.05 - 0.5, 1e-12)
            << "its upper edge 5 % below the canvas's";
        EXPECT_NEAR(bottom.offsetY, -top.offsetY, 1e-12);
        EXPECT_NEAR(resolvePlacement(PhoneMove::offscreenBottom, canvas).offsetY, 0.88844, 1e-9);
        EXPECT_EQ(resolvePlacement(PhoneMove::heroZoom, canvas),
            (ChoreographyAuthor::ResolvedPlacement{0, -0.02, 1.15}));
    }
}

TEST(ChoreographyAuthor, PlacesTheFlatDeviceByItsFrame) {
    const ChoreographyAuthor::CanvasSize frame{500, 1000}, canvas{1920, 1080};
    const auto parked = resolvePlacement2D(PhoneMove::parkLeft, frame, canvas);
    EXPECT_NEAR(parked.scale, 0.9 * 1080 / 1000, 1e-12) << "90 % of the height";
    const auto below = resolvePlacement2D(PhoneMove::offscreenBottom, frame, canvas);
    EXPECT_NEAR(below.offsetY - below.scale * 1000 / 1080 / 2, 0.5, 1e-12) << "its upper edge at the bottom";
    for (const PhoneMove move : allCases<PhoneMove>()) {
        const auto nothing = resolvePlacement2D(move, {0, 0}, {0, 0});
        EXPECT_TRUE(std::isfinite(nothing.offsetX) && std::isfinite(nothing.offsetY) && nothing.scale > 0)
            << nameOf(move);
    }
}

TEST(ChoreographyAuthor, TurnsAParkedDeviceTowardsTheText) {
    using namespace ChoreographyAuthor;
    EXPECT_EQ(parkPoseBlend(0.03), 0);
    EXPECT_NEAR(parkPoseBlend(-0.085), 0.5, 1e-12);
    EXPECT_EQ(parkPoseBlend(0.14), 1);
    EXPECT_EQ(parkPoseBlend(0.2, -15), 1);
    EXPECT_NEAR(parkPoseBlend(0.2, -30), 0.5, 1e-12);
    EXPECT_EQ(parkPoseBlend(0.2, 78), 0) << "one that lies on its back stays";
    EXPECT_EQ(parkedPose({8, -14, 3}, 0), (Vector3{8, -14, 3}));
    EXPECT_EQ(parkedPose({8, -14, 3}, -0.3), (Vector3{2, 30, 0}));
    EXPECT_EQ(parkedPose({8, -14, 3}, 0.3), (Vector3{2, -30, 0}));
    EXPECT_TRUE(flipTrack({}, {1, 2, 3}).empty());
}

TEST(PlacementSpec, ResolvesNamedMovesAndTimes) {
    const DevicePlacementSpec spec{
        {{1, {9, 9}, 9, "center"}, {2, {0.1, 0.2}, 0.01, "moonwalk"}, {3, {0.3, 0}, 2}}};
    const auto track = spec.resolvedTrack(1920, 1080, [](double t) { return 10 + 2 * t; });
    EXPECT_EQ(track[0], (DevicePlacementKeyframe{12, {0, 0}, 1, "center"}));
    EXPECT_EQ(track[1], (DevicePlacementKeyframe{14, {0.1, 0.2}, 0.05, "moonwalk"}));
    EXPECT_EQ(track[2], (DevicePlacementKeyframe{16, {0.3, 0}, 2}));
}

TEST(PlacementSpec, RisesIntoAnOpeningPark) {
    const auto resolved = [](double parkSec, const char* parkMove) {
        const DevicePlacementSpec spec{
            {{0, {0, 0.9}, 0.5, "hero-rise"}, {1, {0.1, 0}, 0.8}, {parkSec, {}, 1, parkMove}}};
        return spec.resolvedTrack(1920, 1080, [](double t) { return t; });
    };
    const auto risen = resolved(1.25, "park-left"), late = resolved(1.31, "park-left"),
               other = resolved(1.2, "center");
    const double parkX = risen[2].offset.x, growth = risen[2].scale / 0.8;
    EXPECT_NEAR(risen[1].offset.x, parkX, 1e-12) << "it arrives where it is parked";
    EXPECT_NEAR(risen[0].offset.x, parkX - 0.1, 1e-12);
    EXPECT_NEAR(risen[0].scale, 0.5 * growth, 1e-12);
    EXPECT_EQ(risen[0].offset.y, 0.9);
    for (const auto& track : {late, other}) {
        EXPECT_EQ(track[0].offset.x, 0);
        EXPECT_EQ(track[1].scale, 0.8);
    }
}

}   // namespace
}   // namespace tavix
