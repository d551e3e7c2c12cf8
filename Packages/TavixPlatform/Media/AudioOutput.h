// Where live sound goes: a device of the machine, or nowhere.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>

namespace tavix::media {

// Reached from one thread; it asks for sound on another of its own, one block after another.
class AudioOutput {
public:
    // Fills whole frames, interleaved, and returns how many; fewer than there is room for only at the end.
    using Fill = std::function<std::size_t(std::span<float> interleaved)>;

    virtual ~AudioOutput() = default;
    // Begins to ask for sound and to play it.
    virtual void start(const AudioFormat& format, Fill fill) = 0;
    // At once silent. A block that is being filled is thrown away, whenever it is done.
    virtual void stop() = 0;
    // Since the start: how many frames have been heard, in frames of the format; parts of one count.
    virtual double heardFrames() const = 0;
};

}   // namespace tavix::media
