// How a device in space stands, smears and changes its screen: numbers alone, without a model.
#include "RenderTestKit.h"
#include "TavixRender/DeviceScene/DeviceMotionBlur.h"
#include "TavixRender/DeviceScene/ScreenTransitionWindow.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tavix {
namespace {

constexpr double pi = 3.14159265358979323846;

DeviceScene restingScene() {
    DeviceScene scene;
    scene.tiltDegrees = {};
    scene.driftDegrees = 0;
    return scene;
}

DevicePlacementSpec standingAt(double offsetX) { return {{{0, {offsetX, 0}, 1, {}, {}}}}; }

DeviceMotionRules portrait(bool parks = false, bool isSmooth = true) {
    return {1080, 1920, 60, isSmooth, parks, {}};
}

TEST(DeviceSceneMotion, SwaysAboutItsTiltHalfAsFarInPitchAsInYaw) {
    DeviceScene scene;
    scene.tiltDegrees = {8, -14, 3};
    const DeviceSceneMotion motion(scene, {}, portrait());
    for (double t = 0; t < 14; t += 0.37) {
        const Vector3 pose = motion.posed(t), sway{pose.x - 8, pose.y + 14, pose.z};
        EXPECT_NEAR(sway.x * 2, sway.y, 1e-9);
        EXPECT_EQ(sway.z, 3);
        EXPECT_NEAR(motion.posed(t + scene.driftPeriodSec).y, pose.y, 1e-9) << "it comes back";
    }
    EXPECT_NEAR(motion.posed(scene.driftPeriodSec / 4).y, -14 + scene.driftDegrees, 1e-9);
}

TEST(DeviceSceneMotion, FollowsItsTracksInTheTimeOfTheOutput) {
    DeviceScene scene = restingScene();
    scene.poseTrack = {{0, {0, 10, 0}}, {2, {0, 50, 0}}};
    DeviceMotionRules rules = portrait();
    EXPECT_NEAR(DeviceSceneMotion(scene, {}, rules).posed(2).y, 50, 1e-9);
    rules.timeRemap = [](double sec) { return 3 + sec / 2; };
    const DeviceSceneMotion remapped(scene, standingAt(0.2), rules);
    EXPECT_NEAR(remapped.posed(4).y, 50, 1e-9) << "the last keyframe, at 3 + 2 / 2";
    EXPECT_NEAR(remapped.posed(2).y, 10, 1e-9);
    rules.smoothPose = false;
    EXPECT_LT(DeviceSceneMotion(scene, {}, rules).posed(4).y, 45) << "a spring lags behind";
}

TEST(DeviceSceneMotion, TurnsAParkedDeviceTowardsTheText) {
    const struct {
        const char* reason;
        Vector3 tilt;
        double offsetX;
        bool parks;
        Vector3 expected;
    } cases[] = {
        {"in the middle", {8, -14, 5}, 0, true, {8, -14, 5}},
        {"at the left", {8, -14, 5}, -0.2, true, {2, 30, 0}},
        {"at the right", {8, -14, 5}, 0.2, true, {2, -30, 0}},
        {"lying on its back", {70, 10, 5}, 0.2, true, {70, 10, 5}},
        {"flipping at the left", {0, 200, 0}, -0.1, true, {0, -200, 0}},
        {"flipping nearly in the middle", {0, 200, 0}, -0.08, true, {0, 200, 0}},
        {"flipping at the right", {0, 45, 0}, 0.3, true, {0, 45, 0}},
        {"not asked to", {8, -14, 5}, 0.2, false, {8, -14, 5}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.reason);
        DeviceScene scene = restingScene();
        scene.tiltDegrees = c.tilt;
        const Vector3 pose = DeviceSceneMotion(scene, standingAt(c.offsetX), portrait(c.parks)).posed(1.3);
        EXPECT_NEAR(pose.x, c.expected.x, 1e-9);
        EXPECT_NEAR(pose.y, c.expected.y, 1e-9);
        EXPECT_NEAR(pose.z, c.expected.z, 1e-9);
    }
}

TEST(DeviceSceneMotion, LetsAParkedDeviceSwayAsFarAsAnyOther) {
    DeviceScene scene;
    scene.tiltDegrees = {};
    const double quarterSec = scene.driftPeriodSec / 4;
    const DeviceSceneMotion parked(scene, standingAt(0.3), portrait(true));
    EXPECT_NEAR(parked.posed(quarterSec).y - parked.posed(0).y, scene.driftDegrees, 1e-6);
}

// Turns by so much from the frame before 1 s to that at 1 s.
DeviceScene turningScene(double degrees) {
    DeviceScene scene = restingScene();
    scene.poseTrack = {{0, {}}, {59.0 / 60, {}}, {1, {0, degrees, 0}}, {2, {0, degrees, 0}}};
    return scene;
}

TEST(DeviceMotionBlur, BeginsPastSixPixelsAndEndsAtThirtyTwo) {
    const auto radiusFor = [&](double speedPx, double gain) {
        const double degrees = std::asin(speedPx / 440) * 180 / pi;
        const DeviceSceneMotion motion(turningScene(degrees), {}, portrait());
        const auto blur = motionBlurOf({motion, 1920, 880, 1720, 60}, gain, 1);
        return blur ? blur->radiusPx : 0;
    };
    const struct {
        double speedPx, gain, radiusPx;
    } cases[] = {{5.9, 5, 0}, {6.5, 0.35, 0}, {8, 0.375, 0}, {8.5, 0.35, 0.875}, {26, 0.35, 7}, {26, 0, 0},
        {26, -1, 0}, {400, 0.35, 32}};
    for (const auto& c : cases) EXPECT_NEAR(radiusFor(c.speedPx, c.gain), c.radiusPx, 1e-3) << c.speedPx;
}

TEST(DeviceMotionBlur, SmearsAlongTheWayOnThePicture) {
    const struct {
        NormalizedVec2 way;    // y down
        double angleDegrees;   // y up
    } cases[] = {{{1, 0}, 0}, {{0, 1}, -90}, {{1, 1}, -45}, {{1, -1}, 45}, {{-1, 0}, 180}};
    for (const auto& c : cases) {
        DevicePlacementSpec placement{{{0, {}, 1, {}, {}}, {1, c.way, 1, {}, {}}}};
        const DeviceSceneMotion motion(restingScene(), placement, portrait());
        const auto blur = motionBlurOf({motion, 1920, 500, 1000, 60}, 0.35, 0.5);
        ASSERT_TRUE(blur.has_value());
        EXPECT_NEAR(std::remainder(blur->angleRad * 180 / pi - c.angleDegrees, 360), 0, 1e-6);
    }
}

class Screen : public ::testing::Test {
protected:
    TransitionInput input(double atSec, double revealSec, TransitionStyle style) const {
        ScreenTransition transition;
        transition.atSec = atSec;
        transition.revealSec = revealSec;
        transition.style = style;
        return {transition, before, after};
    }
    std::string shown(
        const std::vector<TransitionInput>& inputs, const DeviceSceneMotion& motion, double sec) {
        const auto windows = transitionWindows(inputs, motion, 0, {});
        const imaging::Image image = screenImage(windows, live, motion, sec);
        return image.hash() == live.hash()     ? "live"
               : image.hash() == before.hash() ? "before"
               : image.hash() == after.hash()  ? "after"
                                               : "both";
    }
    const imaging::Image live = testing::testCard({8, 16}, 1), before = testing::testCard({8, 16}, 2),
                         after = testing::testCard({8, 16}, 3);
    const DeviceSceneMotion still{restingScene(), {}, portrait()};
};

TEST_F(Screen, ShowsATransitionAtBothEndsOfItsWindow) {
    const std::vector<TransitionInput> inputs{input(1, 2, TransitionStyle::push)};
    const std::pair<double, const char*> cases[] = {
        {0.99, "live"}, {1, "before"}, {1.5, "both"}, {2, "after"}, {2.01, "live"}};
    for (const auto& [sec, expected] : cases) EXPECT_EQ(shown(inputs, still, sec), expected) << sec;
}

TEST_F(Screen, FollowsTheEarlierOfTwoTransitionsThatOverlap) {
    std::vector<TransitionInput> inputs{
        input(1.5, 3, TransitionStyle::flip), input(1, 2, TransitionStyle::push)};
    EXPECT_EQ(shown(inputs, still, 1.8), "both") << "the push";
    EXPECT_EQ(shown(inputs, still, 2.5), "before") << "the flip of a device that does not turn";
}

TEST_F(Screen, ChangesBehindTheBackOfADeviceThatFlips) {
    DeviceScene scene = restingScene();
    scene.driftDegrees = 40;   // must not count
    scene.poseTrack = {{0, {0, 30, 0}}, {1, {0, 30, 0}}, {2, {0, 390, 0}}, {3, {0, 390, 0}}};
    const DeviceSceneMotion motion(scene, {}, portrait());
    const std::vector<TransitionInput> inputs{input(1, 2, TransitionStyle::flip)};
    for (double sec = 1; sec <= 2; sec += 0.01) {
        const bool isPastHalf = motion.tracked(sec)->y - 30 >= 180;
        EXPECT_EQ(shown(inputs, motion, sec), isPastHalf ? "after" : "before") << sec;
    }
}

TEST_F(Screen, LetsTheLivePictureComeIn) {
    TransitionInput push = input(1, 2, TransitionStyle::push);
    push.transition.liveIncoming = true;
    const auto windows = transitionWindows({push}, still, 0, {});
    const imaging::Size size{8, 16};
    EXPECT_EQ(testing::Picture(screenImage(windows, live, still, 2), size), testing::Picture(live, size));
}

}   // namespace
}   // namespace tavix
