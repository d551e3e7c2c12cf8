#include "TavixReel/Authoring/TeaserSpec.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<TeaserSpec::Beat>& fieldsOf(std::type_identity<TeaserSpec::Beat>) {
    using B = TeaserSpec::Beat;
    static const Fields<B> table{"TeaserBeat",
        {field<&B::text>("text", "The headline."),
            field<&B::holdSec>("holdSec", "How long it stands, in seconds; 1.2 to 8 in the end.")
                .measuredIn(Unit::seconds),
            field<&B::subline>("subline", "A smaller line below it."),
            field<&B::preset>("preset", "How it moves: a preset of kinetic text; fade-up when absent."),
            field<&B::sizeFraction>(
                "sizeFraction", "Text size as a fraction of the canvas height; by its words when absent.")
                .measuredIn(Unit::canvasHeights),
            field<&B::color>("color", "Colour of the text; white when absent."),
            field<&B::font>("font", "A font's short name, or what it calls itself."),
            field<&B::fontPath>("fontPath", "The font file.").as(Role::fontPath)}};
    return table;
}

const Fields<TeaserSpec>& fieldsOf(std::type_identity<TeaserSpec>) {
    using T = TeaserSpec;
    static const Fields<T> table{
        "Teaser", {field<&T::output>("output", "The frame of the film.").required(),
                      field<&T::background>("background", "What is behind the headlines."),
                      field<&T::beats>("beats", "The headlines, in their order.")}};
    return table;
}

}   // namespace tavix
