#include "TavixCore/Document/ImageContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<ImageContent>& fieldsOf(std::type_identity<ImageContent>) {
    static const Fields<ImageContent> table{"ImageContent",
        {field<&ImageContent::path>("path", "The picture file, relative to the asset root.")
                .as(Role::picture),
            field<&ImageContent::heightFraction>("heightFraction", "Its height, of the canvas height."),
            field<&ImageContent::cornerRadiusFraction>("cornerRadiusFraction", "How round its corners are."),
            field<&ImageContent::sourceRect>("sourceRect", "The part of the picture that is shown.")}};
    return table;
}

}   // namespace tavix
