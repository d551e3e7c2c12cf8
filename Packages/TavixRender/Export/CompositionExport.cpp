#include "TavixRender/Export/CompositionExport.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/FilmExport.h"
#include "TavixRender/Export/PieceKeys.h"

#include <memory>

namespace tavix::CompositionExport {

namespace {

using CompositionRenderer::Config;

// Its parts are scenes.
class Painter final : public PiecedFilm::Painter {
public:
    Painter(std::shared_ptr<const Config> config, imaging::Evaluator& evaluator, const RenderLog& log,
        const RenderRoom& room)
        : config_(std::move(config)),
          resolved_(config_->spec, config_->assetRoot, evaluator, log, nullptr, nullptr, room) {}

    imaging::Image frame(double atSec) override { return resolved_.frame(atSec); }
    std::vector<std::size_t> partsAt(double atSec) const override {
        const auto sample = resolved_.timeline().sample(atSec);
        if (!sample) return {};
        if (!sample->incoming) return {sample->outgoing.index};
        return {sample->outgoing.index, sample->incoming->index};
    }

private:
    std::shared_ptr<const Config> config_;
    ResolvedComposition resolved_;
};

// With the document that they speak of.
class Keys final : public PiecedFilm::Keys {
public:
    Keys(std::shared_ptr<const Config> config, const FilmFile& encoding)
        : config_(std::move(config)), keys_(*config_, encoding) {}

    std::optional<Digest> of(const FilmPiece& piece) const override { return keys_.of(piece); }
    bool holds(const FilmPiece& piece) const override { return keys_.holds(piece); }

private:
    std::shared_ptr<const Config> config_;
    PieceKeys keys_;
};

}   // namespace

PiecedFilm filmOf(const Config& config) {
    const auto kept = std::make_shared<const Config>(config);
    const CompositionSpec& spec = kept->spec;
    const double totalSec = CompositionTimeline(spec).totalSec;
    PiecedFilm film;
    film.frameCount = CompositionRenderer::frameCount(spec);
    if (film.frameCount < 1) throw Failure("The composition is empty (0 frames).");
    film.file = CompositionRenderer::fileOf(config);
    film.headline = CompositionRenderer::headline(spec, totalSec, film.frameCount);
    film.size = canvasSize(spec);
    film.fps = spec.output.fps;
    film.pieces = filmPieces(spec);
    if (spec.audio) {
        auto root = config.assetRoot;
        if (!root && spec.assetRoot) root = *spec.assetRoot;
        film.sound = {*spec.audio, root, totalSec};
    }
    film.painter = [kept](imaging::Evaluator& evaluator, const RenderLog& log, const RenderRoom& room) {
        return std::make_unique<Painter>(kept, evaluator, log, room);
    };
    film.keys = [kept](const FilmFile& encoding) { return std::make_unique<Keys>(kept, encoding); };
    film.atSize = [kept](imaging::Size size) {
        Config other = *kept;
        other.spec = scaledExportSpec(kept->spec, size, kept->spec.output.fps);
        return filmOf(other);
    };
    film.evaluation = config.evaluation;
    film.pieceStore = config.pieceStore;
    film.memoryBytes = config.memoryBytes;
    film.mostBytes = config.mostBytes;
    return film;
}

PieceRender::Report write(const Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    return FilmExport::write(filmOf(config), log, onProgress, stop);
}

}   // namespace tavix::CompositionExport
