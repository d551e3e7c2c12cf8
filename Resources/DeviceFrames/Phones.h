// What each phone of the device catalog is built of, as data. Lengths are pixels of its own screen.
#pragma once

#include "DeviceFrames/Vector.h"

#include "TavixCore/Device/DeviceCatalog.h"

#include <span>
#include <string>
#include <vector>

namespace tavix::deviceframes {

// A key on a side of the body. Places are fractions of the body's height from its top.
struct Key {
    bool isOnTheLeft;
    float middleFraction, lengthFraction;
};

// How the rim curves from the glass to the side, as it is seen from the front.
struct Rim {
    float widthPx;
    float chamferPx;       // the bright bevel next to the glass
    float shoulderShare;   // of the width, from where it rolls over the edge
};

struct Build {
    float bezelPx;   // the black glass round the screen
    Rim rim;
    float islandTopPx;   // from the screen's top to the camera's island
    std::span<const Key> keys;
    float flushKeyMiddleFraction;   // of the one on the right that does not stand out
};

enum class Grain { none, blasted, brushed };

struct Metal {
    Vector tint;       // what it reflects, linear
    float roughness;   // 0 is a mirror
    float coat;        // share of the room that its clear skin mirrors uncoloured
    Grain grain;
    Vector band;   // the inlays of the antennas, linear
};

struct Phone {
    const BundledDevice* device;
    Build build;
    Metal metal;
};

// Of a picture of the catalog; nothing for another name.
const Phone* phoneNamed(const std::string& resourceName);
const std::vector<Phone>& phones();   // in the order of the catalog

}   // namespace tavix::deviceframes
