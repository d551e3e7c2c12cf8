// The sound of a film, mixed block by block from any moment on, as an output asks for it.
#pragma once

#include "TavixPlatform/Media/AudioMixer.h"
#include "TavixPlatform/Media/AudioOutput.h"
#include "TavixRender/Assets/RenderLog.h"

#include <memory>

namespace tavix {

// Belongs to the main executor; its files are opened and read where the output asks for sound.
class SoundFeed {
public:
    SoundFeed(media::AudioTimeline timeline, RenderLog log);

    const media::AudioFormat& format() const;
    // The mix from that frame on. One taken before is used no more.
    media::AudioOutput::Fill from(std::int64_t frame) const;

private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

}   // namespace tavix
