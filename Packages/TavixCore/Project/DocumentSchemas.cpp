#include "TavixCore/Project/DocumentSchemas.h"

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"

#include <array>

namespace tavix {

Json DocumentSchema::schema() const { return schemaOf(type(), name); }

std::span<const DocumentSchema> documentSchemas() {
    static constexpr std::array<DocumentSchema, 13> schemas{{
        {"composition", "A whole composition.json.", typeOf<CompositionSpec>},
        {"scene", "One scene.", typeOf<CompositionScene>},
        {"layer", "One layer of a scene.", typeOf<CompositionLayer>},
        {"text", "The payload of a text layer.", typeOf<TextContent>},
        {"device", "The payload of a device layer.", typeOf<DeviceContent>},
        {"image", "The payload of an image layer.", typeOf<ImageContent>},
        {"video", "The payload of a video layer.", typeOf<VideoContent>},
        {"shape", "The payload of a shape layer.", typeOf<ShapeContent>},
        {"fill", "The payload of a fill layer, and every background.", typeOf<BackgroundFill>},
        {"track", "The keyframes of one property.", typeOf<PropertyTrack>},
        {"effect", "One image effect of a layer.", typeOf<LayerEffect>},
        {"transition", "How a scene gives way to the next.", typeOf<SceneTransition>},
        {"audio", "Music and sound cues.", typeOf<CompositionAudio>},
    }};
    return schemas;
}

const DocumentSchema* documentSchema(std::string_view name) {
    for (const DocumentSchema& schema : documentSchemas())
        if (schema.name == name) return &schema;
    return nullptr;
}

}   // namespace tavix
