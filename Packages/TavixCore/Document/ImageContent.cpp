#include "TavixCore/Document/ImageContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<ImageContent>& fieldsOf(std::type_identity<ImageContent>) {
    static const Fields<ImageContent> table{"ImageContent",
        {field<&ImageContent::path>("path", "The picture file, relative to the asset root.")
                .as(Role::picture),
            field<&ImageContent::heightFraction>(
                "heightFraction", "Its height; that of the picture in pixels when absent. The width follows.")
                .measuredIn(Unit::canvasHeights),
            field<&ImageContent::cornerRadiusFraction>(
                "cornerRadiusFraction", "How round its corners are; 0.5 is a half circle.")
                .measuredIn(Unit::shorterSides),
            field<&ImageContent::sourceRect>(
                "sourceRect", "The part of the picture that is shown, in shares of it from its top left.")
                .measuredIn(Unit::ownSides)}};
    return table;
}

}   // namespace tavix
