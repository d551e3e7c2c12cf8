// The pictures of a reel for a preview, in the size of the stage.
#pragma once

#include "TavixLive/Stage/FrameSource.h"
#include "TavixPlatform/Media/AudioTimeline.h"
#include "TavixReelLive/Preview/TransitionCache.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

namespace tavix {

// What a player plays of a reel.
struct ReelPreview {
    FrameSourceRef pictures;
    std::optional<media::AudioTimeline> sound;   // of its cues
    // Turns the device in space from the next picture on; on the render executor.
    std::function<void(const Vector3& tiltDegrees)> turnDevice = {};
};

// Used on the render executor alone, once it has been made. Throws a `Failure` when there is nothing to show.
ReelPreview reelPreview(const EffectsSpec& spec, const ReelFootage& footage,
    const std::filesystem::path& assetRoot, imaging::Size room, const RenderLog& log,
    TransitionCache& transitions);

// Equal for documents whose reels have the same clock, and only for those: the trim, what is kept, its paces,
// the cards, and the frames a second.
std::string timingKey(const EffectsSpec& spec, const ReelFootage& footage);

}   // namespace tavix
