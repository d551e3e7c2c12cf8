#include "TavixCore/Tests/FrozenDocument.h"
#include "TavixCore/Timeline/Timeline.h"

namespace tavix {
namespace {

TEST(Timeline, TheFrozenSidecarStays) {
    Timeline sidecar{.video = {.widthPx = 1206, .heightPx = 2622, .fps = 59.94}};
    sidecar.events = {
        {.index = 0, .type = "tap", .tSec = 0.75}, {.index = 1,
                                                       .type = "scroll",
                                                       .tSec = 2.75,
                                                       .regionPx = PixelRect{24, 300.25, 480.5, 96},
                                                       .label = "Orders",
                                                       .actionSec = 3.125,
                                                       .endSec = 4.5}};
    frozen::expectHolds("recording.timeline.json", sidecar);
}

}   // namespace
}   // namespace tavix
