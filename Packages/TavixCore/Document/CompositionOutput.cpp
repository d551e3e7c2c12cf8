#include "TavixCore/Document/CompositionOutput.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<CompositionOutput>& fieldsOf(std::type_identity<CompositionOutput>) {
    static const Fields<CompositionOutput> table{"CompositionOutput",
        {field<&CompositionOutput::widthPx>("widthPx", "Width of the frames; even, for films.")
                .measuredIn(Unit::pixels),
            field<&CompositionOutput::heightPx>("heightPx", "Height of the frames; even, for films.")
                .measuredIn(Unit::pixels),
            field<&CompositionOutput::fps>("fps",
                "Frames per second: a number, or a fraction such as 30000/1001; 29.97 means that one.")}};
    return table;
}

}   // namespace tavix
