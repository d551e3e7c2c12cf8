// How the named motions come to rest, as the eye sees it: by what changes on the canvas from frame to frame.
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixRender/Composition2D/LayerMotion.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace tavix {
namespace {

constexpr double framesPerSec = 60, heightPx = 1920, widthPx = 1080;
constexpr double armPx = heightPx / 4;   // from the middle of a device to its rim

// All that moves a device, each as a way of its rim in pixels.
using Ways = std::array<double, 15>;

class NamedMotion {
public:
    explicit NamedMotion(const DeviceMotion& motion)
        : motion_(motion), inSpace_(motion.scene3D.asDeviceScene(), motion.placement,
                               {widthPx, heightPx, framesPerSec, motion.uses3D, false, {}}) {
        layer_.enter = motion.enter;
        layer_.tracks = motion.tracks;
        layer_.content = DeviceContent{};
    }

    Ways at(double sec) const {
        const auto turn = [](double degrees) { return degrees * 3.14159265358979 / 180 * armPx; };
        const LayerMotion flat = LayerMotion::at(layer_, sec, INFINITY);
        const auto placed = inSpace_.placement(sec).value_or(DeviceSceneMotion::Placement{});
        Vector3 pose = inSpace_.posed(sec);
        double depth = DeviceDepthTrajectory::sample(motion_.scene3D.depthTrack, sec).value_or(0.5);
        if (!motion_.uses3D) pose = {}, depth = 0.5;
        return {placed.offset.x * heightPx, placed.offset.y * heightPx, std::log(placed.scale) * armPx,
            turn(pose.x), turn(pose.y), turn(pose.z), depth * armPx, flat.dx * heightPx, flat.dy * heightPx,
            std::log(flat.scale) * armPx, flat.scaleX * armPx, flat.scaleY * armPx, turn(flat.rotationDeg),
            turn(flat.skewXDeg), turn(flat.skewYDeg)};
    }

private:
    DeviceMotion motion_;
    DeviceSceneMotion inSpace_;
    CompositionLayer layer_;
};

// The largest part of a way's highest speed that is lost from one frame to the next when it comes to rest.
// Less than two pixels a frame are a stop that nobody sees.
double hardestStop(const NamedMotion& motion, double lengthSec) {
    constexpr double unseenPx = 2, atRest = 0.02, tailSec = 2;
    double hardest = 0;
    for (std::size_t way = 0; way < Ways{}.size(); ++way) {
        std::vector<double> speed;
        for (int i = 1; i <= int((lengthSec + tailSec) * framesPerSec); ++i)
            speed.push_back(
                std::abs(motion.at(i / framesPerSec)[way] - motion.at((i - 1) / framesPerSec)[way]));
        const double fastest = *std::max_element(speed.begin(), speed.end());
        for (std::size_t i = 0; i + 1 < speed.size(); ++i)
            if (speed[i] > unseenPx && speed[i + 1] < atRest * speed[i])
                hardest = std::max(hardest, speed[i] / fastest);
    }
    return hardest;
}

TEST(NamedMotions, SlowDownBeforeTheyStop) {
    ASSERT_EQ(DeviceMotionPreset::knownRawValues().size(), 111u);
    for (const std::string_view name : DeviceMotionPreset::knownRawValues()) {
        for (const auto direction :
            {DeviceMotionParams::Direction::forward, DeviceMotionParams::Direction::reversed}) {
            DeviceMotionParams params;
            params.direction = direction;
            const DeviceMotion motion =
                DeviceMotionExpander::expand(*DeviceMotionPreset::fromRawValue(name), params);
            EXPECT_LE(hardestStop(NamedMotion(motion), motion.sceneDurationSec), 0.15) << name;
        }
    }
}

}   // namespace
}   // namespace tavix
