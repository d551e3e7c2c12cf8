// Where the layers of one document stand on the canvas at any time, to take hold of them.
#pragma once

#include "Editor/EditorDomain/Stage/StageEdits.h"
#include "TavixRender/Judge/FrameGeometry.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

struct StagePlace {
    std::size_t scene = 0, layer = 0;
    bool operator==(const StagePlace&) const = default;
};

struct StageLayer {
    StagePlace place;
    PixelRect box;   // of its ink, in canvas pixels from the top left
    std::string name;
    StageStand stand = {};
};

// Takes milliseconds to make, and reads the heads of files: made off the main thread, used by one at a time.
class StageMap {
public:
    StageMap(CompositionSpec spec, const std::optional<std::filesystem::path>& assetRoot);

    // Those that are seen at a time of the film, from back to front; in a transition those of both scenes.
    std::vector<StageLayer> layersAt(double atSec) const;
    // The front one whose ink is under the point. What fills the whole canvas is taken only when nothing
    // else is there.
    std::optional<StageLayer> hit(PixelPoint canvas, double atSec) const;
    // Nothing while the layer is not shown.
    std::optional<StageLayer> layer(const StagePlace& place, double atSec) const;

private:
    std::vector<CompositionTimeline::ActiveScene> scenesAt(double atSec) const;
    StageLayer named(std::size_t scene, const LayerGeometry& geometry) const;
    StageStand standOf(std::size_t scene, const LayerGeometry& geometry) const;

    CompositionSpec spec_;        // the geometry refers to it
    mutable FilmAssets assets_;   // looks at each file once
    CompositionGeometry geometry_;
};

}   // namespace tavix
