// A document on the disk: a bundle or a bare file.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace tavix {

struct DocumentFile {
    std::string shownPath;             // as it was given, for messages
    std::string name;                  // of what is made from it: "first-light"
    std::filesystem::path folder;      // the bundle, or the folder that the document lies in; absolute
    std::filesystem::path assetRoot;   // what the paths of its files hang from
    CompositionSpec spec;
    std::filesystem::path file;   // the document itself, within its bundle
};

// A bundle or a bare document. A bundle's files hang from the bundle, those of a bare document from its
// `assetRoot` or its own folder. Throws `DocumentError`, or `Failure` when there is nothing to read.
DocumentFile readDocument(const std::string& given);

// What a document of any kind says of its film.
struct FilmClaim {
    std::string file;   // for messages
    std::int64_t widthPx = 0, heightPx = 0;
    FrameRate fps;
    double lengthSec = 0;
    const char *lengthPath, *lengthRemedy;   // what makes it long, and what to do
};
// Throws `DocumentError` for a frame size, a rate or a length that nobody can mean.
void requireRenderable(const FilmClaim& film);
void requireRenderable(const DocumentFile& document);

// The limits of what is rendered, for documents and for arguments.
inline constexpr int minSidePx = 2, maxSidePx = 8192;
inline constexpr int minFps = 1, maxFps = 240;
inline constexpr double maxHours = 6;

}   // namespace tavix
