// Pictures with alpha for encoders of eight bits and halved chroma. Inside the library only.
#pragma once

#include "TavixPlatform/Media/Libav.h"

namespace tavix::media {

// Of a frame in AV_PIX_FMT_YUVA444P10 with even sides, the same in AV_PIX_FMT_YUVA420P. Chroma lies on the
// left column, between the rows; pixels count in it as far as they are opaque, so that what is clear does not
// bleed into what is seen.
libav::Frame withHalvedChroma(const AVFrame& frame);

}   // namespace tavix::media
