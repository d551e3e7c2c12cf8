// The camera of a reel, however its document has it move.
#pragma once

#include "TavixReel/Camera/CameraTrajectory.h"

#include <optional>
#include <vector>

namespace tavix {

struct EffectsSpec;

// Immutable once made, so that any thread may ask.
class ReelCamera {
public:
    explicit ReelCamera(const EffectsSpec& spec);

    CameraSample sample(double preCutSec) const;

private:
    std::vector<CameraKeyframe> track_;            // of a camera that follows its keyframes
    std::optional<CameraTrajectory> trajectory_;   // of one that springs move
};

}   // namespace tavix
