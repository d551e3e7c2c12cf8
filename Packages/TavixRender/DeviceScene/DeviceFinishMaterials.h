// The body's materials in a finish.
#pragma once

#include "TavixPlatform/Scene3D/Material.h"
#include "TavixRender/DeviceScene/DeviceStudio.h"

namespace tavix::DeviceStudio {

// Components of a colour, sRGB-encoded unless said otherwise.
struct RGB {
    double r = 0, g = 0, b = 0;
    bool isLinear = false;

    imaging::Color color() const;   // encoded, opaque
};

struct MaterialPreset {
    RGB baseColor;
    float metallic = 0, roughness = 0, specular = 0, clearcoat = 0, clearcoatRoughness = 0;

    scene3d::PhysicallyBased material(std::string name) const;
};

class DeviceFinishMaterials {
public:
    explicit DeviceFinishMaterials(DeviceFinish finish);

    // What a material of that role becomes; of roles that the finish does not colour, the material as loaded.
    scene3d::Material material(MaterialRole role, const scene3d::Material& loaded) const;

private:
    MaterialPreset titanium_, backGlass_, logo_, cameraRing_, lens_;
};

}   // namespace tavix::DeviceStudio
