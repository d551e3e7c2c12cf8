// Files that are dropped on a window: taken into the bundle, and made layers or the music.
#pragma once

#include "Editor/EditorDomain/Stage/StageMap.h"
#include "TavixLive/Operations/EditState.h"
#include "TavixPlatform/Imaging/Bitmap.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavix::editor {

class Studio;

enum class DropKind { bundle, picture, clip, music, other };

// By what it is called; a bundle by being one.
DropKind kindOfDrop(const std::filesystem::path& file);
// "*.png *.jpg": how files of that kind are called.
std::string patternsOf(DropKind kind);
inline bool fitsAScreen(DropKind kind) { return kind == DropKind::picture || kind == DropKind::clip; }

// A file among the assets of a bundle.
struct DroppedAsset {
    DropKind kind = DropKind::other;
    std::string path;     // as the document says it
    imaging::Size size;   // of a picture or a clip; 0 where it cannot be told
};

// Copies the file into the assets of the bundle, unless it lies there or the same bytes do. A name that is
// taken by other bytes gets a number; no file is ever replaced. Throws a `Failure`.
DroppedAsset takeIn(const std::filesystem::path& file, const std::filesystem::path& bundle);

struct DropPlace {
    double atSec = 0;   // on the film's clock
    // In pixels of the canvas; the middle where it is none.
    std::optional<std::pair<double, double>> point = {};
    std::optional<StagePlace> phone = {};   // which is under that point
};

// A layer for each picture and clip, in the scene of that time and from then on, the last one selected; the
// music is the last one. Over a phone the first picture or clip becomes its screen instead.
void addDropped(EditState& state, const std::vector<DroppedAsset>& assets, const DropPlace& place);

// All of it, as one step; what cannot be taken in is told as the model's error, and the rest is.
void drop(Studio& studio, const std::vector<std::filesystem::path>& files, const DropPlace& place);

}   // namespace tavix::editor
