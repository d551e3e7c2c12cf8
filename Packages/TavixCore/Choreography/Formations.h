// The nine formations: for each, the layer of one device by its index.
#pragma once

#include "TavixCore/Choreography/Formation.h"
#include "TavixCore/Device/DeviceChoreographyRef.h"

namespace tavix::Formations {

struct Arrangement {
    CompositionLayer (*layer)(const Formation& formation, int k);
    int extraLayers = 0;                                           // beyond one a device
    double (*durationSec)(const Formation& formation) = nullptr;   // where it is not the formation's own
};

const Arrangement& arrangement(DeviceChoreographyPreset preset);

CompositionLayer fanDeck(const Formation& formation, int k);
CompositionLayer uiBurst(const Formation& formation, int k);   // the phone first, then its cards
CompositionLayer orbitCarousel(const Formation& formation, int k);
CompositionLayer colorwayDomino(const Formation& formation, int k);
CompositionLayer ecosystemHandoff(const Formation& formation, int k);
CompositionLayer infiniteTunnel(const Formation& formation, int k);
CompositionLayer screenCascade(const Formation& formation, int k);
CompositionLayer splitFocus(const Formation& formation, int k);
CompositionLayer depthWave(const Formation& formation, int k);

}   // namespace tavix::Formations
