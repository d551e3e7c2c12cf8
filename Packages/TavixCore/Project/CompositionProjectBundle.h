// A composition on disk: a folder with the document and the files that it uses.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tavix {

class FileOperations;

namespace CompositionProjectBundle {

inline constexpr std::string_view pathExtension = "tavixcomp";
inline constexpr std::string_view specName = "composition.json";
inline constexpr std::string_view assetsDirName = "assets";
inline constexpr std::string_view typeIdentifier = "com.tavix.composition";

std::filesystem::path specFile(const std::filesystem::path& bundle);
std::filesystem::path assetsFolder(const std::filesystem::path& bundle);

// Whether the name ends in `pathExtension` and the document is there.
bool isBundle(const std::filesystem::path& bundle);

// Reads the document. A file that cannot be read is a `Failure`, a document that cannot a `DecodingError`.
CompositionSpec read(const std::filesystem::path& bundle);

// Both leave the bundle as it was when they throw a `Failure`, and one that opens when they are cut off.

// Writes the document alone; its paths stay as they are.
void save(const CompositionSpec& spec, const std::filesystem::path& bundle);
void save(const CompositionSpec& spec, const std::filesystem::path& bundle, FileOperations& files);
// The same of a document as it is to stand in the file.
void saveText(const std::string& document, const std::filesystem::path& bundle);
void saveText(const std::string& document, const std::filesystem::path& bundle, FileOperations& files);

// Packs: copies every file that the document refers to into the bundle's assets, in the place of those that
// were there, and writes the document with the new paths. Relative paths hang from `assetRoot`, or from the
// current folder. Makes the bundle where there is none, and returns its path, which ends in `pathExtension`.
std::filesystem::path write(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const std::filesystem::path& to);
std::filesystem::path write(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const std::filesystem::path& to,
    FileOperations& files);

}   // namespace CompositionProjectBundle

}   // namespace tavix
