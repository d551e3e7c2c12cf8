// Where the packets of an encoder go. Inside the library only.
#pragma once

#include "TavixPlatform/Media/Libav.h"

namespace tavix::media {

class PacketSink {
public:
    virtual ~PacketSink() = default;
    // Times are in the encoder's time base.
    virtual void take(AVPacket& packet) = 0;
    virtual void finish() = 0;
};

}   // namespace tavix::media
