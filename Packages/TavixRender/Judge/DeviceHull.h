// The outermost points of the phone that stands in space: what its outline is made of, however it is turned.
#pragma once

#include "TavixPlatform/Scene3D/Vectors.h"

#include <vector>

namespace tavix::DeviceHull {

// As the stage stands the model before it is turned: its screen to the viewer, its middle at the origin, one
// unit tall. `back` has the camera, which shows from behind alone. Empty when there is no model.
struct Points {
    std::vector<scene3d::Vec3> front, back;
};

// Read once per process.
const Points& ofTheModel();

}   // namespace tavix::DeviceHull
