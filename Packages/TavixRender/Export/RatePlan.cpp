#include "TavixRender/Export/RatePlan.h"

#include "TavixPlatform/Media/MovieJoin.h"
#include "TavixRender/Export/PieceRender.h"
#include "TavixRender/Export/ReducedFilm.h"
#include "TavixRender/Export/TrialFolder.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <map>
#include <numeric>
#include <string>
#include <vector>

namespace tavix::RatePlan {

namespace {

// The scale on which a codec is coarse. Small pieces are made at every `raster` of it, so that those of a
// film that was changed a little are found again; films in steps of about six per cent of their bits.
struct Scale {
    double finest, usual, most, step, raster, perHalf;
    double first, bitsOfFirst;   // how coarse films of text and shapes are that take so many bits a pixel
    double growth, finerThan, growthFiner;   // see `grownBytes`
};

const Scale& scaleOf(VideoCodec codec) {
    static constexpr Scale h264{10, 10, 48, 0.5, 4, 6.5, 26, 0.03, 1.24, 26, 0.05};
    static constexpr Scale hevc{10, 10, 48, 0.5, 4, 6.5, 26, 0.03, 1.24, 26, 0.05};
    static constexpr Scale vp9{6, 27, 63, 1, 6, 12, 36, 0.03, 1.24, 20, 0.02};
    static constexpr Scale av1{6, 30, 63, 1, 6, 12, 36, 0.03, 1.24, 20, 0.02};
    switch (codec) {
    case VideoCodec::h264: return h264;
    case VideoCodec::hevc: return hevc;
    case VideoCodec::av1: return av1;
    default: return vp9;
    }
}

double rounded(const Scale& scale, double coarseness) {
    return std::round(coarseness / scale.step) * scale.step;
}

// A third of the side costs a tenth of the time; smaller ones tell less and less.
imaging::Size smallSize(imaging::Size size) {
    constexpr double leastSidePx = 180, mostReduction = 3;
    const double shorter = std::min(size.width, size.height);
    const double by = std::clamp(shorter / leastSidePx, 1.0, mostReduction);
    const auto side = [by](int px) { return std::max(int(std::lround(px / by / 2)) * 2, 2); };
    return by > 1 ? imaging::Size{side(size.width), side(size.height)} : size;
}

PiecedFilm smallCopy(const PiecedFilm& film) {
    const imaging::Size size = smallSize(film.size);
    if (size == film.size) return film;
    if (!film.atSize) return reducedFilm(film, size);
    PiecedFilm small = film.atSize(size);
    small.evaluation = film.evaluation;
    small.pieceStore = film.pieceStore;
    small.memoryBytes = film.memoryBytes;
    return small;
}

// What the film takes by what its small copy takes. Edges grow with the side and areas with its square, so
// the bits grow by a power of the side between the two: the least of them where most of the detail is lost,
// and more where the encoder keeps what is between the edges. Measured, as six films lie within a tenth of
// it.
double grownBytes(double bytes, double reduction, const Scale& scale, double coarseness) {
    const double finer = std::max(scale.finerThan - coarseness, 0.0);
    return bytes * std::pow(reduction, std::min(scale.growth + scale.growthFiner * finer, 2.0));
}

class Measure {
public:
    Measure(const PiecedFilm& film, const FilmWriter::Progress& onProgress, const std::stop_token& stop)
        : whole_(film), film_(smallCopy(film)), scale_(scaleOf(film.file.codec)),
          reduction_(std::sqrt(
              double(film.size.width) * film.size.height / (double(film_.size.width) * film_.size.height))),
          onProgress_(onProgress), stop_(stop) {
        for (std::size_t i = 0; i < film.pieces.size(); ++i)
            files_.push_back(folder_.path() / std::to_string(i));
    }

    bool isReduced() const { return reduction_ > 1; }

    // Of all pictures of the film, when they are so coarse.
    double bytesAt(double coarseness) {
        const auto onProgress = [&](double done) {
            constexpr double usualRounds = 2;
            if (onProgress_) onProgress_(std::min((double(rounds_) + done) / usualRounds, 1.0));
        };
        bytes_ = written(film_, film_.pieces, coarseness, onProgress);
        ++rounds_;
        return error_ * grownBytes(sum(bytes_), reduction_, scale_, coarseness);
    }

    // Makes the pieces that take the most as they will be, to tell how far the film lies from the rule; where
    // it stays so coarse they are found again. Says by what factor that changes what was told.
    double corrected(double coarseness) {
        const std::vector<FilmPiece> some = dearest();
        const double small = sum(written(film_, some, coarseness, {}));
        const double whole = sum(written(whole_, some, coarseness, {}));
        error_ =
            std::clamp(whole / std::max(grownBytes(small, reduction_, scale_, coarseness), 1.0), 0.4, 2.5);
        return error_;
    }

private:
    static double sum(const std::vector<double>& bytes) {
        return std::accumulate(bytes.begin(), bytes.end(), 0.0);
    }

    // A fifth of the pieces, by the last round.
    std::vector<FilmPiece> dearest() const {
        constexpr std::size_t oneOf = 5;
        std::vector<std::size_t> order(bytes_.size());
        std::iota(order.begin(), order.end(), std::size_t{0});
        std::ranges::stable_sort(order, std::greater(), [this](std::size_t i) { return bytes_[i]; });
        order.resize((order.size() + oneOf - 1) / oneOf);
        std::ranges::sort(order);
        std::vector<FilmPiece> pieces;
        for (const std::size_t i : order) pieces.push_back(whole_.pieces[i]);
        return pieces;
    }

