// The segments of a film, for making them on several machines and joining them on one.
#pragma once

#include "Engine/Documents/DocumentFile.h"
#include "Engine/Output/PieceArguments.h"
#include "TavixRender/Export/FilmPieces.h"
#include "TavixRender/Export/PieceKeys.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix::engine {

class Interruption;
class Terminal;

// The document has been judged; it and the arguments must outlive this. Members throw `Failure`.
class SegmentPlan {
public:
    SegmentPlan(const DocumentFile& document, const FilmArguments& film, const PieceArguments& pieces);

    void tell(Terminal& terminal) const;
    // One segment to a file of its own name in the folder `output`, or here.
    void render(std::size_t segment, const std::optional<std::string>& output,
        const Interruption& interruption, Terminal& terminal) const;
    // The file of every segment in a folder. Throws `Failure` that names the first that is not there.
    std::vector<std::filesystem::path> filesIn(const std::filesystem::path& folder) const;

    const CompositionRenderer::Config& config() const { return config_; }

private:
    std::string fileName(std::size_t segment) const;

    const DocumentFile& document_;
    CompositionRenderer::Config config_;
    std::vector<FilmPiece> pieces_;
    PieceKeys keys_;
};

}   // namespace tavix::engine
