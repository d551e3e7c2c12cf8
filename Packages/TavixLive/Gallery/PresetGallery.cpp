#include "TavixLive/Gallery/PresetGallery.h"

#include "TavixBase/TextTrimming.h"
#include "TavixCore/Choreography/DeviceChoreographyExpander.h"
#include "TavixCore/Choreography/DeviceMotionExpander.h"
#include "TavixCore/Device/DeviceMotionRows.h"
#include "TavixCore/Support/FieldTables.h"

#include <algorithm>
#include <utility>

namespace tavix {

namespace {

constexpr double exitDelaySec = 0.6;   // so that the device is seen before it leaves
constexpr double formationStaggerSec = 0.14, formationPaddingPx = 82;

PresetGalleryItem::Collection collectionOf(DeviceMotionCategory category) {
    using enum PresetGalleryItem::Collection;
    switch (category) {
    case DeviceMotionCategory::entrance: return entrance;
    case DeviceMotionCategory::exit: return exit;
    case DeviceMotionCategory::move: return move;
    case DeviceMotionCategory::showcase: break;
    }
    return showcase;
}

PresetGalleryItem itemOf(const DeviceMotionRow& row) {
    PresetGalleryItem item;
    item.id = "motion." + std::string(row.name);
    item.title = row.title;
    const bool isOriginal = row.frames.empty();
    item.collection = isOriginal ? PresetGalleryItem::Collection::original : collectionOf(row.category);
    item.dimension = row.uses3D ? PresetGalleryItem::Dimension::spatial : PresetGalleryItem::Dimension::flat;
    const auto preset = *DeviceMotionPreset::fromRawValue(row.name);
    item.durationSec = DeviceMotionExpander::expand(preset, {}).sceneDurationSec;
    item.source = preset;
    return item;
}

PresetGalleryItem itemOf(DeviceChoreographyPreset preset) {
    using enum DeviceChoreographyPreset;
    const DeviceChoreographyTraits& traits = traitsOf(preset);
    PresetGalleryItem item;
    item.id = "formation." + std::string(nameOf(preset));
    item.title = PresetGalleryCatalog::title(traits.label);
    item.family = PresetGalleryItem::Family::formation;
    item.collection = PresetGalleryItem::Collection::formation;
    item.dimension =
        traits.uses3DDevices ? PresetGalleryItem::Dimension::spatial : PresetGalleryItem::Dimension::flat;
    item.durationSec = traits.naturalDurationSec;
    // These two fill the small canvas of the gallery better with one more.
    item.elementCount = traits.naturalCount + (preset == fanDeck || preset == uiBurst ? 1 : 0);
    item.source = preset;
    return item;
}

}   // namespace

std::string PresetGalleryItem::authoringName() const {
    if (const auto* motion = std::get_if<DeviceMotionPreset>(&source)) return motion->rawValue();
    return std::string(nameOf(std::get<DeviceChoreographyPreset>(source)));
}

std::string PresetGalleryItem::thumbnailAssetName() const {
    std::string name = "preset-gallery-" + id;
    std::ranges::replace(name, '.', '-');
    return name;
}

CompositionSpec PresetGalleryItem::previewSpec(
    const std::string& screenPath, const CompositionOutput& output) const {
    if (const auto* motion = std::get_if<DeviceMotionPreset>(&source)) {
        DeviceMotionParams params;
        if (deviceMotionRow(motion->rawValue())->category == DeviceMotionCategory::exit)
            params.startAtSec = exitDelaySec;
        return DeviceMotionExpander::expand(*motion, params).previewSpec(screenPath, output);
    }
    DeviceContent device;
    device.screen = StillScreen{screenPath};
    device.basePaddingPx = formationPaddingPx;
    CompositionLayer layer;
    layer.id = "preview-source";
    layer.content = std::move(device);
    DeviceChoreographyParams params;
    params.durationSec = durationSec;
    params.count = elementCount;
    params.staggerSec = formationStaggerSec;
    DeviceChoreography made = *DeviceChoreographyExpander::expand(
        std::get<DeviceChoreographyPreset>(source), layer, output, params);
    CompositionScene scene;
    scene.durationSec = made.durationSec;
    scene.layers = std::move(made.layers);
    CompositionSpec spec;
    spec.output = output;
    spec.scenes.push_back(std::move(scene));
    return spec;
}

std::string_view displayName(PresetGalleryItem::Family family) {
    return family == PresetGalleryItem::Family::motion ? "Single Device" : "Formation";
}

std::string_view displayName(PresetGalleryItem::Collection collection) {
    using enum PresetGalleryItem::Collection;
    switch (collection) {
    case entrance: return "Entrances";
    case exit: return "Exits";
    case move: return "In-Scene Moves";
    case showcase: return "Showcases";
    case original: return "Tavix Originals";
    case formation: break;
    }
    return "Formations";
}

std::string_view displayName(PresetGalleryItem::Dimension dimension) {
    return dimension == PresetGalleryItem::Dimension::flat ? "2D" : "3D";
}

std::string PresetGalleryCatalog::title(std::string_view full) {
    return std::string(trimmed(full.substr(0, full.find("—"))));
}

const std::vector<PresetGalleryItem>& PresetGalleryCatalog::all() {
    static const std::vector<PresetGalleryItem> items = [] {
        std::vector<PresetGalleryItem> made;
        for (const DeviceMotionRow& row : deviceMotionRows()) made.push_back(itemOf(row));
        for (const DeviceChoreographyPreset preset : allCases<DeviceChoreographyPreset>())
            made.push_back(itemOf(preset));
        for (std::size_t i = 0; i < made.size(); ++i) made[i].accentIndex = int(i);
        return made;
    }();
    return items;
}

}   // namespace tavix
