// The field tables of shadows and font weights.
#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Values/FontWeight.h"
#include "TavixCore/Values/Shadow.h"
#include "TavixCore/Values/TextShadow.h"

#include <array>

namespace tavix {

const Fields<Shadow>& fieldsOf(std::type_identity<Shadow>) {
    static const Fields<Shadow> table{"Shadow",
        {field<&Shadow::radius>("radius", "How soft it is: the standard deviation of a blur.")
                .measuredIn(Unit::pixels)
                .required()
                .as(Role::pixelLength),
            field<&Shadow::opacity>("opacity", "How dark it is.").measuredIn(Unit::fraction).required(),
            field<&Shadow::offsetY>("offsetY", "How far below it falls.")
                .measuredIn(Unit::pixels)
                .required()
                .as(Role::pixelLength),
            field<&Shadow::color>("color", "Its colour.").required()}};
    return table;
}

const Fields<TextShadow>& fieldsOf(std::type_identity<TextShadow>) {
    static const Fields<TextShadow> table{"TextShadow",
        {field<&TextShadow::color>("color", "Its colour."),
            field<&TextShadow::opacity>("opacity", "How dark it is.").measuredIn(Unit::fraction),
            field<&TextShadow::radiusFraction>(
                "radiusFraction", "How soft it is: the standard deviation of a blur.")
                .measuredIn(Unit::canvasHeights),
            field<&TextShadow::offset>(
                "offset", "Where it falls: x to the right, y downwards, both in shares of the canvas height.")
                .measuredIn(Unit::canvasHeights)}};
    return table;
}

const Names<FontWeight>& namesOf(std::type_identity<FontWeight>) {
    static const Names<FontWeight> table{"font weight",
        {{FontWeight::light, "light"}, {FontWeight::regular, "regular"}, {FontWeight::medium, "medium"},
            {FontWeight::semibold, "semibold"}, {FontWeight::bold, "bold"}, {FontWeight::heavy, "heavy"},
            {FontWeight::black, "black"}},
        FontWeight::regular};
    return table;
}

FontWeight oneStepHeavier(FontWeight weight) {
    return weight == FontWeight::black ? weight : static_cast<FontWeight>(static_cast<int>(weight) + 1);
}

double coreTextWeight(FontWeight weight) {
    static constexpr std::array<double, 7> weights = {-0.4, 0, 0.23, 0.3, 0.4, 0.56, 0.62};
    return weights[static_cast<std::size_t>(weight)];
}

}   // namespace tavix
