// Encoders of graphics cards and processors, by the names that FFmpeg has for them. What they write is not
// the same on every machine, nor promised to be the same twice on one.
#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tavix::media {

enum class MovieCodec;

struct HardwareEncoder {
    // Whose interface it is: Intel's and AMD's by VA-API, NVIDIA's NVENC, Intel's Quick Sync. A device of
    // VA-API takes pictures in memory of its own, the others take them from ours.
    enum class Family { vaapi, nvenc, qsv };

    std::string name;   // "h264_vaapi"
    MovieCodec codec;
    Family family = Family::nvenc;
    std::vector<std::pair<std::string, std::string>> options =
        {};   // of its own, before those that are set for all

    bool operator==(const HardwareEncoder&) const = default;
};

// Those that can be asked for; whether this machine has one shows when it is opened.
std::span<const HardwareEncoder> hardwareEncoders();

// The encoder that is used where none is asked for: "libx264".
const char* softwareEncoderName(MovieCodec codec);

}   // namespace tavix::media
