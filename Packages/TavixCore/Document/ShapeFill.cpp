#include "TavixCore/Document/ShapeFill.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Alternatives<ShapeFill>& alternativesOf(std::type_identity<ShapeFill>) {
    static const Alternatives<ShapeFill> table{.name = "ShapeFill",
        .noun = "fill kind",
        .rows = {keyed<ShapeFill, RGBAColor>("solid", "color").orElse([](ShapeFill& fill) {
                     fill = RGBAColor::white;
                 }),
            keyed<ShapeFill, LinearGradient>("gradient", "gradient").orElse([](ShapeFill& fill) {
                fill = LinearGradient::standard();
            })},
        .fallbackTag = "solid"};
    return table;
}

}   // namespace tavix
