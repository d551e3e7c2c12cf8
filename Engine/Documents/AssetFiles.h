// The files that a document refers to, and where they lie.
#pragma once

#include "Engine/Documents/DocumentFile.h"
#include "TavixCore/Project/AssetReferences.h"

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace tavix::engine {

struct AssetFile {
    AssetKind kind;
    std::string written;          // in the document
    std::filesystem::path path;   // absolute, with no "." or ".." in it
};

// In the order of the document; a name of an installed font or of a built-in sound is no file.
std::vector<AssetFile> assetFilesOf(const DocumentFile& document);

// Throws `UsageError` when writing the target would destroy a file that the document uses.
void requireNoAsset(const std::filesystem::path& target, const DocumentFile& document);

// Likewise for files that are named here, as absolute paths.
void requireNoneOf(const std::filesystem::path& target, std::span<const std::filesystem::path> files);

// Whether the path lies in the folder, also once all links are followed.
bool isWithin(const std::filesystem::path& path, const std::filesystem::path& folder);

}   // namespace tavix::engine
