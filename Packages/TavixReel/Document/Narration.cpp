#include "TavixReel/Document/Narration.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

CaptionStyle CaptionStyleOverride::resolved(CaptionStyle over) const {
    if (fontName) {
        const bool isSystem = *fontName == systemFontSentinel;
        over.fontName = isSystem ? std::nullopt : fontName;
        over.fontPath = isSystem ? std::nullopt : fontPath;
    }
    if (fontSizeFraction) over.fontSizeFraction = *fontSizeFraction;
    if (textColor) over.textColor = *textColor;
    if (barColor) over.barColor = *barColor;
    if (fontWeight) over.fontWeight = fontWeight;
    if (textShadow) over.textShadow = textShadow;
    return over;
}

std::vector<TimeRangeSec> Narration::windows() const {
    std::vector<TimeRangeSec> all;
    for (const Caption& caption : captions) all.push_back(caption.window);
    return all;
}

CaptionStyle Narration::styleOf(const Caption& caption) const {
    return caption.style ? caption.style->resolved(style) : style;
}

const Fields<CaptionStyleOverride>& fieldsOf(std::type_identity<CaptionStyleOverride>) {
    using O = CaptionStyleOverride;
    static const Fields<O> table{"CaptionStyleOverride",
        {field<&O::fontName>("fontName", "What the font calls itself; \"system\" is the system's own."),
            field<&O::fontPath>("fontPath", "The font file.").as(Role::fontPath),
            field<&O::fontSizeFraction>("fontSizeFraction", "Text size as a fraction of the canvas height.")
                .measuredIn(Unit::canvasHeights),
            field<&O::textColor>("textColor", "Colour of the text."),
            field<&O::barColor>("barColor", "Colour of the bar behind the text."),
            field<&O::fontWeight>("fontWeight", "Weight of the font."),
            field<&O::textShadow>("textShadow", "Soft shadow under the text.")}};
    return table;
}

const Fields<Caption>& fieldsOf(std::type_identity<Caption>) {
    using C = Caption;
    static const Fields<C> table{
        "Caption", {field<&C::stepIndex>("stepIndex", "The number of the step that it tells of."),
                       field<&C::text>("text", "What it says."),
                       field<&C::window>("window", "When it is on screen.").required(),
                       field<&C::position>("position", "Its middle on the canvas, as fractions; y down.")
                           .measuredIn(Unit::canvasSides),
                       field<&C::style>("style", "What it changes of the narration's style."),
                       field<&C::kinetic>("kinetic", "How it moves."),
                       field<&C::emphasis>("emphasis", "Words that stand out.").unlessDefault()}};
    return table;
}

const Names<Narration::Placement>& namesOf(std::type_identity<Narration::Placement>) {
    using enum Narration::Placement;
    static const Names<Narration::Placement> table{"caption placement",
        {{lowerThird, "lowerThird"}, {anchoredChip, "anchoredChip"}, {topStrip, "topStrip"}}};
    return table;
}

const Fields<Narration>& fieldsOf(std::type_identity<Narration>) {
    using N = Narration;
    static const Fields<N> table{"Narration",
        {field<&N::captions>("captions", "The lines."), field<&N::style>("style", "How they look."),
            field<&N::placement>("placement", "Where they stand."),
            field<&N::kineticDefaults>("kineticDefaults", "How they move, where none says it."),
            field<&N::beatGrid>("beatGrid", "The beats that they come in on.")}};
    return table;
}

}   // namespace tavix
