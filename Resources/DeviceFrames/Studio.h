// The room in which the phones are photographed: soft boxes round a dark stage.
#pragma once

#include "DeviceFrames/Vector.h"

namespace tavix::deviceframes {

// x points right, y up and z towards the camera. Places are in half heights of the phone from its middle.
struct StudioView {
    Vector place;
    Vector direction;   // of length 1, from that place into the room
};

// The light that comes from there, as a surface of that roughness sees it: 0 is a mirror, 1 is chalk.
float lightFrom(const StudioView& view, float roughness);

}   // namespace tavix::deviceframes
