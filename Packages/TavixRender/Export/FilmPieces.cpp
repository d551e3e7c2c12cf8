#include "TavixRender/Export/FilmPieces.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Encoding/FilmWriter.h"

#include <algorithm>
#include <cmath>

namespace tavix {

namespace {

constexpr double longestSec = 2, shortestSec = 0.5;
constexpr double sameTimeSec = 1e-6;

// The first frame that does not lie before a time.
std::int64_t frameFrom(double sec, const FrameRate& fps) {
    std::int64_t frame = std::max<std::int64_t>(fps.frameNearest(sec) - 1, 0);
    while (fps.secAt(frame) < sec - sameTimeSec) ++frame;
    return frame;
}

// Frames first ... end - 1, as evenly as it goes.
void addEvenly(std::vector<FilmPiece>& pieces, std::int64_t first, std::int64_t end, std::int64_t most) {
    const std::int64_t count = (end - first + most - 1) / most;
    for (std::int64_t i = 0; i < count; ++i) {
        const std::int64_t from = first + (end - first) * i / count;
        pieces.push_back({from, first + (end - first) * (i + 1) / count - from});
    }
}

}   // namespace

std::vector<FilmPiece> filmPieces(
    const std::vector<double>& startsSec, const FrameRate& fps, std::int64_t frameCount) {
    const std::int64_t most = std::max<std::int64_t>(std::llround(longestSec * double(fps)), 1);
    const std::int64_t least = std::max<std::int64_t>(std::llround(shortestSec * double(fps)), 1);
    std::vector<FilmPiece> pieces;
    std::int64_t first = 0;
    for (const double startSec : startsSec) {
        const std::int64_t start = frameFrom(startSec, fps);
        if (start - first < least || frameCount - start < least) continue;
        addEvenly(pieces, first, start, most);
        first = start;
    }
    addEvenly(pieces, first, frameCount, most);
    return pieces;
}

std::vector<FilmPiece> filmPieces(const CompositionSpec& spec) {
    const CompositionTimeline timeline(spec);
    const FrameRate& fps = spec.output.fps;
    return filmPieces(timeline.startSec, fps, FilmWriter::frameCount(timeline.totalSec, fps));
}

}   // namespace tavix
