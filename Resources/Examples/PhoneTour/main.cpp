// tavix_phone_tour FILE.mp4 [SECOND]: writes the recording of the example phone-tour, or, to a PNG, the frame
// that it shows at a second.
#include "Clip.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/StillImages.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

using namespace tavix;
using namespace tavix::phonetour;

void writeStill(const std::string& path, double atSec) {
    imaging::Evaluator evaluator;
    media::writePng(
        path, evaluator.draw(clipFrame(atSec), {0, 0, clipScreen.widthPx(), clipScreen.heightPx()}).view());
}

void writeClip(const std::string& path) {
    const imaging::Size size{clipScreen.widthPx(), clipScreen.heightPx()};
    imaging::Evaluator evaluator;
    imaging::FrameSurface surface(evaluator, size);
    media::MovieWriter writer({.path = path,
        .sizePx = size,
        .bitsPerSec = 700'000,
        .effort = media::EncodingEffort::best,
        .timescale = clipFramesPerSec * clipFrameUnits,
        .frameDuration = clipFrameUnits});
    for (int i = 0; i < int(clipLengthSec * clipFramesPerSec); ++i) {
        media::MovieWriter::Slot& slot = writer.acquire();
        surface.update(clipFrame(double(i) / clipFramesPerSec), {slot.planes, slot.stamp});
        writer.submit(slot, std::int64_t(i) * clipFrameUnits);
    }
    writer.finish();
}

}   // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 2)
            writeClip(argv[1]);
        else if (argc == 3)
            writeStill(argv[1], std::atof(argv[2]));
        else
            return std::fputs(
                       "usage: tavix_phone_tour FILE.mp4, or tavix_phone_tour FILE.png SECOND\n", stderr),
                   2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_phone_tour: %s\n", failure.what());
        return 3;
    }
    return 0;
}
