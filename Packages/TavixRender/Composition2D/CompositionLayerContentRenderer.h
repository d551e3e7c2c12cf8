// What draws the content of one layer, in canvas coordinates; what all layers share (effects, motion,
// opacity) is done afterwards by `ResolvedCompositionLayer::finish`.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

#include <optional>

namespace tavix {

// Used by one thread at a time.
class CompositionLayerContentRenderer {
public:
    virtual ~CompositionLayerContentRenderer() = default;

    // Seconds since the layer's start; nothing when the layer shows nothing at that time.
    virtual std::optional<imaging::Image> contentImage(double localSec) = 0;
    // Sets up what its first picture would take long for; false where all of that stands.
    virtual bool prepare() { return false; }
    // The layer is out of sight, perhaps for good: gives up what takes memory and can be had again.
    virtual void rest() {}
    // The next build of the document goes on with this layer.
    virtual void takenOver() {}
    // True for a device in space: its picture is a pass of its own, dearer than all the rest.
    virtual bool hasDevicesInSpace() const { return false; }
    // While it is on, the layer may show what is quick to have instead of what is right.
    virtual void setScrubQuality(bool) {}
    // The same of devices in space, whose passes are dear.
    virtual void setRough(bool) {}
};

}   // namespace tavix
