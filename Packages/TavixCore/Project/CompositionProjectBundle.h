// A composition on disk: a folder with the document and the files that it uses.
#pragma once

#include "TavixCore/Composition/CompositionSpec.h"

#include <filesystem>
#include <string_view>

namespace tavix::CompositionProjectBundle {

inline constexpr std::string_view pathExtension = "tavixcomp";
inline constexpr std::string_view specName = "composition.json";

std::filesystem::path specFile(const std::filesystem::path& bundle);

// Whether the name ends in `pathExtension` and the document is there.
bool isBundle(const std::filesystem::path& bundle);

// Reads the document. A file that cannot be read is a `Failure`, a document that cannot a `DecodingError`.
CompositionSpec read(const std::filesystem::path& bundle);

}   // namespace tavix::CompositionProjectBundle
