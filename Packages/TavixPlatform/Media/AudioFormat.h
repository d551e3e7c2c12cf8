// How sound lies in memory: float samples, 1 is full scale, the channels of a frame beside each other.
#pragma once

namespace tavix::media {

struct AudioFormat {
    int sampleRate = 48000;   // frames per second
    int channels = 2;         // 1 to 8, in the usual order: left, right
    bool operator==(const AudioFormat&) const = default;
};

}   // namespace tavix::media
