// The space in which a device is photographed: the model, the rig that carries it through the picture,
// lights, camera and the studio around them. It knows how things stand; drawing them is somebody else's work.
#pragma once

#include "TavixCore/Device/DeviceFinish.h"
#include "TavixPlatform/Scene3D/Entity.h"
#include "TavixRender/DeviceScene/DeviceSceneMotion.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <optional>
#include <utility>
#include <vector>

namespace tavix {

// How the device stands in one frame.
struct DeviceStance {
    Vector3 poseDegrees;   // pitch, yaw, roll
    std::optional<DeviceSceneMotion::Placement> placement;
    std::optional<double> depth;   // 0.5 is the usual distance, more is nearer
    bool operator==(const DeviceStance&) const = default;
};

// Where a device and its camera stand, in numbers: what the stage is set up by, and what tells where a device
// is seen without drawing it.
class DeviceLens {
public:
    DeviceLens() = default;
    DeviceLens(double cameraDistance, double fovDegrees);

    double distance() const { return distance_; }
    double viewHeight() const { return viewHeight_; }   // of what the camera sees at its distance
    // Of a model that is as tall as that part of the view at its distance.
    double modelHeight(double heightFraction) const;
    double cameraPosition(const DeviceStance& stance) const;   // on the z axis, looking along -z

    // The rig carries the phone, which turns in it.
    scene3d::Transform rig(const DeviceStance& stance) const;
    static scene3d::Rotation turn(const DeviceStance& stance);
    // Takes points of the phone to where they are in space, as it stands.
    class Standing {
    public:
        scene3d::Vec3 operator()(const scene3d::Vec3& point) const { return rig_.apply(turn_.apply(point)); }

    private:
        friend class DeviceLens;
        scene3d::Affine3 turn_, rig_;
    };
    Standing standing(const DeviceStance& stance) const;
    static bool showsBack(const DeviceStance& stance);

private:
    double distance_ = 1, viewHeight_ = 1;
};

// Used by one thread at a time.
class DeviceStage {
public:
    // Takes the tree of a model and makes it a part of the stage. Nothing when no mesh of it is a screen.
    // Throws `Failure` when the studio cannot be made.
    static std::optional<DeviceStage> build(scene3d::EntityRef model, DeviceFinish finish);

    // Camera and lights as the scene tells, and the model as tall as `heightFraction` of the view at its
    // distance; nothing: as tall as one unit of the stage.
    void setUp(const DeviceScene& scene, std::optional<double> heightFraction);
    void stand(const DeviceStance& stance);
    // How much larger the middle of the phone looks there than at the camera's distance.
    double magnification(const DeviceStance& stance) const;

    // What the two passes of a frame see. The lit body comes with everything on it, and a dark screen; the
    // screen comes alone, cut by the bezel in front of it as the body would cut it.
    const scene3d::Scene& bodyScene();
    const scene3d::Scene& screenScene();

    // Of the screen, from now on.
    void showOnScreen(scene3d::TextureRef picture) { screenTexture_ = std::move(picture); }

private:
    // A mesh in front of the screen, with what it looks like in the body pass.
    struct Occluder {
        scene3d::EntityRef entity;
        std::vector<scene3d::Material> materials;
    };

    DeviceStage() = default;
    void hangUp();
    void showRearCamera(bool isVisible);

    scene3d::Scene scene_;
    scene3d::EntityRef rig_, phone_, model_, camera_;
    DeviceStudio::Lights lights_;
    DeviceStudio::PreparedModel prepared_;
    std::vector<Occluder> occluders_;
    scene3d::TextureRef screenTexture_;
    double modelUnit_ = 1;   // 1 / height of the model as it came
    scene3d::Vec3 modelCenter_;
    DeviceLens lens_;
    bool showsItsBack_ = false;
};

}   // namespace tavix
