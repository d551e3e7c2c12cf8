#include "TavixReel/Document/Background.h"

#include "TavixCore/Support/FieldTables.h"

#include <utility>

namespace tavix {

namespace {

void useImage(Background& background, BackgroundImage image) { background.fill = std::move(image); }

}   // namespace

const Fields<Background>& fieldsOf(std::type_identity<Background>) {
    // The older key comes first, so that `fill` wins where both are given.
    static const Fields<Background> table{"Background",
        {olderField<Background, BackgroundImage, useImage>("image", "A picture; older form of fill."),
            field<&Background::fill>("fill", "What fills the frame."),
            field<&Background::padding>("padding", "Output pixels left free around the recording.")
                .measuredIn(Unit::pixels)
                .as(Role::pixelLength),
            field<&Background::shadow>("shadow", "The shadow under the recording."),
            field<&Background::device>("device", "The device frame around the recording.")}};
    return table;
}

}   // namespace tavix
