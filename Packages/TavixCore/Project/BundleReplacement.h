// Puts a new document, and with it new assets, in the place of those of a bundle: all of it or nothing.
#pragma once

#include "TavixCore/Project/FileOperations.h"

#include <filesystem>
#include <string_view>

namespace tavix::BundleReplacement {

// Where the files of a pack are gathered, until they take the place of the bundle's assets.
inline constexpr std::string_view stagingDirName = ".assets-staging";

// The order in which things change makes every moment of it one that `repair` understands:
//
//     .composition.json.next is complete      the new document, not yet valid
//     assets -> .assets-earlier               only for `replaceAll`
//     .assets-staging -> assets
//     .composition.json.next -> composition.json      from here on the new document is valid
//     .assets-earlier is removed
//
// A failure before the last arrow leaves the bundle as it was, and is thrown.
void replaceDocument(std::string_view document, const std::filesystem::path& bundle, FileOperations& files);
void replaceAll(std::string_view document, const std::filesystem::path& bundle, FileOperations& files);

// Whether a replacement was cut off while it exchanged the assets.
bool isUnfinished(const std::filesystem::path& bundle);
// Takes back what was cut off, or finishes it when the new document is already there.
void repair(const std::filesystem::path& bundle, FileOperations& files);

}   // namespace tavix::BundleReplacement
