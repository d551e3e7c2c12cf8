#include "TavixCore/Animation/MarkRef.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<MarkRef>& fieldsOf(std::type_identity<MarkRef>) {
    static const Fields<MarkRef> table{.name = "MarkRef",
        .rows = {field<&MarkRef::mark>("mark", "The label of the recorded event."),
            field<&MarkRef::clip>("clip", "The recording it belongs to, when it is not the layer's own."),
            field<&MarkRef::offsetSec>("offsetSec", "How long after the event; before it when negative.")
                .measuredIn(Unit::seconds)
                .unlessDefault()},
        .bareKey = "mark"};
    return table;
}

}   // namespace tavix
