// Decoded frames of any pixel format to premultiplied pixels. Inside the library only.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Media/Libav.h"

#include <memory>

namespace tavix::media {

// How a track's frames are to be seen, which the track tells and not each frame.
struct FrameSetting {
    int orientation = 1;   // as EXIF numbers it
    AVRational pixelAspect{1, 1};
    int halvings =
        0;   // of both sides, which they divide, by means of what each pixel covers; the extent stays
    bool halvesPlanes = false;   // the first time before colours are made, with chroma as it lies
};
FrameSetting frameSettingOf(AVFormatContext& format, AVStream& track);
// The coarser direction of pixels that are not square is stretched, to a whole number of them.
imaging::Size shownSizeOf(imaging::Size coded, const FrameSetting& setting);

// Throws MediaError when frames of that size, in pixels, are not shown.
void refuseFrameSize(int width, int height);
bool canConvert(const AVFrame& frame);

// The picture of a frame that can be converted, upright and with square pixels.
imaging::Image imageOf(
    const AVFrame& frame, const FrameSetting& setting, const std::shared_ptr<imaging::BytePool>& pool);

}   // namespace tavix::media
