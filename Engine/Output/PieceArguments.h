// What verbs that make films of pieces share: where finished pieces are kept, how much memory they may take,
// and what a piece's file is called.
#pragma once

#include "Engine/Documents/DocumentFile.h"
#include "Engine/Output/FilmArguments.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/FilmPieces.h"
#include "TavixRender/Export/PieceKeys.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

class Arguments;

class PieceArguments {
public:
    void declare(Arguments& arguments);
    bool keepsNothing() const { return keepsNothing_; }
    // To what has room for both wishes: a film, or what one is made by.
    template <class Film> void apply(Film& film) const {
        film.memoryBytes = memoryBytes_;
        film.pieceStore = store();
    }

private:
    std::optional<std::filesystem::path> store() const;

    bool keepsNothing_ = false;
    std::size_t memoryBytes_ = 0;
};

// Of the film that is asked for, without its output.
CompositionRenderer::Config configOf(
    const DocumentFile& document, const FilmArguments& film, const OutputChoice& choice);

// "hello-segment-0003-8d1f0c6e5b2a4793.piece": with the beginning of its key, so that one of another state of
// the document is never taken for it. Throws `Failure` where there is none, for a file that cannot be read.
std::string pieceFileName(
    const std::string& film, std::size_t index, const FilmPiece& piece, const PieceKeys& keys);

}   // namespace tavix::engine
