#include "TavixReelLive/Preview/TransitionCache.h"

namespace tavix {

std::vector<TransitionInput> TransitionCache::inputs(
    const EffectsSpec& spec, const ReelFootage& footage, const RenderLog& log) {
    Key key{FileIdentity::of(footage.video), footage.trim().startSec, {}};
    for (const ScreenTransition& transition : spec.transitions())
        key.timesSec.emplace_back(transition.atSec, transition.revealSec);
    if (!key.recording || !(key == key_)) {
        inputs_ = RecordingPictures::transitionInputs(spec, footage, log);
        key_ = std::move(key);
    }
    for (std::size_t i = 0; i < inputs_.size(); ++i) inputs_[i].transition = spec.transitions()[i];
    return inputs_;
}

}   // namespace tavix
