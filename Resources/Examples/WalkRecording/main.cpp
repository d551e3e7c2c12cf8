// tavix_walk_recording FOLDER.tavixproj: records the imaginary app while it is driven, and writes beside the
// recording what was driven and the sidecar; or, to a PNG, what the screen shows at a second after the go.
#include "Script.h"
#include "Stage.h"

#include "TavixBase/Failure.h"
#include "TavixCore/Support/Document.h"
#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixPlatform/Media/StillImages.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixReel/Recording/Sidecar.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

namespace {

namespace fs = std::filesystem;
using namespace tavix;
using namespace tavix::walkrecording;

constexpr int framesPerSec = 30;
constexpr double beforeGoSec = 0.75, afterEndSec = 0.4;   // of the picture

void record(const fs::path& path) {
    const imaging::Size size{screen.widthPx(), screen.heightPx()};
    imaging::Evaluator evaluator;
    imaging::FrameSurface surface(evaluator, size);
    media::MovieWriter writer({.path = path,
        .sizePx = size,
        .container = media::MovieContainer::mov,
        .bitsPerSec = 110'000,
        .effort = media::EncodingEffort::best,
        .frameDuration = 600 / framesPerSec});
    const double lengthSec = beforeGoSec + flowLengthSec * recorderRate + afterEndSec;
    for (int i = 0; double(i) / framesPerSec < lengthSec; ++i) {
        const double appSec = (double(i) / framesPerSec - beforeGoSec) / recorderRate;
        media::MovieWriter::Slot& slot = writer.acquire();
        surface.update(frameAt(appSec), {slot.planes, slot.stamp});
        writer.submit(slot, std::int64_t(i) * 600 / framesPerSec);
    }
    writer.finish();
}

Timeline sidecarOf(const fs::path& recording) {
    const VideoProbe probe = SyncFrameDetector::probe(recording);
    const auto made = Sidecar::of(report(screen.pxPerPt), probe);
    if (!made) throw Failure("The recording has no flash at the go.");
    std::printf("%zu of %zu marks, rate %.5f\n", made->aligned.matched, made->aligned.expected, made->rate);
    return made->aligned.timeline;
}

void writeStill(const fs::path& path, double atSec) {
    imaging::Evaluator evaluator;
    media::writePng(path, evaluator.draw(frameAt(atSec), {0, 0, screen.widthPx(), screen.heightPx()}).view());
}

void writeBundle(const fs::path& folder) {
    fs::create_directories(folder);
    record(folder / ReelProjectBundle::rawVideoName);
    writeFile(flow(), folder / ReelProjectBundle::flowName);
    writeFile(sidecarOf(folder / ReelProjectBundle::rawVideoName), folder / ReelProjectBundle::timelineName);
}

}   // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 2)
            writeBundle(argv[1]);
        else if (argc == 3)
            writeStill(argv[1], std::atof(argv[2]));
        else
            return std::fputs(
                       "usage: tavix_walk_recording FOLDER.tavixproj, or tavix_walk_recording FILE.png SECOND\n",
                       stderr),
                   2;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "tavix_walk_recording: %s\n", failure.what());
        return 3;
    }
    return 0;
}
