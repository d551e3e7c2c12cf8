#include "TavixCore/Support/Unit.h"

namespace tavix {

namespace {

struct Told {
    std::string_view symbol;
    double step;
};

Told told(Unit unit) {
    switch (unit) {
    case Unit::none: return {"", 0.1};
    case Unit::seconds: return {"s", 0.05};
    case Unit::milliseconds: return {"ms", 50};
    case Unit::beats: return {"beats", 0.5};
    case Unit::beatsPerMinute: return {"beats/min", 1};
    case Unit::hertz: return {"Hz", 0.1};
    case Unit::pixels: return {"px", 1};
    case Unit::degrees: return {"°", 1};
    case Unit::canvasHeights: return {"of the canvas height", 0.005};
    case Unit::canvasWidths: return {"of the canvas width", 0.005};
    case Unit::canvasSides: return {"of the canvas", 0.005};
    case Unit::shorterSides: return {"of its shorter side", 0.01};
    case Unit::ownSides: return {"of its own size", 0.01};
    case Unit::ems: return {"em", 0.01};
    case Unit::fraction: return {"share", 0.05};
    case Unit::times: return {"times", 0.05};
    case Unit::decibels: return {"dB", 0.5};
    }
    return {"", 0.1};
}

}   // namespace

std::string_view symbolOf(Unit unit) { return told(unit).symbol; }
double stepOf(Unit unit) { return told(unit).step; }

}   // namespace tavix
