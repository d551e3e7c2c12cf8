#include "TavixRender/Export/FilmCheck.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Encoding/FrameClock.h"
#include "TavixRender/Encoding/RenderStopped.h"
#include "TavixRender/Export/MachineShare.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace tavix::FilmCheck {

namespace {

using imaging::Bitmap;

// Containers round times to the thousandth of a second at the coarsest.
constexpr double sameTimeSec = 0.001;
// Below these a frame is another one, or a broken one, at any rate that is of use.
constexpr double leastSimilarity = 0.6, mostColorError = 16;

[[noreturn]] void fail(const std::filesystem::path& film, const std::string& what) {
    throw Failure("The film \"" + film.string() + "\" did not become what was rendered: " + what);
}

// ITU-R BT.709, of values that are encoded.
double brightness(const std::uint8_t* bgra) { return 0.0722 * bgra[0] + 0.7152 * bgra[1] + 0.2126 * bgra[2]; }

// Of squares of 8 pixels that lie side by side.
double similarity(const Bitmap& a, const Bitmap& b) {
    constexpr int side = 8;
    constexpr double steadyMean = 6.5025, steadySpread = 58.5225;   // (0.01 · 255)² and (0.03 · 255)²
    double sum = 0;
    std::int64_t count = 0;
    for (int y = 0; y + side <= a.size().height; y += side)
        for (int x = 0; x + side <= a.size().width; x += side) {
            double sumA = 0, sumB = 0, squaresA = 0, squaresB = 0, products = 0;
            for (int i = 0; i < side * side; ++i) {
                const int px = (x + i % side) * 4;
                const double va = brightness(a.view().row(y + i / side) + px);
                const double vb = brightness(b.view().row(y + i / side) + px);
                sumA += va, sumB += vb;
                squaresA += va * va, squaresB += vb * vb, products += va * vb;
            }
            constexpr double n = side * side;
            const double meanA = sumA / n, meanB = sumB / n;
            const double spreadA = squaresA / n - meanA * meanA, spreadB = squaresB / n - meanB * meanB;
            const double shared = products / n - meanA * meanB;
            sum += (2 * meanA * meanB + steadyMean) * (2 * shared + steadySpread) /
                   ((meanA * meanA + meanB * meanB + steadyMean) * (spreadA + spreadB + steadySpread));
            ++count;
        }
    return count > 0 ? sum / double(count) : 1;
}

using Color = std::array<double, 3>;

Color meanColor(const Bitmap& picture, int column, int row) {
    const imaging::Size size = picture.size();
    Color sum{};
    const int x0 = size.width * column / 3, x1 = size.width * (column + 1) / 3;
    const int y0 = size.height * row / 3, y1 = size.height * (row + 1) / 3;
    for (int y = y0; y < y1; ++y)
        for (int x = x0; x < x1; ++x)
            for (std::size_t c = 0; c < 3; ++c) sum[c] += picture.view().row(y)[x * 4 + int(c)];
    const double pixels = std::max(double(x1 - x0) * (y1 - y0), 1.0);
    for (double& channel : sum) channel /= pixels;
    return sum;
}

double colorError(const Bitmap& a, const Bitmap& b) {
    double most = 0;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column) {
            const Color ca = meanColor(a, column, row), cb = meanColor(b, column, row);
            for (std::size_t c = 0; c < 3; ++c) most = std::max(most, std::abs(ca[c] - cb[c]));
        }
    return most;
}

}   // namespace

void probe(const PiecedFilm& film, const std::filesystem::path& file) try {
    const std::int64_t count = film.frameCount;
    const auto samples = media::VideoFile(file).samples();
    if (std::int64_t(samples.size()) != count)
        fail(file,
            "it has " + std::to_string(samples.size()) + " frames, and not " + std::to_string(count) + ".");
    const FrameClock clock = FrameClock::of(film.fps);
    for (std::int64_t i = 0; i < count; ++i) {
        const double sec = double(clock.timeOf(i)) / clock.timescale;
        if (std::abs(samples[std::size_t(i)].ptsSec - sec) > sameTimeSec)
            fail(file, "its frame " + std::to_string(i) + " is shown at " +
                           std::to_string(samples[std::size_t(i)].ptsSec) + " s, and not at " +
                           std::to_string(sec) + " s.");
    }
    const media::MediaInfo info = media::probeMedia(file);
    const imaging::Size size = film.size, coded = info.video.at(0).codedSize;
    const auto isPadded = [](int is, int asked) { return is == asked || is == asked + 1; };
    if (!isPadded(coded.width, size.width) || !isPadded(coded.height, size.height))
        fail(file, "its frames have " + std::to_string(coded.width) + " × " + std::to_string(coded.height) +
                       " pixels.");
} catch (const media::MediaError& error) {
    fail(file, error.what());
}

Likeness verify(const PiecedFilm& film, const std::filesystem::path& file,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) try {
    const FrameRate& fps = film.fps;
    const std::int64_t count = film.frameCount;
    const std::int64_t step = std::max<std::int64_t>(fps.frameNearest(1), 1);
    const imaging::Size size = film.size;
    const imaging::PixelRegion canvas{0, 0, size.width, size.height};
    imaging::Evaluator evaluator(MachineShare::evaluation(film.evaluation, film.memoryBytes, 1));
    const auto painter = film.painter(evaluator, {}, MachineShare::roomOf(film.memoryBytes, 1));
    const auto frames =
        media::VideoFile(file).framesFrom(0, std::numeric_limits<double>::infinity(), media::Pace::onDemand);
    Likeness likeness;
    const auto black = imaging::Image::solid(imaging::Color::black())
                           .cropped({0, 0, double(size.width), double(size.height)});
    for (auto frame = frames->next(); frame; frame = frames->next()) {
        if (stop.stop_requested()) throw RenderStopped();
        const std::int64_t i = likeness.framesDecoded++;
        if (onProgress) onProgress(double(i) / double(count));
        if (i % step != 0 && i != count - 1) continue;
        // A film has no alpha, or what lies under its alpha is not looked at.
        const auto flat = [&](const imaging::Image& image) {
            return evaluator.draw(imaging::Image::stacked({black, image}), canvas);
        };
        const double roomPx = frame->image().extent().height - size.height;   // filled up to an even height
        const Bitmap shown = flat(frame->image().translated(0, -roomPx));
        const Bitmap drawn = flat(painter->frame(fps.secAt(i)));
        const double like = similarity(shown, drawn), off = colorError(shown, drawn);
        likeness.leastSimilarity = std::min(likeness.leastSimilarity, like);
        likeness.mostColorError = std::max(likeness.mostColorError, off);
        ++likeness.framesCompared;
        if (like < leastSimilarity || off > mostColorError)
            fail(file, "its frame " + std::to_string(i) + " does not look like the document's (similarity " +
                           std::to_string(like) + ", colours " + std::to_string(off) + " of 255 off).");
    }
    if (frames->isDamaged()) fail(file, "it cannot be decoded whole.");
    if (likeness.framesDecoded != count)
        fail(file, "only " + std::to_string(likeness.framesDecoded) + " of its " + std::to_string(count) +
                       " frames can be decoded.");
    return likeness;
} catch (const media::MediaError& error) {
    fail(file, error.what());
}

}   // namespace tavix::FilmCheck
