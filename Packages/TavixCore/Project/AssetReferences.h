// Where a composition refers to files.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

namespace tavix {

class AssetPacker;

// Packs every file that the document refers to and makes the references those of the packed document. The
// order, from the document's head to its sound, decides which of two files of one name keeps it.
void packReferences(CompositionSpec& spec, AssetPacker& packer);

}   // namespace tavix
