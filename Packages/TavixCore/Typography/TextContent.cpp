#include "TavixCore/Typography/TextContent.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<TextContent>& fieldsOf(std::type_identity<TextContent>) {
    using T = TextContent;
    static const Fields<T> table{"TextContent",
        {field<&T::text>(
             "text", "What is written; a line break starts a new line. At most 20,000 characters."),
            field<&T::emphasis>("emphasis", "Words with a look of their own.").unlessDefault(),
            field<&T::sizeFraction>("sizeFraction", "Size of the text.").measuredIn(Unit::canvasHeights),
            field<&T::font>("font",
                "A key of the document's `fonts`, a font's name, a short name that `tavix presets fonts` lists, or a font file; the theme's when absent.")
                .as(Role::font),
            field<&T::fontWeight>("fontWeight", "How heavy the letters are."),
            field<&T::color>("color", "Colour of the letters."),
            field<&T::shadow>("shadow", "A shadow behind the letters."),
            field<&T::maxWidthFraction>("maxWidthFraction",
                "Widest block, of the canvas width. Beside it a margin of half of (1 - maxWidthFraction) of the canvas *height* stays free on either side, and lines keep 0.6 of the text's size from the block's edges.")
                .measuredIn(Unit::canvasWidths),
            field<&T::trackingEm>("trackingEm", "Extra space between letters.")
                .measuredIn(Unit::ems)
                .unlessDefault(),
            field<&T::alignment>("alignment", "Where lines start: left, center or right."),
            field<&T::kinetic>("kinetic", "How the text comes, stays and goes.")}};
    return table;
}

}   // namespace tavix
