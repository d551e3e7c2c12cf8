#include "TavixRender/Export/AnimationFit.h"

#include "TavixBase/Failure.h"
#include "TavixPlatform/Media/WebpWriter.h"
#include "TavixRender/Encoding/HiddenFile.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/MachineShare.h"
#include "TavixRender/Export/ReducedFilm.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

namespace tavix::AnimationFit {

namespace {

constexpr int leastQuality = 35, leastWidthPx = 64;
constexpr double leastFps = 8;

std::int64_t frameCountOf(const PiecedFilm& film, const FrameRate& fps) {
    return std::max<std::int64_t>(FilmWriter::frameCount(film.fps.secAt(film.frameCount), fps), 1);
}

// Writes stretches of a film, each into a file that is gone afterwards, to tell the bytes of the whole. What
// is drawn for one look serves the others: all begin where the others do, and show the frame of the whole
// film that is nearest to their moment.
class Sampler {
public:
    Sampler(const PiecedFilm& film, const std::stop_token& stop)
        : film_(film), stop_(stop),
          evaluator_(MachineShare::evaluation(film.evaluation, film.memoryBytes, 1)),
          painter_(film.painter(evaluator_, log_, MachineShare::roomOf(film.memoryBytes, 1))) {}

    double estimatedBytes(const Look& look) {
        const std::int64_t count = frameCountOf(film_, look.fps);
        if (count <= stretches * (framesOfStretch + 1)) return bytesOf(look, 0, count);
        // The first frame of a stretch is a whole one; the others are what is new in each.
        double whole = 0, others = 0;
        for (std::int64_t i = 0; i < stretches; ++i) {
            const std::int64_t first = (film_.frameCount - longestStretch()) * (2 * i + 1) / (2 * stretches);
            const double alone = bytesOf(look, first, 1);
            whole += alone / stretches;
            others += (bytesOf(look, first, framesOfStretch) - alone) / (stretches * (framesOfStretch - 1));
        }
        return whole + others * double(count - 1);
    }

private:
    static constexpr std::int64_t stretches = 3, framesOfStretch = 8;
    static constexpr std::size_t mostKeptBytes = 96u << 20;

    // At the least rate, in frames of the film.
    std::int64_t longestStretch() const {
        const double least = std::min(leastFps, double(film_.fps));
        return std::min(
            std::int64_t(std::ceil(framesOfStretch * double(film_.fps) / least)), film_.frameCount);
    }

    // Of frames from that one of the film on, at the rate and the size of the look.
    double bytesOf(const Look& look, std::int64_t first, std::int64_t count) {
        const HiddenFile hidden(film_.file.output, ".tavix-trial-" + film_.file.output.filename().string());
        FilmFile file = made(film_, look).file;
        file.output = hidden.path();
        const imaging::Rect target{0, 0, double(look.size.width), double(look.size.height)};
        const FilmFrames frames{look.size, look.fps, count, [&](double atSec) {
                                    const std::int64_t frame = first + film_.fps.frameNearest(atSec);
                                    const imaging::Image image = drawn(std::min(frame, film_.frameCount - 1));
                                    return look.size == film_.size ? image : image.placedInto(target);
                                }};
        FilmWriter::write(frames, file, evaluator_, {}, {}, stop_);
        return double(std::filesystem::file_size(hidden.path()));
    }

    imaging::Image drawn(std::int64_t frame) {
        if (const auto found = kept_.find(frame); found != kept_.end()) return found->second;
        const imaging::Image image = painter_->frame(film_.fps.secAt(frame));
        const std::size_t bytes = 4 * std::size_t(film_.size.width) * std::size_t(film_.size.height);
        if ((kept_.size() + 1) * bytes > mostKeptBytes) return image;
        const auto pixels = std::make_shared<const imaging::Bitmap>(
            evaluator_.draw(image, {0, 0, film_.size.width, film_.size.height}));
        return kept_.emplace(frame, imaging::Image::bitmap(pixels)).first->second;
    }

    const PiecedFilm& film_;
    const std::stop_token& stop_;
    const RenderLog log_;   // says nothing: the film itself will
    imaging::Evaluator evaluator_;
    std::unique_ptr<PiecedFilm::Painter> painter_;
    std::map<std::int64_t, imaging::Image> kept_;
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
    PiecedFilm other = look.size == film.size ? film : reducedFilm(film, look.size);
    other.fps = look.fps;
    other.frameCount = frameCountOf(film, look.fps);
    if (film.file.format == ExportFormat::webp) other.file.rate.quality = look.quality;
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

std::string shown(const PiecedFilm& film, const Look& look) {
    return std::to_string(look.size.width) + " × " + std::to_string(look.size.height) + ", " +
           look.fps.shown() + " frames a second" +
           (film.file.format == ExportFormat::webp ? ", quality " + std::to_string(look.quality) : "");
}

namespace {

Look fitting(const PiecedFilm& film, const Search& search) {
    const Look look = reduced(film, search.share());
    if (look.size.width < std::min(leastWidthPx, film.size.width))
        throw Failure("The film does not fit even at " + shown(film, look) +
                      "; allow it more bytes, or make it shorter.");
    return look;
}

Search searched(
    const PiecedFilm& film, std::int64_t mostBytes, const Tell& tell, const std::stop_token& stop) {
    constexpr double nearEnough = 0.85;
    constexpr int mostEstimates = 6;
    const double most = double(mostBytes);
    Search search(most);
    Sampler sampler(film, stop);
    for (int i = 0; i < mostEstimates; ++i) {
        const Look look = fitting(film, search);
        const double bytes = sampler.estimatedBytes(look);
        if (tell) tell(look, bytes);
        if (bytes <= most && (search.share() >= 1 || bytes >= nearEnough * most)) break;
        search.learn(bytes);
    }
    return search;
}

}   // namespace

Estimate estimated(const PiecedFilm& film, std::int64_t mostBytes, const std::stop_token& stop) {
    std::vector<Estimate> all;
    const Search search = searched(
        film, mostBytes,
        [&](const Look& look, double bytes) {
            all.push_back({look, bytes});
        },
        stop);
    // The last one may have been too large; then the film is made with less, as the search says.
    if (all.back().bytes <= double(mostBytes)) return all.back();
    return {fitting(film, search), double(mostBytes)};
}

PiecedFilm write(const PiecedFilm& film, std::int64_t mostBytes, const RenderLog& log, const Tell& tell,
    const FilmWriter::Progress& onProgress, const std::stop_token& stop) {
    constexpr int mostFilms = 4;
    Search search = searched(film, mostBytes, tell, stop);
    for (int i = 0; i < mostFilms; ++i) {
        const PiecedFilm smaller = made(film, fitting(film, search));
        FilmExport::write(smaller, log, onProgress, stop);
        const double bytes = double(std::filesystem::file_size(film.file.output));
        if (bytes <= double(mostBytes)) return smaller;
        search.learn(bytes);
    }
    throw Failure("The film does not come out small enough; allow it more bytes.");
}

}   // namespace tavix::AnimationFit