    // What each of these pieces takes.
    std::vector<double> written(const PiecedFilm& film, const std::vector<FilmPiece>& pieces,
        double coarseness, const FilmWriter::Progress& onProgress) {
        PiecedFilm asked = film;
        asked.frameCount = 0;
        for (const FilmPiece& piece : pieces) asked.frameCount += piece.frameCount;
        asked.file.rate = {.coarseness = coarseness};
        const std::vector files(files_.begin(), files_.begin() + std::ptrdiff_t(pieces.size()));
        PieceRender::writeAll(asked, pieces, files, {}, onProgress, stop_);
        std::vector<double> bytes;
        for (const std::filesystem::path& file : files) bytes.push_back(double(media::pieceByteCount(file)));
        return bytes;
    }

    const PiecedFilm& whole_;
    PiecedFilm film_;   // the small copy
    const Scale& scale_;
    double reduction_, error_ = 1;
    const FilmWriter::Progress& onProgress_;
    const std::stop_token& stop_;
    TrialFolder folder_;
    std::vector<std::filesystem::path> files_;
    std::vector<double> bytes_;   // of each small piece, in the last round
    int rounds_ = 0;
};

// Looks for where a falling line, known at whole numbers, crosses a height. Says where to look next, until
// two places that lie near each other have the crossing between them, or an end is reached.
class Crossing {
public:
    Crossing(double height, double stepsPerUnit, int least, int most)
        : height_(height), stepsPerUnit_(stepsPerUnit), least_(least), most_(most) {}

    void learn(int place, double value) { known_[place] = value; }
    // All values turn out to lie higher by that.
    void lift(double by) {
        for (auto& [place, value] : known_) value += by;
    }

    // Nothing when it is known well enough.
    std::optional<int> next() const {
        constexpr int near = 2;
        const auto above = lastAbove(), below = firstBelow();
        if (above != known_.end() && below != known_.end()) {
            const int gap = below->first - above->first;
            return gap > near ? std::optional((above->first + below->first) / 2) : std::nullopt;
        }
        const auto& [place, value] = above != known_.end() ? *above : *below;
        const int away = std::max(int(std::abs(value - height_) * stepsPerUnit_), 0) + 1;
        const int wanted = std::clamp(above != known_.end() ? place + away : place - away, least_, most_);
        return wanted == place ? std::nullopt : std::optional(wanted);
    }

    double place() const {
        const auto above = lastAbove(), below = firstBelow();
        if (above == known_.end()) return beyond(*below);
        if (below == known_.end()) return beyond(*above);
        const double share = (above->second - height_) / std::max(above->second - below->second, 1e-6);
        return above->first + share * (below->first - above->first);
    }

private:
    using Known = std::map<int, double>;
    double beyond(const Known::value_type& known) const {
        return known.first + (known.second - height_) * stepsPerUnit_;
    }
    Known::const_iterator firstBelow() const {
        return std::ranges::find_if(known_, [this](const auto& at) { return at.second < height_; });
    }
    Known::const_iterator lastAbove() const {
        const auto below = firstBelow();
        return below == known_.begin() ? known_.end() : std::prev(below);
    }

    double height_, stepsPerUnit_;
    int least_, most_;
    Known known_;
};

}   // namespace

bool isFor(const FilmFile& file) {
    return file.format == ExportFormat::video && !isProRes(file.codec) && !file.hardware;
}

double usualCoarseness(VideoCodec codec) { return scaleOf(codec).usual; }
double mostCoarseness(VideoCodec codec) { return scaleOf(codec).most; }
double stepsPerHalf(VideoCodec codec) { return scaleOf(codec).perHalf; }

double steppedUp(VideoCodec codec, double coarseness) {
    const double step = scaleOf(codec).step;
    return std::ceil(coarseness / step - 1e-6) * step;
}

std::optional<double> coarsenessFor(const PiecedFilm& film, double bytes,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    const Scale& scale = scaleOf(film.file.codec);
    const double pixels = double(film.size.width) * film.size.height * double(film.frameCount);
    const int least = int(scale.finest / scale.raster), most = int(scale.most / scale.raster);
    const double guess = scale.first - scale.perHalf * std::log2(bytes * 8 / pixels / scale.bitsOfFirst);
    Crossing crossing(std::log2(bytes), scale.perHalf / scale.raster, least, most);
    Measure measure(film, onProgress, stop);
    const auto search = [&](std::optional<int> at) {
        for (; at; at = crossing.next())
            crossing.learn(*at, std::log2(std::max(measure.bytesAt(*at * scale.raster), 1.0)));
        return std::clamp(crossing.place() * scale.raster, scale.finest, scale.most);
    };
    const double start = std::clamp(guess / scale.raster, double(least), double(most));
    double coarseness = search(int(std::lround(start)));
    if (measure.isReduced()) {
        crossing.lift(std::log2(measure.corrected(rounded(scale, coarseness))));
        coarseness = search(crossing.next());
    }
    if (coarseness <= scale.finest) return std::nullopt;
    return coarseness;
}

ExportRate settled(
    const PiecedFilm& film, const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    const ExportRate& rate = film.file.rate;
    if (!rate.bitsPerSec || !isFor(film.file)) return rate;
    const double bytes = double(*rate.bitsPerSec) / 8 * film.fps.secAt(film.frameCount);
    const auto coarseness = coarsenessFor(film, bytes, onProgress, stop);
    if (!coarseness) return rate;
    return {.coarseness = rounded(scaleOf(film.file.codec), *coarseness)};
}

}   // namespace tavix::RatePlan
