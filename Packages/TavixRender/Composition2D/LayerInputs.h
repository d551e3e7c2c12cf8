// All that the picture of a layer is made from, apart from the canvas and the time: equal inputs give equal
// pictures, so a layer that was built for one document serves the next.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixRender/Assets/FileIdentity.h"
#include "TavixRender/DeviceScene/Composition3DRendererPool.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tavix {

// A file that a document names, and what it is now; nothing where there is none.
using UsedFile = std::pair<std::filesystem::path, std::optional<FileIdentity>>;

struct LayerInputs {
    struct Place {
        const CompositionSpec& spec;
        std::optional<std::filesystem::path> assetRoot;
        double windowSec;                         // of the layer
        std::int64_t presetSeed;                  // of a text
        Composition3DRendererPool::Key poolKey;   // of a device in space
    };

    LayerContent content;
    std::vector<UsedFile> files;
    // What counts for some kinds only, and is left as it is here for others.
    PixelPoint position{0, 0};
    double magnification = 1;
    double windowSec = 0;
    std::int64_t presetSeed = 0;
    std::map<std::string, std::string> fonts = {};
    std::optional<Composition3DRendererPool::Key> poolKey = {};

    static LayerInputs of(const CompositionLayer& layer, const Place& place);
    bool operator==(const LayerInputs&) const = default;
};

// The files that a scene names; fonts by the names that the document gives them too.
std::vector<UsedFile> filesOf(const CompositionScene& scene, const std::map<std::string, std::string>& fonts,
    const std::optional<std::filesystem::path>& assetRoot);
// The files that a screen shows.
std::vector<UsedFile> filesOf(
    const ScreenSource& source, const std::optional<std::filesystem::path>& assetRoot);
// The files that a fill names.
std::vector<UsedFile> filesOf(
    const BackgroundFill& fill, const std::optional<std::filesystem::path>& assetRoot);

}   // namespace tavix
