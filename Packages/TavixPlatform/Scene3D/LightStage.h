// Lights, shadows and surfaces of a frame, made ready for the shading kernels. Inside the library only.
#pragma once

#include "TavixPlatform/Scene3D/DrawList.h"
#include "TavixPlatform/Scene3D/Geometry.h"
#include "TavixPlatform/Scene3D/Lighting.h"

#include <memory>
#include <vector>

namespace tavix::scene3d {

Surface surfaceOf(const PhysicallyBased& material);

// Keeps its memory from frame to frame.
class LightStage {
public:
    // Draws the shadow maps, too. The result is in use until the next call.
    const Illumination& prepare(const DrawList& list, const View& camera,
        const std::optional<EnvironmentLight>& environment, const SceneKernels& kernels,
        imaging::ScratchLoop& loop);

private:
    void drawShadow(
        ShadowMap& map, const DrawList& list, const SceneKernels& kernels, imaging::ScratchLoop& loop);

    Illumination illumination_;
    ScreenGeometry geometry_;
    std::vector<std::unique_ptr<ShadowMap>> shadows_;
};

}   // namespace tavix::scene3d
