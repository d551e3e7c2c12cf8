#include "TavixRender/Composition2D/LayerInputs.h"

#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/FieldTables.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/LayerBuild.h"

#include <variant>

namespace tavix {

namespace {

using Fonts = std::map<std::string, std::string>;
using AssetRoot = std::optional<std::filesystem::path>;

template <class T> std::vector<UsedFile> filesIn(const T& value, const Fonts& fonts, const AssetRoot& root) {
    std::vector<UsedFile> files;
    const auto note = [&](const std::string& name) {
        const auto path = CompositionAssets::resolved(CompositionAssets::tildeExpanded(name).string(), root);
        files.emplace_back(path, FileIdentity::of(path));
    };
    walk(value, [&](const Place& place) {
        const auto* text = place.as<std::string>();
        if (text == nullptr || place.row == nullptr || text->empty()) return Walk::into;
        switch (place.row->role) {
        case Role::picture:
        case Role::clip:
        case Role::recording:
        case Role::fontFile: note(*text); break;
        case Role::reelFolder:
            for (const auto name : {ReelProjectBundle::rawVideoName, ReelProjectBundle::effectsName})
                note(*text + "/" + std::string(name));
            break;
        case Role::font: {
            const auto alias = fonts.find(*text);
            note(alias == fonts.end() ? *text : alias->second);
            break;
        }
        default: break;
        }
        return Walk::into;
    });
    return files;
}

}   // namespace

LayerInputs LayerInputs::of(const CompositionLayer& layer, const Place& place) {
    LayerInputs inputs{layer.content, filesIn(layer.content, place.spec.fonts, place.assetRoot)};
    if (std::holds_alternative<TextContent>(layer.content)) {
        inputs.position = layer.position;
        inputs.windowSec = place.windowSec;
        inputs.presetSeed = place.presetSeed;
        inputs.fonts = place.spec.fonts;
        return inputs;
    }
    if (std::holds_alternative<ShapeContent>(layer.content) ||
        std::holds_alternative<ImageContent>(layer.content))
        inputs.position = layer.position;
    inputs.magnification = peakMagnification(layer);
    if (const auto* device = std::get_if<DeviceContent>(&layer.content); device && device->scene3D)
        inputs.poolKey = place.poolKey;
    return inputs;
}

std::vector<UsedFile> filesOf(const CompositionScene& scene, const Fonts& fonts, const AssetRoot& assetRoot) {
    return filesIn(scene, fonts, assetRoot);
}

std::vector<UsedFile> filesOf(const ScreenSource& source, const AssetRoot& assetRoot) {
    return filesIn(source, {}, assetRoot);
}

std::vector<UsedFile> filesOf(const BackgroundFill& fill, const AssetRoot& assetRoot) {
    return filesIn(fill, {}, assetRoot);
}

}   // namespace tavix
