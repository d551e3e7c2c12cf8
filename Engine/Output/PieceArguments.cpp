#include "Engine/Output/PieceArguments.h"

#include "Engine/Console/Arguments.h"
#include "Engine/Console/Quantities.h"
#include "TavixBase/ContentHash.h"
#include "TavixBase/Failure.h"
#include "TavixRender/Composition2D/ResolvedComposition.h"
#include "TavixRender/Export/ExportGeometry.h"
#include "TavixRender/Export/PieceStore.h"

#include <cstdio>

namespace tavix::engine {

void PieceArguments::declare(Arguments& arguments) {
    arguments.flag("--no-cache", keepsNothing_,
        "Draw all of it, and keep nothing for the next render. tavix cache tells what is kept.");
    arguments.value(
        "--memory", "SIZE",
        [this](const std::string& text) { memoryBytes_ = std::size_t(bytesNamed(text, "--memory")); },
        "The memory to get by with, as in 2GB: how much is done at once, and how many clips are open. A quarter of the "
        "machine's by default.");
}

std::optional<std::filesystem::path> PieceArguments::store() const {
    const std::filesystem::path folder = PieceStore::usualFolder();
    if (keepsNothing_ || folder.empty()) return std::nullopt;
    return folder;
}

CompositionRenderer::Config configOf(
    const DocumentFile& document, const FilmArguments& film, const OutputChoice& choice) {
    CompositionRenderer::Config config;
    const CompositionOutput& output = document.spec.output;
    const imaging::Size native{static_cast<int>(output.widthPx), static_cast<int>(output.heightPx)};
    const FrameRate rate = film.rate(output.fps, choice.format);
    config.spec = scaledExportSpec(document.spec, film.size(native, choice.format), rate);
    config.assetRoot = document.assetRoot;
    config.fileFormat = choice.format;
    config.videoCodec = choice.codec;
    config.container = choice.container;
    config.effort = film.effort();
    config.rate = film.kept(choice);
    config.hardware = choice.hardware;
    return config;
}

std::string pieceFileName(
    const std::string& film, std::size_t index, const FilmPiece& piece, const PieceKeys& keys) {
    const auto key = keys.ofDocument(piece);
    if (!key)
        throw Failure("Segment " + std::to_string(index) +
                      " cannot be told from others: a file that it shows cannot be read.");
    char number[32];
    std::snprintf(number, sizeof number, "%04zu", index);
    return film + "-segment-" + number + "-" + nameOf(*key).substr(0, 16) + ".piece";
}

}   // namespace tavix::engine
