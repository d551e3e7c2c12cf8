// How much an export costs beyond its encoder. For each document, in one run: the whole render; the same
// encoder with the same settings fed with the same frames, already composed and converted; and the
// composing alone. Times are the least of several rounds, taken in turn, since the machine may be noisy.
// tavix_export_speed [ROUNDS [compose]]: with the second argument only the composing is measured.
#include "ClipSpeed.h"
#include "Cost.h"
#include "SpeedDocuments.h"

#include "TavixPlatform/Imaging/Evaluator.h"
#include "TavixPlatform/Imaging/FrameSurface.h"
#include "TavixPlatform/Media/MovieWriter.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/FrameClock.h"
#include "TavixRender/Export/CompositionExport.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <unistd.h>

namespace tavix::benchmarks {
namespace {

// Planes of 4:2:0 frames, one after the other.
class PlaneStore {
public:
    PlaneStore(imaging::Size size, std::size_t frames) : size_(size), bytes_(frames * frameBytes()) {}
    imaging::PlanarView at(std::size_t frame) {
        const std::ptrdiff_t w = size_.width, h = size_.height;
        std::uint8_t* first = bytes_.data() + frame * frameBytes();
        return {imaging::PlanarFormat::yuv420p8, size_,
            {first, first + w * h, first + w * h * 5 / 4, nullptr}, {w, w / 2, w / 2, 0}};
    }

private:
    std::size_t frameBytes() const { return std::size_t(size_.width) * std::size_t(size_.height) * 3 / 2; }
    imaging::Size size_;
    std::vector<std::uint8_t> bytes_;
};

void copyPlanes(const imaging::PlanarView& to, const imaging::PlanarView& from) {
    for (int plane = 0; plane < 3; ++plane) {
        const int half = plane == 0 ? 1 : 2;
        for (int y = 0; y < from.size.height / half; ++y)
            std::memcpy(to.planes[plane] + y * to.strideBytes[plane],
                from.planes[plane] + y * from.strideBytes[plane], std::size_t(from.size.width / half));
    }
}

class Measurement {
public:
    explicit Measurement(const SpeedDocument& document)
        : document_(document), size_(canvasSize(document.spec)),
          frames_(std::size_t(CompositionRenderer::frameCount(document.spec))), store_(size_, frames_),
          movie_(std::filesystem::temp_directory_path() /
                 ("tavix-export-speed-" + std::to_string(getpid()) + ".mp4")),
          resolved_(document.spec, std::nullopt, evaluator_, {}) {
        imaging::FrameSurface surface(evaluator_, size_);
        for (std::size_t i = 0; i < frames_; ++i) {
            std::uint64_t stamp = 0;
            surface.update(frame(i), {store_.at(i), stamp});
        }
    }
    ~Measurement() { std::filesystem::remove(movie_); }
    Measurement(const Measurement&) = delete;
    Measurement& operator=(const Measurement&) = delete;

    void run(int rounds, bool isComposingAlone) {
        for (int i = 0; i < rounds; ++i) {
            compose_.keepLeast(measured([&] { compose(); }));
            if (isComposingAlone) continue;
            encode_.keepLeast(measured([&] { encode(); }));
            render_.keepLeast(
                measured([&] { CompositionExport::write({.spec = document_.spec, .output = movie_}, {}); }));
        }
    }
    void print() const {
        const auto perFrame = [&](double seconds) { return seconds * 1000 / double(frames_); };
        std::printf("| %-13s | %4d x %-4d %2d | %6.2f | %6.2f | %6.2f | %6.2f | %7.2f | %7.2f | %5.2f |\n",
            document_.name.data(), size_.width, size_.height, int(double(document_.spec.output.fps)),
            perFrame(render_.wallSec), perFrame(render_.cpuSec), perFrame(encode_.wallSec),
            perFrame(encode_.cpuSec), perFrame(compose_.wallSec), perFrame(compose_.cpuSec),
            render_.wallSec / encode_.wallSec);
        std::fflush(stdout);
    }

private:
    imaging::Image frame(std::size_t i) {
        return resolved_.frame(document_.spec.output.fps.secAt(std::int64_t(i)));
    }

    // As an export does it, into planes that come back every third frame.
    void compose() {
        constexpr std::size_t slots = media::MovieWriter::slotCount;
        PlaneStore planes(size_, slots);
        std::uint64_t stamps[slots] = {};
        imaging::FrameSurface surface(evaluator_, size_);
        for (std::size_t i = 0; i < frames_; ++i) {
            surface.update(frame(i), {planes.at(i % slots), stamps[i % slots]});
        }
    }

    void encode() {
        const auto& output = document_.spec.output;
        const FrameClock clock = FrameClock::of(output.fps);
        const double bitsPerSec =
            0.5 * size_.width * size_.height * double(output.fps);   // as an export sets it
        media::MovieWriter writer({.path = movie_,
            .sizePx = size_,
            .bitsPerSec = std::int64_t(bitsPerSec),
            .mayTakeLess = true,
            .timescale = clock.timescale,
            .frameDuration = clock.frameDuration});
        for (std::size_t i = 0; i < frames_; ++i) {
            media::MovieWriter::Slot& slot = writer.acquire();
            copyPlanes(slot.planes, store_.at(i));
            writer.submit(slot, clock.timeOf(std::int64_t(i)));
        }
        writer.finish();
    }

    const SpeedDocument& document_;
    imaging::Size size_;
    std::size_t frames_;
    PlaneStore store_;   // every frame, composed
    std::filesystem::path movie_;
    imaging::Evaluator evaluator_;
    ResolvedComposition resolved_;
    Cost render_, encode_, compose_;
};

void measure(int widthPx, int heightPx, int fps, double seconds, int rounds, bool isComposingAlone) {
    for (const SpeedDocument& document : speedDocuments(widthPx, heightPx, fps, seconds)) {
        Measurement measurement(document);
        measurement.run(rounds, isComposingAlone);
        measurement.print();
    }
}

}   // namespace
}   // namespace tavix::benchmarks

int main(int argc, char** argv) {
    const int rounds = argc > 1 ? std::max(std::atoi(argv[1]), 1) : 3;
    const bool isComposingAlone = argc > 2 && std::strcmp(argv[2], "compose") == 0;
    std::puts(
        "Milliseconds a frame: the render, its encoder alone, the composing alone; wall time and CPU time.");
    std::puts(
        "| document      | frame           | render |    cpu | encode |    cpu | compose |     cpu | ratio |");
    std::puts(
        "|---------------|-----------------|--------|--------|--------|--------|---------|---------|-------|");
    tavix::benchmarks::measure(1080, 1920, 30, 4, rounds, isComposingAlone);
    tavix::benchmarks::measure(1920, 1080, 60, 3, rounds, isComposingAlone);
    if (!isComposingAlone) tavix::benchmarks::measureClip(rounds);
}
