// From a place in the document as its author wrote it to what is selected in the editor.
#pragma once

#include "TavixCore/Paths/JsonPointer.h"

#include <cstddef>
#include <optional>
#include <string>

namespace tavix {
class CompositionEditorModel;
struct CompositionSpec;
}   // namespace tavix

namespace tavix::editor {

struct WrittenPlace {
    std::optional<std::size_t> scene, layer;   // in the document as it was read; neither: all of the film
    std::string key;                           // the last word of the place, where that is none of those two
    bool operator==(const WrittenPlace&) const = default;
};

// `spec` is what the document was read as. What a formation became is told by its first layer.
WrittenPlace placeOf(const JsonPointer& at, const CompositionSpec& spec);
// "Scene 2 · headline · Font size"
std::string wordsOf(const WrittenPlace& place, const CompositionSpec& spec);

// Selects it, and brings the playhead to where it is seen unless it is there already.
void goTo(CompositionEditorModel& model, const WrittenPlace& place);

}   // namespace tavix::editor
