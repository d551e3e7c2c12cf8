// Photographs a phone from the front: its rim, glass and keys in the light of the studio, its screen cut out.
#pragma once

#include "DeviceFrames/Phones.h"

#include "TavixPlatform/Imaging/Bitmap.h"

namespace tavix::deviceframes {

imaging::Bitmap paint(const Phone& phone);

}   // namespace tavix::deviceframes
