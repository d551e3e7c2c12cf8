// The look of the device in space: which mesh is what, by the names of its materials; the body's materials in
// each finish; two repairs of the model's geometry; the lights and the surroundings.
#pragma once

#include "TavixCore/Device/DeviceFinish.h"
#include "TavixCore/Values/Vector3.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Scene3D/Entity.h"

#include <map>
#include <string_view>
#include <vector>

namespace tavix {

struct DeviceScene;

namespace DeviceStudio {

enum class MaterialRole {
    screen,
    screenGlass,
    titanium,
    backGlass,
    darkTrim,
    logo,
    cameraRing,
    lens,
    hiddenArtifact,
    preserve,
};

// By a material's name in any case. The first rule that fits decides, so "screen glass" is `screen`.
MaterialRole role(std::string_view name);

// The model sorted by what its meshes are. Entities are those of the prepared tree.
struct PreparedModel {
    // A mesh that holds the bezel at the front and camera parts at the back.
    struct RearCameraMesh {
        scene3d::EntityRef entity;
        scene3d::Model visible;   // whole
        scene3d::Model hidden;    // without its camera parts
        int removedTriangles = 0;
    };

    scene3d::EntityRef screen;                            // empty when the model has none
    std::vector<scene3d::EntityRef> body;                 // all that stays visible and is not the screen
    std::vector<scene3d::EntityRef> screenOccluders;      // of the body: drawn together with the screen
    std::vector<scene3d::EntityRef> rearCameraHardware;   // of the body: shown only from behind
    std::vector<RearCameraMesh> rearCameraMeshes;
    std::map<MaterialRole, int> roleCounts;   // materials; a role without one is absent
    int removedArtifactTriangles = 0;
};

// Changes the tree in place: sheets over the screen and artifacts are disabled, the body takes the finish.
PreparedModel prepare(const scene3d::EntityRef& model, DeviceFinish finish);

// Three entities of the scene that carry its lights.
struct Lights {
    scene3d::EntityRef key, fill, rim;
};

// Sets lights and transforms by the scene's intensity and key direction, and hangs them under the parent:
// they travel with it while the device turns in their light. Surroundings are the scene's own.
void installLighting(const Lights& lights, scene3d::Entity& lightParent, const DeviceScene& scene);

// In the parent's space; turned by `degrees.x` about x and `degrees.y` about y.
scene3d::Vec3 keyPosition(const Vector3& degrees);

// The studio all around as an equirectangular picture of 512 x 256: a pale floor, two soft boxes and a strip
// at the sides, one above.
imaging::Image environmentImage();

// The same as light: some tenths of a second of work.
scene3d::EnvironmentRef environment();

// The same, as it was worked out when the product was built; worked out here where that file is missing or
// damaged. Once per process.
scene3d::EnvironmentLight environmentLight();
inline constexpr std::string_view environmentFile = "lights/studio.light";   // below the resource folders

}   // namespace DeviceStudio

}   // namespace tavix
