// By what pieces of films are known: two with the same key are the same, byte by byte. A key is made of all
// that the piece's frames and their encoding depend on, and of nothing else, so that an edit misses the
// pieces that it touches and finds the others.
#pragma once

#include "TavixBase/Digest.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixRender/Composition2D/LayerInputs.h"
#include "TavixRender/Export/CompositionRenderer.h"
#include "TavixRender/Export/FilmPieces.h"

#include <optional>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class PieceKeys {
public:
    // The config's document has its beats, marks and presets resolved. Reads the files that it names.
    explicit PieceKeys(const CompositionRenderer::Config& config)
        : PieceKeys(config, CompositionRenderer::fileOf(config)) {}
    // Of pieces that are encoded otherwise than the config says.
    PieceKeys(const CompositionRenderer::Config& config, const FilmFile& encoding);

    // Nothing for what cannot be told, as of a file that cannot be read.
    std::optional<Digest> of(const FilmPiece& piece) const { return keyed(common_, piece); }
    // Of the document and its files alone, the same on every machine.
    std::optional<Digest> ofDocument(const FilmPiece& piece) const { return keyed(document_, piece); }
    // Whether the files of the piece are still those that its key was made from.
    bool holds(const FilmPiece& piece) const;

private:
    struct SceneKey {
        std::optional<Digest> digest;
        std::vector<UsedFile> files;
    };
    SceneKey sceneKey(std::size_t scene) const;
    std::optional<Digest> keyed(const Digest& common, const FilmPiece& piece) const;
    template <class Visit> void forScenesOf(const FilmPiece& piece, const Visit& visit) const;

    const CompositionSpec& spec_;
    std::optional<std::filesystem::path> assetRoot_;
    CompositionTimeline timeline_;
    Digest document_, common_;   // of what all pieces of the film share; the one without the machine
    std::vector<SceneKey> scenes_;
};

}   // namespace tavix
