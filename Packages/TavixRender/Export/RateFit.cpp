#include "TavixRender/Export/RateFit.h"

#include "TavixBase/Failure.h"
#include "TavixRender/Export/FilmExport.h"

#include <algorithm>
#include <string>

namespace tavix::RateFit {

namespace {

constexpr std::int64_t leastBitsPerSec = 50'000;

[[noreturn]] void refuse(std::int64_t mostBytes) {
    throw Failure("The film does not fit into " + std::to_string(mostBytes / 1000) +
                  " kB; allow it more bytes, or make it smaller, shorter or of fewer frames a second.");
}

}   // namespace

std::int64_t bitsPerSec(const PiecedFilm& film, std::int64_t mostBytes) {
    constexpr double containerShare = 0.02, soundBitsPerSec = 256'000, mostBitsPerSec = 1e12;
    const double totalSec = std::max(film.fps.secAt(film.frameCount), 1e-3);
    const double all = double(mostBytes) * 8 * (1 - containerShare) / totalSec;
    const double forPictures = std::min(all, mostBitsPerSec) - (film.sound ? soundBitsPerSec : 0);
    if (forPictures < double(leastBitsPerSec)) refuse(mostBytes);
    return std::int64_t(forPictures);
}

PieceRender::Report write(PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    constexpr double safety = 0.95;
    constexpr int mostTries = 5;
    std::int64_t rate = bitsPerSec(film, mostBytes);
    for (int i = 0; i < mostTries && rate >= leastBitsPerSec; ++i) {
        film.file.rate.bitsPerSec = rate;
        if (tell) tell(rate);
        const PieceRender::Report report = FilmExport::write(film, log, onProgress, stop);
        const double bytes = double(std::filesystem::file_size(film.file.output));
        if (bytes <= double(mostBytes)) return report;
        rate = std::int64_t(double(rate) * safety * double(mostBytes) / bytes);
    }
    refuse(mostBytes);
}

}   // namespace tavix::RateFit
