// Mixes a timeline to samples, block by block: for a file as fast as it goes, or live as a device asks.
#pragma once

#include "TavixPlatform/Media/AudioTimeline.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace tavix::media {

// Every frame of the mix is the same whatever the size of the blocks. Where the sum passes full scale it is
// led back by PeakLimiter; where it stays below, it is the plain sum. Memory does not depend on the length.
//
// Used by one thread at a time. Files are opened when their clip begins and closed when it ends.
class AudioMixer {
public:
    // A finished sentence about a sound that is not heard, or only in part; once for each file.
    using Complaint = std::function<void(const std::string& sentence)>;

    explicit AudioMixer(AudioTimeline timeline, Complaint complain = {});
    ~AudioMixer();
    AudioMixer(const AudioMixer&) = delete;
    AudioMixer& operator=(const AudioMixer&) = delete;

    // Fills whole frames and returns how many; fewer than there is room for only at the timeline's end.
    std::size_t read(std::span<float> interleaved);
    // The frame that is read next. Played from there on, a peak shortly before it has no effect.
    void seek(std::int64_t frame);
    std::int64_t position() const;

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
