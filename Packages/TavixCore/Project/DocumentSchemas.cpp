#include "TavixCore/Project/DocumentSchemas.h"

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Support/Document.h"

#include <array>

namespace tavix {

std::span<const DocumentSchema> documentSchemas() {
    static constexpr std::array<DocumentSchema, 13> schemas{{
        {"composition", "A whole composition.json.", schemaOf<CompositionSpec>},
        {"scene", "One scene.", schemaOf<CompositionScene>},
        {"layer", "One layer of a scene.", schemaOf<CompositionLayer>},
        {"text", "The payload of a text layer.", schemaOf<TextContent>},
        {"device", "The payload of a device layer.", schemaOf<DeviceContent>},
        {"image", "The payload of an image layer.", schemaOf<ImageContent>},
        {"video", "The payload of a video layer.", schemaOf<VideoContent>},
        {"shape", "The payload of a shape layer.", schemaOf<ShapeContent>},
        {"fill", "The payload of a fill layer, and every background.", schemaOf<BackgroundFill>},
        {"track", "The keyframes of one property.", schemaOf<PropertyTrack>},
        {"effect", "One image effect of a layer.", schemaOf<LayerEffect>},
        {"transition", "How a scene gives way to the next.", schemaOf<SceneTransition>},
        {"audio", "Music and sound cues.", schemaOf<CompositionAudio>},
    }};
    return schemas;
}

const DocumentSchema* documentSchema(std::string_view name) {
    for (const DocumentSchema& schema : documentSchemas())
        if (schema.name == name) return &schema;
    return nullptr;
}

}   // namespace tavix
