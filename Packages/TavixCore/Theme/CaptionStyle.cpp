#include "TavixCore/Theme/CaptionStyle.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const CaptionStyle& CaptionStyle::standard() {
    static const CaptionStyle style;
    return style;
}

const Fields<CaptionStyle>& fieldsOf(std::type_identity<CaptionStyle>) {
    using S = CaptionStyle;
    static const Fields<S> table{"CaptionStyle",
        {field<&S::fontName>("fontName", "What the font calls itself; the system's own font when absent."),
            field<&S::fontPath>("fontPath", "The font file.").as(Role::fontPath),
            field<&S::fontSizeFraction>("fontSizeFraction", "Size of the text.")
                .measuredIn(Unit::canvasHeights),
            field<&S::textColor>("textColor", "Colour of the text."),
            field<&S::barColor>("barColor", "Colour of the bar behind the text."),
            field<&S::cornerRadius>("cornerRadius", "Corner radius of the bar.")
                .measuredIn(Unit::canvasHeights),
            field<&S::safeInsetFraction>("safeInsetFraction", "Free margin on every side.")
                .measuredIn(Unit::canvasHeights),
            field<&S::fadeSec>("fadeSec", "How long it fades in and out.").measuredIn(Unit::seconds),
            field<&S::maxBarWidthFraction>("maxBarWidthFraction", "Greatest width of the block.")
                .measuredIn(Unit::canvasWidths),
            field<&S::fontWeight>("fontWeight", "Weight of the font; its own when absent."),
            field<&S::textShadow>("textShadow", "Soft shadow under the text."),
            field<&S::strokeWidthFraction>("strokeWidthFraction", "Width of the outline.")
                .measuredIn(Unit::canvasHeights),
            field<&S::strokeColor>("strokeColor", "Colour of the outline."),
            field<&S::textGradient>("textGradient", "Gradient that fills the text.")}};
    return table;
}

}   // namespace tavix
