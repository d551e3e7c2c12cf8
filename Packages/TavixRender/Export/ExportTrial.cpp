#include "TavixRender/Export/ExportTrial.h"

#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"
#include "TavixRender/Encoding/FilmEncoders.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <system_error>

namespace tavix::ExportTrial {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double trialSec = 3;   // of work
constexpr std::int64_t leastFrames = 4, mostFrames = 30;
constexpr double atFraction = 0.4;   // of the film

double secondsSince(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// A folder that goes with its content.
class TrialFolder {
public:
    TrialFolder() {
        std::string pattern = (fs::temp_directory_path() / "tavix-trial-XXXXXX").string();
        if (!::mkdtemp(pattern.data()))
            throw Failure("There is no folder for a trial export in \"" + fs::temp_directory_path().string() +
                          "\"; make one that can be written.");
        path_ = pattern;
    }
    ~TrialFolder() {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    TrialFolder(const TrialFolder&) = delete;
    TrialFolder& operator=(const TrialFolder&) = delete;

    const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

struct Encoded {
    std::int64_t frames = 0;
    double sec = 0;
};

}   // namespace

Outcome run(const CompositionRenderer::Config& config, const std::stop_token& stop) {
    const FrameRate& fps = config.spec.output.fps;
    const std::int64_t all = CompositionRenderer::frameCount(config.spec);
    const std::int64_t most = std::min(all, mostFrames);
    const auto first = std::min(std::int64_t(double(all) * atFraction), all - most);
    imaging::Evaluator evaluator(config.evaluation);
    Composition3DRendererPool stages;
    ResolvedComposition film(config.spec, config.assetRoot, evaluator, {}, &stages);
    film.frame(fps.secAt(first));   // files are opened once for the whole film

    const TrialFolder folder;
    FilmFile file = CompositionRenderer::fileOf(config);
    file.output = folder.path() / (file.format == ExportFormat::png ? FrameNames::usual : "trial");
    if (file.format != ExportFormat::png) file.output += config.output.extension();
    const imaging::Size size = canvasSize(config.spec);
    Encoded encoded;
    const auto encode = [&](auto&& encoder) {
        const auto start = Clock::now();
        // A single frame would be a key frame alone.
        while (encoded.frames < most && (encoded.frames < leastFrames || secondsSince(start) < trialSec)) {
            if (stop.stop_requested()) throw RenderStopped();
            encoder.append(film.frame(fps.secAt(first + encoded.frames)), encoded.frames);
            ++encoded.frames;
        }
        encoder.finish();
        encoded.sec = secondsSince(start);
    };
    withEncoder(file, size, fps, evaluator, encode);
    const double share = double(all) / double(encoded.frames);
    double bytes = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder.path()))
        bytes += double(entry.file_size());
    return {bytes * share, encoded.sec * share};
}

}   // namespace tavix::ExportTrial
