// Small films for tests: each frame carries its number in large squares, which any codec keeps.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Media/Libav.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace tavix::media::tests {

struct ClipRecipe {
    std::filesystem::path path;   // its extension chooses the container
    const char* encoder = "libx264";
    AVPixelFormat pixels = AV_PIX_FMT_YUV420P;
    imaging::Size size{64, 64};
    AVRational tick{1, 600};
    std::vector<std::int64_t> times = {};   // of the frames, in ticks
    int bFrames = 2, gop = 12;
    AVColorSpace matrix = AVCOL_SPC_BT709;
    AVColorRange range = AVCOL_RANGE_MPEG;
    AVChromaLocation chroma = AVCHROMA_LOC_LEFT;
    AVRational pixelAspect{1, 1};
    int clockwiseDeg = 0;   // how the picture is to be turned to be seen upright
    std::vector<std::pair<const char*, std::string>> options = {};
    std::function<void(AVFrame&, int index)> paint = {};   // the number of the frame by default
};

void makeClip(const ClipRecipe& recipe);

// `count` frames at an even rate, in ticks of 1/600.
std::vector<std::int64_t> evenTimes(int count, int ticksPerFrame = 20);
// Every sample of a plane set to one value.
void fillPlane(AVFrame& frame, int plane, int value);

// The number that a frame of at least 64 x 64 pixels carries in its upper left; -1 when it carries none.
int numberIn(const imaging::Image& image);

// The pixel of an image, counted from the top left.
struct Rgba {
    int r, g, b, a;
    bool operator==(const Rgba&) const = default;
};
Rgba pixelAt(const imaging::Image& image, int x, int fromTop);

}   // namespace tavix::media::tests
