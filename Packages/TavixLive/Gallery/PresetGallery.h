// Every device motion and formation, as a browser of them shows it.
#pragma once

#include "TavixCore/Device/DeviceChoreographyRef.h"
#include "TavixCore/Device/DeviceMotionRef.h"
#include "TavixCore/Document/CompositionSpec.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tavix {

struct PresetGalleryItem {
    enum class Family { motion, formation };
    enum class Collection { entrance, exit, move, showcase, original, formation };
    enum class Dimension { flat, spatial };

    std::string id, title;
    Family family = Family::motion;
    Collection collection = Collection::entrance;
    Dimension dimension = Dimension::flat;
    double durationSec = 0;
    int elementCount = 1;
    std::variant<DeviceMotionPreset, DeviceChoreographyPreset> source;
    int accentIndex = 0;   // neighbours show different artwork by it

    std::string authoringName() const;   // as it is written in a document
    std::string thumbnailAssetName() const;
    // A document that shows it.
    CompositionSpec previewSpec(const std::string& screenPath, const CompositionOutput& output) const;
};

// What people read.
std::string_view displayName(PresetGalleryItem::Family family);
std::string_view displayName(PresetGalleryItem::Collection collection);
std::string_view displayName(PresetGalleryItem::Dimension dimension);

namespace PresetGalleryCatalog {

const std::vector<PresetGalleryItem>& all();
// The words before the first dash.
std::string title(std::string_view full);

}   // namespace PresetGalleryCatalog

}   // namespace tavix
