// The sidecar of a recording from the two things that tell of it: the driver's report, on the device's clock,
// and the marks in the picture, on the video's.
#pragma once

#include "TavixReel/Recording/DoneReport.h"
#include "TavixReel/Recording/PixelMarkAlignment.h"
#include "TavixReel/Recording/VideoProbe.h"

#include <optional>

namespace tavix::Sidecar {

struct Made {
    PixelMarkAlignment::Result aligned;   // the sidecar itself, and how many marks were found
    double rate = 1;                      // picture seconds per device second
};

// By the flashes first, then by the marks. Nothing for a recording without a flash at the go, since nothing
// ties its clock to the device's then.
std::optional<Made> of(const DoneReport& report, const VideoProbe& probe);

}   // namespace tavix::Sidecar
