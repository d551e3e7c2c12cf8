#include "Engine/Output/SegmentPlan.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Documents/AssetFiles.h"
#include "Engine/Output/FinishedFile.h"
#include "Engine/System/Errors.h"
#include "Engine/System/Interruption.h"
#include "Engine/System/SystemWatch.h"
#include "TavixBase/Failure.h"
#include "TavixRender/Export/CompositionExport.h"
#include "TavixRender/Export/RatePlan.h"

#include <system_error>
#include <utility>

namespace tavix::engine {

namespace {

CompositionRenderer::Config configFor(
    const DocumentFile& document, const FilmArguments& film, const PieceArguments& pieces) {
    const OutputChoice choice = film.chooseKind();
    if (choice.format != ExportFormat::video)
        throw UsageError(
            "A " + std::string(displayName(choice.format)) + " is made in one go and has no segments.");
    if (choice.hardware)
        throw UsageError("--encoder does not go with segments: they may be made on machines that differ, and "
                         "only a whole film is checked; drop it.");
    CompositionRenderer::Config config = configOf(document, film, choice);
    pieces.apply(config);
    // Segments of one film are equally coarse, which those who make some of them tell for themselves.
    config.rate = RatePlan::settled(CompositionExport::filmOf(config));
    return config;
}

}   // namespace

SegmentPlan::SegmentPlan(
    const DocumentFile& document, const FilmArguments& film, const PieceArguments& pieces)
    : document_(document), config_(configFor(document, film, pieces)), pieces_(filmPieces(config_.spec)),
      keys_(config_) {
    if (pieces_.empty()) throw Failure("The composition is empty (0 frames).");
}

std::string SegmentPlan::fileName(std::size_t segment) const {
    return pieceFileName(document_.name, segment, pieces_[segment], keys_);
}

void SegmentPlan::tell(Terminal& terminal) const {
    JsonArray segments;
    std::string lines;
    const FrameRate& fps = config_.spec.output.fps;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        const FilmPiece& piece = pieces_[i];
        const std::string file = fileName(i);
        segments.push_back(JsonObject{{"segment", std::int64_t(i)}, {"firstFrame", piece.firstFrame},
            {"frames", piece.frameCount}, {"startSec", fps.secAt(piece.firstFrame)}, {"file", file}});
        lines += std::to_string(i) + "  frames " + std::to_string(piece.firstFrame) + " to " +
                 std::to_string(piece.firstFrame + piece.frameCount - 1) + "  " + file + "\n";
    }
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(JsonObject{{"segments", std::move(segments)}});
    else
        terminal.result(lines);
}

void SegmentPlan::render(std::size_t segment, const std::optional<std::string>& output,
    const Interruption& interruption, Terminal& terminal) const {
    if (segment >= pieces_.size())
        throw UsageError("The film has " + std::to_string(pieces_.size()) +
                         " segments, counted from 0; there is no segment " + std::to_string(segment) + ".");
    std::error_code error;
    if (output) std::filesystem::create_directories(*output, error);
    if (output && !std::filesystem::is_directory(*output, error))
        throw UsageError("\"" + *output + "\" is no folder; segments have names of their own in one.");
    const std::filesystem::path target = std::filesystem::path(output.value_or("")) / fileName(segment);
    requireNoAsset(target, document_);
    const SystemWatch::Task task("to render the segment");
    PieceRender::Report made;
    writeFinished(target, interruption, [&](const std::filesystem::path& unfinished) {
        const auto onProgress = [&](double fraction) { terminal.progress(fraction); };
        made = PieceRender::writeAll(CompositionExport::filmOf(config_), {pieces_[segment]}, {unfinished},
            terminal.log(), onProgress, interruption.token());
    });
    if (!made.storeFault.empty()) terminal.warn("cache-unwritable", made.storeFault);
    terminal.tell("✓ Wrote " + target.string());
    if (terminal.mode() == Terminal::Mode::json)
        terminal.report(JsonObject{{"output", target.string()}, {"segment", std::int64_t(segment)},
            {"frames", pieces_[segment].frameCount}, {"sizeBytes", fileSize(target)}});
}

std::vector<std::filesystem::path> SegmentPlan::filesIn(const std::filesystem::path& folder) const {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
        files.push_back(folder / fileName(i));
        if (!std::filesystem::is_regular_file(files.back(), error))
            throw Failure("Segment " + std::to_string(i) + " is not there: \"" + files.back().string() +
                          "\". Render it with --segment " + std::to_string(i) +
                          " and the same document and options.");
    }
    return files;
}

}   // namespace tavix::engine
