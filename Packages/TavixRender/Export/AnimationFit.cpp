#include "TavixRender/Export/AnimationFit.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/WebpWriter.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Export/FilmExport.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tavix::AnimationFit {

namespace {

constexpr int leastQuality = 35, leastWidthPx = 64;
constexpr double leastFps = 8;

class ReducedPainter final : public PiecedFilm::Painter {
public:
    ReducedPainter(std::unique_ptr<PiecedFilm::Painter> painter, imaging::Size size)
        : painter_(std::move(painter)), rect_{0, 0, double(size.width), double(size.height)} {}
    imaging::Image frame(double atSec) override { return painter_->frame(atSec).placedInto(rect_); }
    std::vector<std::size_t> partsAt(double atSec) const override { return painter_->partsAt(atSec); }

private:
    std::unique_ptr<PiecedFilm::Painter> painter_;
    imaging::Rect rect_;
};

// Frames first, first + 1, ... of a film.
struct Stretch {
    std::int64_t first, count;
};

// Bytes of stretches, each in a file that is gone afterwards.
class Sampler {
public:
    Sampler(const PiecedFilm& film, const std::stop_token& stop)
        : film_(film), stop_(stop), evaluator_(film.evaluation), painter_(film.painter(evaluator_, log_)) {}

    double bytesOf(const Stretch& stretch) {
        const HiddenFile hidden(film_.file.output, ".tavix-trial-" + film_.file.output.filename().string());
        FilmFile file = film_.file;
        file.output = hidden.path();
        const FilmFrames frames{film_.size, film_.fps, stretch.count,
            [&](double atSec) { return painter_->frame(atSec + film_.fps.secAt(stretch.first)); }};
        FilmWriter::write(frames, file, evaluator_, {}, {}, stop_);
        return double(std::filesystem::file_size(hidden.path()));
    }

private:
    const PiecedFilm& film_;
    const std::stop_token& stop_;
    const RenderLog log_;   // says nothing: the film itself will
    imaging::Evaluator evaluator_;
    std::unique_ptr<PiecedFilm::Painter> painter_;
};

// The share at which a film takes what it may, from what it took at others. Edges cost more than areas, so
// bytes do not shrink as fast as the share that is asked for; how fast, the last two figures tell.
class Search {
public:
    explicit Search(double mostBytes) : aim_(0.93 * mostBytes) {}
    double share() const { return share_; }
    void learn(double bytes) {
        if (bytesBefore_ > 0 && shareBefore_ != share_) {
            const double slope = std::log(bytes / bytesBefore_) / std::log(share_ / shareBefore_);
            power_ = std::clamp(1 / std::max(slope, 1e-3), 1.0, 2.5);
        }
        shareBefore_ = share_;
        bytesBefore_ = bytes;
        share_ = std::min(share_ * std::pow(aim_ / bytes, power_), 1.0);
    }

private:
    double aim_, share_ = 1, power_ = 1, shareBefore_ = 0, bytesBefore_ = 0;
};

int evenAtLeast(double side, int least) { return std::max(int(side) / 2 * 2, least); }

}   // namespace

Look lookOf(const PiecedFilm& film) {
    return {film.size, film.fps, film.file.rate.quality.value_or(media::WebpSettings::usualQuality)};
}

PiecedFilm made(const PiecedFilm& film, const Look& look) {
    PiecedFilm other = film;
    other.size = look.size;
    other.fps = look.fps;
    other.frameCount =
        std::max<std::int64_t>(FilmWriter::frameCount(film.fps.secAt(film.frameCount), look.fps), 1);
    if (film.file.format == ExportFormat::webp) other.file.rate.quality = look.quality;
    if (look.size != film.size)
        other.painter = [painter = film.painter, size = look.size](
                            imaging::Evaluator& evaluator, const RenderLog& log) {
            return std::make_unique<ReducedPainter>(painter(evaluator, log), size);
        };
    return other;
}

Look reduced(const PiecedFilm& film, double share) {
    Look look = lookOf(film);
    double rest = std::clamp(share, 1e-6, 1.0);
    if (film.file.format == ExportFormat::webp) {
        constexpr double pointsPerHalf = 32;   // of quality, that take half of the bytes
        const double points =
            std::min(-pointsPerHalf * std::log2(rest), double(std::max(look.quality - leastQuality, 0)));
        look.quality -= int(std::ceil(points));
        rest = std::min(rest * std::exp2(points / pointsPerHalf), 1.0);
    }
    // Bytes go with the area, and with a part of the rate: frames that lie farther apart differ more.
    const double fps = double(film.fps);
    const double slower = std::max(std::floor(fps * std::pow(rest, 0.3)), std::min(leastFps, fps));
    if (slower < fps) look.fps = FrameRate(int(slower));
    const double bySide = std::sqrt(std::min(rest / std::pow(slower / fps, 2.0 / 3), 1.0));
    look.size.width = evenAtLeast(film.size.width * bySide, 2);
    look.size.height =
        evenAtLeast(std::round(double(look.size.width) * film.size.height / film.size.width), 2);
    if (rest >= 1) look.size = film.size;
    return look;
}

double estimatedBytes(const PiecedFilm& film, const std::stop_token& stop) {
    constexpr std::int64_t stretches = 3, framesOfStretch = 8;
    Sampler sampler(film, stop);
    if (film.frameCount <= stretches * (framesOfStretch + 1)) return sampler.bytesOf({0, film.frameCount});
    // The first frame of a stretch is a whole one; the others are what is new in each.
    double whole = 0, others = 0;
    for (std::int64_t i = 0; i < stretches; ++i) {
        const std::int64_t first = (film.frameCount - framesOfStretch) * (2 * i + 1) / (2 * stretches);
        const double alone = sampler.bytesOf({first, 1});
        whole += alone / stretches;
        others += (sampler.bytesOf({first, framesOfStretch}) - alone) / (stretches * (framesOfStretch - 1));
    }
    return whole + others * double(film.frameCount - 1);
}

std::string shown(const PiecedFilm& film, const Look& look) {
    return std::to_string(look.size.width) + " × " + std::to_string(look.size.height) + ", " +
           look.fps.shown() + " frames a second" +
           (film.file.format == ExportFormat::webp ? ", quality " + std::to_string(look.quality) : "");
}

PiecedFilm write(const PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    constexpr double nearEnough = 0.85;
    constexpr int mostEstimates = 6, mostFilms = 4;
    const double most = double(mostBytes);
    Search search(most);
    const auto next = [&] {
        const Look look = reduced(film, search.share());
        if (look.size.width < std::min(leastWidthPx, film.size.width))
            throw Failure("The film does not fit even at " + shown(film, look) +
                          "; give --max-size more, or make the film shorter.");
        return look;
    };
    for (int i = 0; i < mostEstimates; ++i) {
        const Look look = next();
        const double bytes = estimatedBytes(made(film, look), stop);
        if (tell) tell(look, bytes);
        if (bytes <= most && (search.share() >= 1 || bytes >= nearEnough * most)) break;
        search.learn(bytes);
    }
    for (int i = 0; i < mostFilms; ++i) {
        const PiecedFilm fitting = made(film, next());
        FilmExport::write(fitting, log, onProgress, stop);
        const double bytes = double(std::filesystem::file_size(film.file.output));
        if (bytes <= most) return fitting;
        search.learn(bytes);
    }
    throw Failure("The film does not come out small enough; give --max-size more.");
}

}   // namespace tavix::AnimationFit
