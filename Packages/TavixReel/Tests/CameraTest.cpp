// The reel camera: where it goes, how it gets there, and what it never shows.
#include "TavixCore/Values/SeededRandom.h"
#include "TavixReel/Camera/CameraTransform.h"
#include "TavixReel/Camera/EffectsAuthor.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tavix {
namespace {

constexpr Timeline::Video phone{.widthPx = 1000, .heightPx = 2000, .fps = 60};
constexpr PixelPoint middle{500, 1000};

Timeline::Event tap(double tSec, std::optional<PixelRect> region = {}) {
    return {.index = std::int64_t(tSec * 10), .type = "tap", .tSec = tSec, .regionPx = region};
}
Timeline::Event swipe(double tSec) {
    return {.index = std::int64_t(tSec * 10), .type = "swipe", .tSec = tSec};
}

EffectsAuthor::Plan planOf(
    std::vector<Timeline::Event> events, const MotionSpec& motion = MotionSpec::smoothGlide) {
    return EffectsAuthor::plan({phone, std::move(events)}, motion);
}

CameraKeyframe key(double tSec, double scale, PixelPoint center) {
    return {tSec, scale, center, Easing::easeInOut};
}

using Track = std::vector<CameraKeyframe>;
const PixelRect top{400, 300, 200, 100}, below{400, 500, 200, 100}, bottom{400, 1700, 200, 100};

// Each row: what happens, and where the camera goes. A target of this size allows the full 1.22.
TEST(EffectsAuthor, GoesWhereTheStepsAre) {
    const struct {
        const char* what;
        std::vector<Timeline::Event> events;
        Track track;
        std::size_t heroes;
    } cases[] = {
        {"nothing", {}, {key(0, 1, middle)}, 0},
        {"one target", {tap(2, top)}, {key(0, 1, middle), key(2, 1.22, {500, 350})}, 1},
        {"too soon after", {tap(2, top), tap(3.3, bottom)}, {key(0, 1, middle), key(2, 1.22, {500, 350})}, 1},
        {"a beat that is skipped is no beat", {tap(2, top), tap(3.3, bottom), tap(3.5, bottom)},
            {key(0, 1, middle), key(2, 1.22, {500, 350}), key(2.4, 1, {500, 1050}),
                key(3.5, 1.22, {500, 1750})},
            2},
        {"hardly a move", {tap(2, top), tap(4, below)}, {key(0, 1, middle), key(2, 1.22, {500, 350})}, 1},
        {"a far pan without time to pull back", {tap(2, top), tap(2 + 0.94, bottom)},
            {key(0, 1, middle), key(2, 1.22, {500, 350})}, 1},
        {"a swipe when zoomed", {tap(2, top), swipe(4)},
            {key(0, 1, middle), key(2, 1.22, {500, 350}), key(3.45, 1, middle), key(4, 1, middle)}, 1},
        {"a swipe at rest", {swipe(4)}, {key(0, 1, middle), key(4, 1, middle)}, 0},
        {"a tap anywhere", {tap(2)}, {key(0, 1, middle), key(2, 1.22, middle), key(2.25, 1, middle)}, 0},
        {"a tap anywhere with time", {tap(2), tap(9, top)},
            {key(0, 1, middle), key(2, 1.22, middle), key(2.8, 1, middle), key(9, 1.22, {500, 350})}, 1},
        {"a tap anywhere just before another step", {tap(2), tap(2.5), tap(4, top)},
            {key(0, 1, middle), key(2, 1.22, middle), key(4, 1.22, {500, 350})}, 1},
        {"a region without size", {tap(2, PixelRect{1, 1, 0, 9})},
            {key(0, 1, middle), key(2, 1.22, middle), key(2.25, 1, middle)}, 0},
        {"too large at rest", {tap(2, PixelRect{0, 0, 1000, 2000})}, {key(0, 1, middle)}, 0},
        {"too large when zoomed", {tap(2, top), tap(4, PixelRect{0, 0, 1000, 2000})},
            {key(0, 1, middle), key(2, 1.22, {500, 350}), key(4, 1, middle)}, 1},
        {"in any order", {tap(4, PixelRect{0, 0, 1000, 2000}), tap(2, top)},
            {key(0, 1, middle), key(2, 1.22, {500, 350}), key(4, 1, middle)}, 1},
    };
    for (const auto& c : cases) {
        const auto plan = planOf(c.events);
        ASSERT_EQ(plan.keyframes.size(), c.track.size()) << c.what;
        for (std::size_t i = 0; i < c.track.size(); ++i) {
            SCOPED_TRACE(std::string(c.what) + ", keyframe " + std::to_string(i));
            EXPECT_NEAR(plan.keyframes[i].tSec, c.track[i].tSec, 1e-12);
            EXPECT_NEAR(plan.keyframes[i].scale, c.track[i].scale, 1e-12);
            EXPECT_EQ(plan.keyframes[i].centerPx, c.track[i].centerPx);
            EXPECT_EQ(plan.keyframes[i].easing, Easing::easeInOut);
        }
        EXPECT_EQ(plan.heroBeats.size(), c.heroes) << c.what;
    }
}

TEST(EffectsAuthor, ShowsWideTargetsByTheirHeight) {
    // 700 of 1000 wide: by its width it would be 1000 / (90 + 700 + 104), by its height 2000 / (90 + 1300 +
    // 104).
    MotionSpec motion;
    motion.targetZoom = motion.maxZoom = 9;
    const auto zoomOn = [&](PixelRect region) {
        return planOf({tap(2, region)}, motion).keyframes.back().scale;
    };
    EXPECT_NEAR(zoomOn({0, 0, 700, 1300}), 2000.0 / 1494, 1e-12);
    EXPECT_NEAR(zoomOn({0, 0, 600, 100}), 1000.0 / 794, 1e-12);
    EXPECT_NEAR(zoomOn({0, 0, 601, 100}), 2000.0 / 294, 1e-12);
}

TEST(EffectsAuthor, FlatNeverZoomsAndCutsDeadAirOut) {
    const auto plan = planOf({tap(2, top), tap(4), tap(9, bottom)}, MotionSpec::flat);
    for (const CameraKeyframe& keyframe : plan.keyframes) EXPECT_EQ(keyframe.scale, 1);
    EXPECT_TRUE(plan.heroBeats.empty());
    EXPECT_TRUE(plan.deadAir.retimes.empty());
    ASSERT_EQ(plan.deadAir.cuts.size(), 1u);
    EXPECT_NEAR(plan.deadAir.cuts[0].dropRange.startSec, 4.6, 1e-12);
    EXPECT_NEAR(plan.deadAir.cuts[0].dropRange.endSec, 8.4, 1e-12);
}

TEST(EffectsAuthor, ShortensGapsButNotThatAfterASwipe) {
    // The first gap is dead, that after the swipe is not, the third is too short, skipped beats count as
    // life.
    const auto plan = planOf({tap(1), swipe(5), tap(10), tap(12.6), tap(12.7), tap(15.4)});
    ASSERT_EQ(plan.deadAir.retimes.size(), 2u);
    EXPECT_NEAR(plan.deadAir.retimes[0].range.startSec, 1.6, 1e-12);
    EXPECT_NEAR(plan.deadAir.retimes[0].range.endSec, 4.4, 1e-12);
    EXPECT_EQ(plan.deadAir.retimes[0].speedFactor, 5);
    EXPECT_NEAR(plan.deadAir.retimes[1].range.startSec, 13.3, 1e-12);
    EXPECT_TRUE(plan.deadAir.cuts.empty());
}

TEST(EffectsAuthor, WritesADocumentWithThePlan) {
    const Timeline timeline{{1000, 2000, 59.94}, {tap(2, top)}};
    const EffectsSpec spec =
        EffectsAuthor::author(timeline, {}, MotionSpec::smoothGlide, ReelFormat::horizontal);
    EXPECT_EQ(spec.schemaVersion, 4);
    EXPECT_EQ(spec.output, (EffectsOutput{1920, 1080, 60, OutputConfig::Aspect::landscape}));
    EXPECT_EQ(spec.motion, MotionModel((MotionSpring{0.55, 0.85, 0.72})));
    EXPECT_EQ(spec.cameraTrack.size(), 2u);
    EXPECT_EQ(EffectsAuthor::author({{10, 10, 0.2}, {}}, {}, {}, ReelFormat::deviceNative).output.fps, 1);
}

// The ordinary differential equation of a spring, by small steps of a classical Runge-Kutta method: a second
// opinion on the closed forms.
double integrated(double from, double target, double responseSec, double damping, double forSec) {
    const double omega = 2 * M_PI / responseSec;
    double x = from, v = 0;
    const auto pull = [&](double at, double rate) {
        return -omega * omega * (at - target) - 2 * damping * omega * rate;
    };
    constexpr int steps = 20000;
    const double h = forSec / steps;
    for (int i = 0; i < steps; ++i) {
        const double k1 = v, l1 = pull(x, v), k2 = v + h / 2 * l1, l2 = pull(x + h / 2 * k1, v + h / 2 * l1);
        const double k3 = v + h / 2 * l2, l3 = pull(x + h / 2 * k2, v + h / 2 * l2);
        const double k4 = v + h * l3, l4 = pull(x + h * k3, v + h * l3);
        x += h / 6 * (k1 + 2 * k2 + 2 * k3 + k4);
        v += h / 6 * (l1 + 2 * l2 + 2 * l3 + l4);
    }
    return x;
}

TEST(CameraTrajectory, FollowsTheEquationOfItsSprings) {
    const MotionSpring spring{0.55, 0.85, 0.72};
    const CameraTrajectory path({key(0, 1, {0, 0}), key(0.5, 4, {100, -50})}, 60, spring);
    for (const double after : {0.1, 0.3, 0.6, 1.0}) {
        const CameraSample sample = path.sample(0.5 + after);
        EXPECT_NEAR(std::log(sample.scale), integrated(0, std::log(4), 0.55, 1, after), 1e-6);
        EXPECT_NEAR(sample.center.x, integrated(0, 100, 0.85, 0.72, after), 1e-4);
        EXPECT_NEAR(sample.center.y, integrated(0, -50, 0.85, 0.72, after), 1e-4);
    }
}

Track randomTrack(SeededRandom& dice) {
    Track track;
    for (auto n = 1 + dice.next() % 6; n > 0; --n)
        track.push_back(key(dice.next(0, 5), dice.next(0.5, 4), {dice.next(0, 1000), dice.next(0, 2000)}));
    return track;
}

TEST(CameraTrajectory, ZoomsWithoutASwingArrivesAndDoesNotDependOnTheFrameRate) {
    SeededRandom dice("path");
    for (int i = 0; i < 200; ++i) {
        const Track track = randomTrack(dice);
        const MotionSpring spring{dice.next(0.2, 1), dice.next(0.2, 1), dice.next(0, 1.2)};
        const CameraTrajectory path(track, 60, spring);
        const auto byTime = [](const CameraKeyframe& a, const CameraKeyframe& b) { return a.tSec < b.tSec; };
        const CameraKeyframe last = *std::max_element(track.begin(), track.end(), byTime);
        const auto [least, most] = std::minmax_element(track.begin(), track.end(),
            [](const CameraKeyframe& a, const CameraKeyframe& b) { return a.scale < b.scale; });
        for (const CameraSample& sample : path.frames()) {
            ASSERT_GE(sample.scale, least->scale * 0.98);
            ASSERT_LE(sample.scale, most->scale * 1.02);
        }
        EXPECT_NEAR(path.frames().front().scale, track.front().scale, 1e-9);
        EXPECT_EQ(path.frames().front().center, track.front().centerPx);
        EXPECT_NEAR(path.frames().back().scale, last.scale, 0.01 * last.scale);
        EXPECT_EQ(path.sample(1e6), path.frames().back());
        EXPECT_EQ(path.sample(-3), path.frames().front());
    }
    // Keyframes on whole frames of both rates give the same path.
    const Track even{key(0, 1, middle), key(0.5, 2, {10, 20}), key(1.5, 1, {900, 100})};
    const CameraTrajectory slow(even, 10, {}), fast(even, 50, {});
    for (double t = 0; t < 2.65; t += 0.1) {
        EXPECT_NEAR(slow.sample(t).scale, fast.sample(t).scale, 1e-9);
        EXPECT_NEAR(slow.sample(t).center.x, fast.sample(t).center.x, 1e-6);
    }
}

TEST(CameraTrajectory, HasTheFramesItNeeds) {
    EXPECT_TRUE(CameraTrajectory({}, 60, {}).frames().empty());
    EXPECT_EQ(CameraTrajectory({}, 60, {}).sample(1), CameraSample{});
    EXPECT_EQ(CameraTrajectory({key(3, 2, middle)}, 0, {}).frames().size(), 1u);
    // The tail is two periods of the slower spring; a swinging pan gets more of them.
    EXPECT_EQ(CameraTrajectory({key(3, 2, middle)}, 10, {0.5, 1, 1}).frames().size(), 51u);
    EXPECT_EQ(CameraTrajectory({key(3, 2, middle)}, 10, {0.5, 1, 0.5}).frames().size(), 61u);
    EXPECT_EQ(CameraTrajectory({key(3, 2, middle)}, 10, {0.5, 1, 0}).frames().size(), 67u);
    const CameraTrajectory zero({key(0, 0, middle), key(1, -3, middle)}, 30, {});
    for (const CameraSample& sample : zero.frames())
        ASSERT_TRUE(sample.scale > 0 && std::isfinite(sample.scale));
}

TEST(CameraTransform, EasesIntoEachKeyframeByItsOwnEasing) {
    Track track{key(1, 1, {0, 0}), key(3, 3, {100, 0}), key(3, 5, {0, 0})};
    track[1].easing = Easing::easeIn;
    EXPECT_EQ(CameraTransform::sample(0, {}), CameraSample{});
    EXPECT_EQ(CameraTransform::sample(-1, track), (CameraSample{1, {0, 0}}));
    EXPECT_EQ(CameraTransform::sample(2, track), (CameraSample{1.5, {25, 0}}));
    EXPECT_EQ(CameraTransform::sample(3, track), (CameraSample{5, {0, 0}}));
    track.pop_back();
    EXPECT_EQ(CameraTransform::sample(2, std::span(track).first(1)), (CameraSample{1, {0, 0}}));
}

TEST(CameraTransform, NeverShowsAnEdge) {
    SeededRandom dice("edge");
    for (int i = 0; i < 5000; ++i) {
        const PixelRect content{
            dice.next(-50, 50), dice.next(-50, 50), dice.next(1, 2000), dice.next(1, 2000)};
        const double width = dice.next(1, 3000), height = dice.next(1, 3000);
        const CameraSample camera{dice.next(-1, 4), {dice.next(-500, 3500), dice.next(-500, 3500)}};
        const auto placed = CameraTransform::frameTransform(width, height, content, camera);
        const PixelPoint from = placed.apply({0, 0}), to = placed.apply({width, height});
        ASSERT_LE(from.x, content.x);
        ASSERT_LE(from.y, content.y);
        ASSERT_GE(to.x, content.maxX() - 1e-9);
        ASSERT_GE(to.y, content.maxY() - 1e-9);
        // Where nothing holds it, the centre is in the middle.
        const PixelPoint focal = placed.apply(camera.center);
        const bool isFreeAcross = from.x < content.x - 1e-6 && to.x > content.maxX() + 1e-6;
        const bool isFreeDown = from.y < content.y - 1e-6 && to.y > content.maxY() + 1e-6;
        ASSERT_NEAR(isFreeAcross ? focal.x : content.center().x, content.center().x, 1e-6);
        ASSERT_NEAR(isFreeDown ? focal.y : content.center().y, content.center().y, 1e-6);
    }
}

}   // namespace
}   // namespace tavix
