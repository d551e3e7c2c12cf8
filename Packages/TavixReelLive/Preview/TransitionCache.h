// The pictures of a recording that transitions start from and end at, kept between previews: to find them
// takes as long as to decode the recording up to them.
#pragma once

#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/Composition2D/RecordingPictures.h"

#include <optional>
#include <utility>
#include <vector>

namespace tavix {

// Used on the render executor alone.
class TransitionCache {
public:
    // Those of the document, with pictures from before where its recording, its trim and all times are the
    // same. Throws as RecordingPictures::transitionInputs.
    std::vector<TransitionInput> inputs(
        const EffectsSpec& spec, const ReelFootage& footage, const RenderLog& log);

private:
    struct Key {
        std::optional<FileIdentity> recording;
        double trimStartSec = 0;
        std::vector<std::pair<double, double>> timesSec;
        bool operator==(const Key&) const = default;
    };
    Key key_;
    std::vector<TransitionInput> inputs_;
};

}   // namespace tavix
