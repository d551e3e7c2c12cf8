// Where a composition refers to files.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Type.h"

#include <functional>
#include <string>

namespace tavix {

class AssetPacker;

enum class AssetKind {
    font,
    wishedFont,   // of a text, which is set in another one where the file is missing
    picture,
    clip,
    recording,   // a clip whose marks stand in a file beside it
    reel,        // a folder
    sound,
};

// Visits every reference to a file, from the document's head to its sound; one may be empty. Names of
// installed fonts and of built-in sounds are no references.
using AssetVisit = std::function<void(AssetKind kind, std::string& path)>;
void forEachAsset(CompositionSpec& spec, const AssetVisit& visit);
// The same for a document of any type.
void forEachAsset(const Type& type, void* document, const AssetVisit& visit);

// Packs every file that the document refers to and makes the references those of the packed document. The
// order decides which of two files of one name keeps it.
void packReferences(CompositionSpec& spec, AssetPacker& packer);

}   // namespace tavix
