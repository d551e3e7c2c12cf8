#include "TavixCore/Device/DeviceDepthTrajectory.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"
#include "TavixRender/DeviceScene/DeviceStage.h"
#include "TavixRender/Judge/ContentShape.h"
#include "TavixRender/Judge/DeviceHull.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix {
namespace {

using imaging::Point;
using scene3d::Vec3;

class NoDevice final : public ContentGeometry {
public:
    ContentShape at(double) const override { return {}; }
};

class SpaceDevice final : public ContentGeometry {
public:
    SpaceDevice(const DeviceContent& device, const ShapeSetting& setting)
        : canvas_(setting.canvas), depths_(device.scene3D->depthTrack),
          lens_(device.scene3D->cameraDistance, device.scene3D->fovDegrees),
          modelHeight_(lens_.modelHeight(deviceRectsOf(device, setting).frame.height / canvas_.height)),
          motion_(device.scene3D->asDeviceScene(),
              device.placement.value_or(placementOf(device.scene3D->asDeviceScene())),
              {canvas_.width, canvas_.height, setting.framesPerSec, true, false, {}}) {
        std::ranges::stable_sort(depths_, {}, &DeviceScalarKeyframe::tSec);
    }

    ContentShape at(double localSec) const override {
        const DeviceStance stance{motion_.posed(localSec), motion_.placement(localSec),
            DeviceDepthTrajectory::sample(depths_, localSec)};
        const DeviceHull::Points& hull = DeviceHull::ofTheModel();
        const std::vector<Vec3>& points = DeviceLens::showsBack(stance) ? hull.back : hull.front;
        const DeviceLens::Standing standing = lens_.standing(stance);
        const double camera = lens_.cameraPosition(stance);
        std::vector<Point> seen;
        seen.reserve(points.size());
        for (const Vec3& point : points)
            if (const auto place = projected(standing(point * float(modelHeight_)), camera))
                seen.push_back(*place);
        ContentShape shape;
        shape.parts = {Outline::around(std::move(seen))};
        if (shape.parts.front().isEmpty()) shape.parts.clear();
        return shape;
    }

private:
    // Nothing for a point beside or behind the camera.
    std::optional<Point> projected(const Vec3& point, double camera) const {
        const double ahead = camera - double(point.z);
        if (!(ahead > 1e-3)) return std::nullopt;
        const double pixelsPerUnit = canvas_.height / (lens_.viewHeight() / lens_.distance() * ahead);
        return Point{canvas_.width / 2 + double(point.x) * pixelsPerUnit,
            canvas_.height / 2 + double(point.y) * pixelsPerUnit};
    }

    imaging::Rect canvas_;
    std::vector<DeviceScalarKeyframe> depths_;
    DeviceLens lens_;
    double modelHeight_;
    DeviceSceneMotion motion_;
};

}   // namespace

std::unique_ptr<ContentGeometry> spaceDeviceGeometry(
    const DeviceContent& device, const ShapeSetting& setting) {
    // Without the model the device is flat, and without a screen it is not drawn.
    if (DeviceHull::ofTheModel().front.empty()) return nullptr;
    if (!screenOf(device.screen, setting.assets).isThere) return std::make_unique<NoDevice>();
    return std::make_unique<SpaceDevice>(device, setting);
}

}   // namespace tavix
