#include "TavixRender/Export/CompositionExport.h"

#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Encoding/FrameOutput.h"
#include "TavixRender/Encoding/HiddenFile.h"

#include <deque>
#include <string>

namespace tavix::CompositionExport {

namespace {

constexpr double pictureShare = 0.95;   // of the progress

// Names beside the output, whose files are gone when this is.
class PieceFiles {
public:
    PieceFiles(const std::filesystem::path& output, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            hidden_.emplace_back(
                output, ".tavix-piece-" + std::to_string(i) + "-" + output.filename().string());
            paths_.push_back(hidden_.back().path());
        }
    }
    const std::vector<std::filesystem::path>& paths() const { return paths_; }
    // A sentence with the name of the film instead of a piece's.
    std::string unnamed(std::string sentence) const {
        for (const HiddenFile& file : hidden_) sentence = file.unnamed(std::move(sentence));
        return sentence;
    }

private:
    std::deque<HiddenFile> hidden_;
    std::vector<std::filesystem::path> paths_;
};

}   // namespace

PieceRender::Report write(const CompositionRenderer::Config& config, const RenderLog& log,
    const CompositionRenderer::Progress& onProgress, const std::stop_token& stop) {
    if (config.fileFormat != ExportFormat::video) {
        CompositionRenderer::render(config, log, onProgress, stop);
        return {};
    }
    const std::int64_t count = CompositionRenderer::frameCount(config.spec);
    if (count < 1) throw Failure("The composition is empty (0 frames).");
    FrameOutput::requireDrawableSize(canvasSize(config.spec));
    tell(log,
        Finding::progress(RenderCode::rendering,
            CompositionRenderer::headline(config.spec, CompositionTimeline(config.spec).totalSec, count)));
    const auto report = [&](double fraction) {
        if (onProgress) onProgress(fraction);
    };
    const std::vector<FilmPiece> pieces = filmPieces(config.spec);
    const PieceFiles files(config.output, pieces.size());
    PieceRender::Report made;
    try {
        made = PieceRender::writeAll(
            config, pieces, files.paths(), log, [&](double done) { report(done * pictureShare); }, stop);
        report(pictureShare);
        PieceRender::join(config, files.paths(), log, stop);
    } catch (const RenderStopped&) {
        throw;
    } catch (const Failure& failure) {
        throw Failure(files.unnamed(failure.what()));
    }
    report(1);
    tell(log, Finding::note(RenderCode::written, "Wrote " + config.output.string()));
    return made;
}

}   // namespace tavix::CompositionExport
