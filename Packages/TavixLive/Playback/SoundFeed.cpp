#include "TavixLive/Playback/SoundFeed.h"

#include <mutex>
#include <optional>
#include <utility>

namespace tavix {

// Two outputs may hold it for a moment, one of which has been stopped.
struct SoundFeed::Shared {
    media::AudioTimeline timeline;
    RenderLog log;
    std::mutex mutex;
    std::optional<media::AudioMixer> mixer;
};

SoundFeed::SoundFeed(media::AudioTimeline timeline, RenderLog log) : shared_(std::make_shared<Shared>()) {
    shared_->timeline = std::move(timeline);
    shared_->log = std::move(log);
}

const media::AudioFormat& SoundFeed::format() const { return shared_->timeline.format; }

media::AudioOutput::Fill SoundFeed::from(std::int64_t frame) const {
    return [shared = shared_, frame, isPlaced = false](std::span<float> block) mutable {
        const std::lock_guard lock(shared->mutex);
        if (!shared->mixer)
            shared->mixer.emplace(shared->timeline, [log = shared->log](const std::string& sentence) {
                tell(log, Finding::warning(RenderCode::soundDamaged, sentence));
            });
        if (!std::exchange(isPlaced, true)) shared->mixer->seek(frame);
        return shared->mixer->read(block);
    };
}

}   // namespace tavix
