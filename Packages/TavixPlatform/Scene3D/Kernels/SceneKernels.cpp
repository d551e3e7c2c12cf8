#include "TavixPlatform/Scene3D/Kernels/SceneKernels.h"

namespace tavix::scene3d {

SceneKernels bestSceneKernels() {
    SceneKernels table{};
    fillVertexKernels(table);
    fillVisibilityKernels(table);
    fillRequestKernels(table);
    fillLitKernels(table);
    fillTextureKernels(table);
    fillResolveKernels(table);
    return table;
}

}   // namespace tavix::scene3d
