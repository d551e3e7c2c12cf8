// A film that is made of pieces, whatever it is made from: all that the road from its frames to its file
// asks.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixCore/Document/CompositionAudio.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Composition2D/RenderRoom.h"
#include "TavixRender/Encoding/FilmWriter.h"
#include "TavixRender/Export/FilmPieces.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct PiecedFilm {
    // Draws the frames of a film; used by one thread.
    class Painter {
    public:
        virtual ~Painter() = default;
        virtual imaging::Image frame(double atSec) = 0;
        // The parts of the document that a frame shows. A piece is not kept where something was told of one
        // of them: when it is found again it says nothing.
        virtual std::vector<std::size_t> partsAt(double atSec) const = 0;
    };
    // By what the pieces of a film are known: two with the same key are the same, byte by byte.
    class Keys {
    public:
        virtual ~Keys() = default;
        // Nothing for what cannot be told, as of a file that cannot be read.
        virtual std::optional<Digest> of(const FilmPiece& piece) const = 0;
        // Whether the files of the piece are still those that its key was made from.
        virtual bool holds(const FilmPiece& piece) const = 0;
    };
    struct Sound {
        CompositionAudio audio;
        std::optional<std::filesystem::path> assetRoot;
        double totalSec = 0;
    };

    FilmFile file;
    std::string headline;   // what a render says first
    imaging::Size size;
    FrameRate fps;
    std::int64_t frameCount = 0;
    std::vector<FilmPiece> pieces;
    std::optional<Sound> sound;
    // The evaluator outlives the painter, which gets by with that room. Throws a `Failure` for
    // what cannot be drawn at all.
    std::function<std::unique_ptr<Painter>(
        imaging::Evaluator& evaluator, const RenderLog& log, const RenderRoom& room)>
        painter;
    // Of pieces that are encoded so. Reads the files that the film is made from.
    std::function<std::unique_ptr<Keys>(const FilmFile& encoding)> keys;

    // The film as it is at another size, laid out anew; absent: frames can only be scaled.
    std::function<PiecedFilm(imaging::Size size)> atSize = {};

    imaging::EvaluatorOptions evaluation = {};
    // Where finished pieces are kept for the next render; absent: nowhere.
    std::optional<std::filesystem::path> pieceStore = {};
    std::size_t memoryBytes = 0;   // that may be taken; 0: a quarter of the machine's
    std::optional<std::int64_t> mostBytes =
        {};   // that a finished file may have; not of pictures, nor of ProRes
};

}   // namespace tavix
