#include "TavixRender/Encoding/FilmWriter.h"

#include "TavixRender/Encoding/FilmEncoders.h"
#include "TavixRender/Encoding/RenderStopped.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace tavix::FilmWriter {

namespace {

// A count past this would take longer than any machine lives; it keeps the conversion to an integer defined.
constexpr double maxFrameCount = 1e15;
constexpr int secondsPerLogLine = 5;

struct Run {
    const FilmFrames& film;
    const RenderLog& log;
    const Progress& onProgress;
    const std::stop_token& stop;
};

template <class Encoder> void walkFrames(Encoder& encoder, const Run& run) {
    const FilmFrames& film = run.film;
    const std::int64_t framesPerReport = std::max<std::int64_t>(film.fps.frameNearest(1), 1);
    for (std::int64_t i = 0; i < film.count; ++i) {
        if (run.stop.stop_requested()) throw RenderStopped();
        encoder.append(film.at(film.fps.secAt(i)), i);
        const double done = double(i) / double(film.count);
        if (i % framesPerReport == 0 && run.onProgress) run.onProgress(done);
        if (i % (secondsPerLogLine * framesPerReport) == 0)
            tell(run.log, Finding::progress(RenderCode::rendered, std::to_string(int(done * 100)) + "%"));
    }
    encoder.finish();
}

}   // namespace

std::int64_t frameCount(double lengthSec, const FrameRate& fps) {
    const double frames = lengthSec * double(fps);
    return frames > 0 ? std::llround(std::min(frames, maxFrameCount)) : 0;
}

void write(const FilmFrames& film, const FilmFile& file, imaging::Evaluator& evaluator, const RenderLog& log,
    const Progress& onProgress, const std::stop_token& stop) {
    const Run run{film, log, onProgress, stop};
    withEncoder(file, film.size, film.fps, evaluator, [&](auto& encoder) { walkFrames(encoder, run); });
    if (onProgress) onProgress(1);
    tell(log, Finding::note(RenderCode::written, "Wrote " + file.output.string()));
}

}   // namespace tavix::FilmWriter
