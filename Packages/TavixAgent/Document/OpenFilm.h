// A document opened to be looked at: its times in seconds, and where everything in it is.
#pragma once

#include "TavixAgent/Document/DocumentFile.h"
#include "TavixRender/Judge/FrameGeometry.h"

#include <string>

namespace tavix {

// Used by one thread at a time.
class OpenFilm {
public:
    // Throws as `requireRenderable`, and `DocumentError` for times that cannot be found.
    explicit OpenFilm(DocumentFile document);
    OpenFilm(const OpenFilm&) = delete;
    OpenFilm& operator=(const OpenFilm&) = delete;

    const DocumentFile& document() const { return document_; }
    const CompositionSpec& spec() const { return document_.spec; }
    const CompositionGeometry& geometry() const { return geometry_; }

    // JSON Pointers in the document as it is written.
    static std::string pathOf(std::size_t scene);
    std::string pathOf(std::size_t scene, std::size_t layer) const;

private:
    DocumentFile document_;
    FilmAssets assets_;
    CompositionGeometry geometry_;
};

}   // namespace tavix
