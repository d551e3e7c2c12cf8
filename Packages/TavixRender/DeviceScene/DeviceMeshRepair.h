// Repairs of the model's meshes. Lengths are in a mesh's own coordinates: metres.
#pragma once

#include "TavixRender/DeviceScene/DeviceStudio.h"

#include <optional>

namespace tavix::DeviceStudio {

// Takes out the loose slivers at the bottom centre: triangles with all corners below y 0.006 and nearer than
// 0.015 to x 0. Gives their number; without one the mesh stays the same object.
int removeBottomCenterArtifact(scene3d::Entity& entity);

// The mesh whole and without its rear triangles, those whose mean z is above 0.003. Nothing when it has none.
// The entity's own mesh stays.
std::optional<PreparedModel::RearCameraMesh> rearCameraMeshVariant(const scene3d::EntityRef& entity);

}   // namespace tavix::DeviceStudio
