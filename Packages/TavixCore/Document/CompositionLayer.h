// One layer of a scene: what it shows, when, where and how it moves.
#pragma once

#include "TavixCore/Animation/MarkRef.h"
#include "TavixCore/Animation/PropertyTrack.h"
#include "TavixCore/Document/LayerContent.h"
#include "TavixCore/Document/LayerEffect.h"
#include "TavixCore/Document/LayerOrigin.h"
#include "TavixCore/Support/Tables.h"
#include "TavixCore/Typography/KineticStyle.h"
#include "TavixCore/Values/PixelPoint.h"

#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace tavix {

struct CompositionLayer {
    std::optional<std::string> id;
    double fromSec = 0;                        // on the scene's clock
    std::optional<double> durationSec;         // absent: to the scene's end
    std::optional<MarkRef> fromMark, toMark;   // symbolic times: resolved into the two above, then cleared
    std::optional<double> fromBeat, toBeat;
    PixelPoint position{960, 540};
    double opacity = 1;
    std::optional<KineticPhase> enter, exit;
    std::vector<PropertyTrack> tracks;
    std::vector<LayerEffect> effects;
    LayerContent content;
    LayerOrigin origin;   // not written
    bool operator==(const CompositionLayer&) const = default;
};

const Fields<CompositionLayer>& fieldsOf(std::type_identity<CompositionLayer>);

}   // namespace tavix
