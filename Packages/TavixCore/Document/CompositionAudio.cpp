#include "TavixCore/Document/CompositionAudio.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionAudio>& fieldsOf(std::type_identity<CompositionAudio>) {
    static const Fields<CompositionAudio> table{"CompositionAudio",
        {field<&CompositionAudio::music>("music", "The music under everything."),
            field<&CompositionAudio::cues>("cues", "Sounds at single moments.").unlessDefault()}};
    return table;
}

}   // namespace tavix
