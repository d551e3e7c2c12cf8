#include "TavixRender/Export/ReducedFilm.h"

#include "TavixBase/Hash.h"

#include <utility>

namespace tavix {

namespace {

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

class ReducedKeys final : public PiecedFilm::Keys {
public:
    ReducedKeys(std::unique_ptr<PiecedFilm::Keys> keys, imaging::Size size)
        : keys_(std::move(keys)), size_(size) {}
    std::optional<Digest> of(const FilmPiece& piece) const override {
        const auto key = keys_->of(piece);
        if (!key) return std::nullopt;
        return Hash().add(*key).add(std::uint64_t(size_.width)).add(std::uint64_t(size_.height)).digest();
    }
    bool holds(const FilmPiece& piece) const override { return keys_->holds(piece); }

private:
    std::unique_ptr<PiecedFilm::Keys> keys_;
    imaging::Size size_;
};

}   // namespace

PiecedFilm reducedFilm(const PiecedFilm& film, imaging::Size size) {
    PiecedFilm other = film;
    other.size = size;
    other.painter = [painter = film.painter, size](
                        imaging::Evaluator& evaluator, const RenderLog& log, const RenderRoom& room) {
        return std::make_unique<ReducedPainter>(painter(evaluator, log, room), size);
    };
    other.keys = [keys = film.keys, size](const FilmFile& encoding) {
        return std::make_unique<ReducedKeys>(keys(encoding), size);
    };
    return other;
}

}   // namespace tavix
