#include "TavixReel/Document/TitleCard.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Typography/KineticPresetCatalog.h"

namespace tavix {

const KineticStyle& CardText::usualKinetic() {
    static const KineticStyle style = KineticPresetCatalog::resolve({}).style;
    return style;
}

TitleCard TitleCard::clamped(TitleCard card) { return clampedByTable(std::move(card)); }

const Fields<CardText>& fieldsOf(std::type_identity<CardText>) {
    using T = CardText;
    static const Fields<T> table{"CardText",
        {field<&T::text>("text", "What it says."), field<&T::emphasis>("emphasis", "Words that stand out."),
            field<&T::sizeFraction>("sizeFraction", "Text size as a fraction of the canvas height.")
                .measuredIn(Unit::canvasHeights),
            field<&T::fontName>("fontName", "What the font calls itself; the system's own when absent."),
            field<&T::fontPath>("fontPath", "The font file.").as(Role::fontPath),
            field<&T::fontWeight>("fontWeight", "Weight of the font."),
            field<&T::color>("color", "Colour of the text."),
            field<&T::shadow>("shadow", "Soft shadow under the text."),
            field<&T::maxWidthFraction>(
                "maxWidthFraction", "Greatest width of a line, as a fraction of the canvas width.")
                .measuredIn(Unit::canvasWidths),
            field<&T::delaySec>("delaySec", "Seconds from the card's start to the text's.")
                .measuredIn(Unit::seconds),
            field<&T::kinetic>("kinetic", "How it moves."),
            field<&T::strokeWidthFraction>("strokeWidthFraction", "Width of the outline.")
                .measuredIn(Unit::canvasHeights),
            field<&T::strokeColor>("strokeColor", "Colour of the outline."),
            field<&T::textGradient>("textGradient", "Gradient that fills the text."),
            field<&T::alignment>("alignment", "How its lines stand to one another.")}};
    return table;
}

const Fields<AtStart>& fieldsOf(std::type_identity<AtStart>) {
    static const Fields<AtStart> table{"AtStart", {}};
    return table;
}

const Fields<AfterStep>& fieldsOf(std::type_identity<AfterStep>) {
    static const Fields<AfterStep> table{
        "AfterStep", {field<&AfterStep::index>("index", "The number of the step.").required()}};
    return table;
}

const Fields<AtEnd>& fieldsOf(std::type_identity<AtEnd>) {
    static const Fields<AtEnd> table{"AtEnd", {}};
    return table;
}

const Fields<CustomAnchor>& fieldsOf(std::type_identity<CustomAnchor>) {
    static const Fields<CustomAnchor> table{"CustomAnchor", {}};
    return table;
}

const Alternatives<TitleCardAnchor>& alternativesOf(std::type_identity<TitleCardAnchor>) {
    using A = TitleCardAnchor;
    static const Alternatives<A> table{.name = "TitleCardAnchor",
        .noun = "card anchor",
        .rows = {flat<A, AtStart>("atStart"), flat<A, AfterStep>("afterStep"), flat<A, AtEnd>("atEnd"),
            flat<A, CustomAnchor>("custom")}};
    return table;
}

const Fields<TitleCard>& fieldsOf(std::type_identity<TitleCard>) {
    using C = TitleCard;
    static const Fields<C> table{"TitleCard",
        {field<&C::anchor>("anchor", "What it was placed by."),
            field<&C::insertionSec>("insertionSec", "Before which moment of the recording it stands.")
                .measuredIn(Unit::seconds),
            field<&C::durationSec>("durationSec", "How long it stands, in seconds.")
                .measuredIn(Unit::seconds)
                .clamped(1.2, 8),
            field<&C::background>("background", "What is behind it; the reel's own when absent."),
            field<&C::headline>("headline", "Its first text."), field<&C::subline>("subline", "Its second."),
            field<&C::showLogo>("showLogo", "Whether it bears a logo."),
            field<&C::logoPath>("logoPath", "The picture of the logo.").as(Role::picture),
            field<&C::logoSizeFraction>("logoSizeFraction", "Its size as a fraction of the canvas height.")
                .measuredIn(Unit::canvasHeights)}};
    return table;
}

}   // namespace tavix
