#include "TavixCore/Typography/TextContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<TextContent>& fieldsOf(std::type_identity<TextContent>) {
    using T = TextContent;
    static const Fields<T> table{"TextContent",
        {field<&T::text>("text", "What is written; a line break starts a new line."),
            field<&T::emphasis>("emphasis", "Words with a look of their own.").unlessDefault(),
            field<&T::sizeFraction>("sizeFraction", "Text size as a fraction of the canvas height."),
            field<&T::font>("font", "Which font; the theme's when absent.").as(Role::font),
            field<&T::fontWeight>("fontWeight", "How heavy the letters are."),
            field<&T::color>("color", "Colour of the letters."),
            field<&T::shadow>("shadow", "A shadow behind the letters."),
            field<&T::maxWidthFraction>(
                "maxWidthFraction", "Widest line, as a fraction of the canvas width."),
            field<&T::trackingEm>("trackingEm", "Extra space between letters.").unlessDefault(),
            field<&T::alignment>("alignment", "Where lines start: left, center or right."),
            field<&T::kinetic>("kinetic", "How the text comes, stays and goes.")}};
    return table;
}

}   // namespace tavix
