// What a hardware encoder is given: its settings, and frames as it reads them. Inside the library only.
#pragma once

#include "TavixPlatform/Media/HardwareEncoder.h"
#include "TavixPlatform/Media/Libav.h"
#include "TavixPlatform/Media/MovieWriter.h"

namespace tavix::media::HardwareFrames {

// Everything about an encoder that is not open yet but what all encoders share: size, times and colours.
// Opens the device where the encoder works on one of its own. Throws MediaError with `failure` and the reason
// where there is none.
void set(const MovieSettings& settings, AVCodecContext& encoder, libav::Options& options,
    const std::string& failure);

// A copy of a frame of three planes, 4:2:0 of 8 bits, as the encoder reads it: luma and interleaved chroma
// (NV12), in memory or on the encoder's device. Throws MediaError, std::bad_alloc.
libav::Frame copied(const AVFrame& planes, const AVCodecContext& encoder, const std::string& failure);

}   // namespace tavix::media::HardwareFrames
