// What a preview takes its pictures from.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <memory>

namespace tavix {

// In the size of the stage, opaque, in BGRA. Shared by who shows it; the memory serves a later picture once
// nobody does.
struct StagePicture {
    imaging::BitmapRef pixels;
    double atSec = 0;   // whose frame it is
};

// Devices in space are drawn with every other pixel where a full picture would come too late; while someone
// drags through the time, their screens may lag behind, too.
enum class FrameQuality { full, rough, scrub };

// Used on the render executor alone, once it has been made.
class FrameSource {
public:
    struct Drawn {
        imaging::BitmapRef pixels;
        double buildSec = 0, paintSec = 0;   // what it took
        bool isStored = false;               // it was in memory
        bool isKept = false;                 // and now it is
        bool isRough = false;                // a better one could be drawn
    };
    enum class Filled { wasThere, drawn, hasNoRoom, refused };   // refused: it is none that can be kept

    virtual ~FrameSource() = default;
    // Of a time in the film. Never fails: what cannot be drawn is left out, and named in the log.
    virtual Drawn draw(double atSec, FrameQuality quality) = 0;
    // Whether `draw` would find the frame in memory, at full quality.
    virtual bool isStored(double atSec) const = 0;
    // Sets up a part of what frames after that time take; false when nothing is left to set up.
    virtual bool prepare(double /*nearSec*/) { return false; }
    // Nobody has done anything for a while: gives up what is kept only so that another edit comes cheaper.
    virtual void rest() {}
    // Whether one more frame fits into memory without another one leaving it.
    virtual bool hasRoom() const = 0;

    // These are what they are from the start, and may be asked for on any thread.
    virtual double totalSec() const = 0;
    virtual bool hasDevicesInSpace() const = 0;
};

using FrameSourceRef = std::shared_ptr<FrameSource>;

}   // namespace tavix
