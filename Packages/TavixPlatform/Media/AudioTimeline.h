// What is heard when: tracks of pieces of sound files, each track with one line of volume. A plain value; it
// is mixed by AudioMixer.
#pragma once

#include "TavixPlatform/Media/AudioFormat.h"
#include "TavixPlatform/Media/VolumeLine.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace tavix::media {

// Times are in frames: of the timeline, and of the file on its own clock at the timeline's rate. What the
// file does not have is silent.
struct AudioClip {
    std::filesystem::path file;
    std::int64_t fileStart = 0;
    std::int64_t at = 0;
    std::int64_t frames = 0;
};

struct AudioTrack {
    std::vector<AudioClip> clips;   // in the order of their time, none before the end of the one before
    VolumeLine volume;
};

struct AudioTimeline {
    AudioFormat format;
    std::vector<AudioTrack> tracks;
    std::int64_t frames = 0;   // how long it is; clips that reach further are cut

    std::int64_t frameAt(double sec) const {
        constexpr double mostSec = 1e9;   // longer than anything is heard, and within 64 bits
        return std::llround(std::clamp(sec, -mostSec, mostSec) * format.sampleRate);
    }
};

}   // namespace tavix::media
