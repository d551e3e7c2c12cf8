#include "TavixCore/Document/LayerContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Alternatives<LayerContent>& alternativesOf(std::type_identity<LayerContent>) {
    static const Alternatives<LayerContent> table{.name = "LayerContent",
        .noun = "layer kind",
        .rows = {keyed<LayerContent, TextContent>("text", "text").orDefault(),
            keyed<LayerContent, DeviceContent>("device", "device").orDefault(),
            keyed<LayerContent, ImageContent>("image", "image"),
            keyed<LayerContent, VideoContent>("video", "video"),
            keyed<LayerContent, ShapeContent>("shape", "shape").orDefault(),
            keyed<LayerContent, BackgroundFill>("fill", "fill")},
        .tag = Alternatives<LayerContent>::Tag::emptyIfAbsent};
    return table;
}

const std::vector<std::string_view>& layerKinds() {
    static const std::vector<std::string_view> kinds = allTags<LayerContent>();
    return kinds;
}

std::string_view kindName(const LayerContent& content) { return alternativeOf(content).tag; }

}   // namespace tavix
