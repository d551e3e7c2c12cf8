#include "TavixCore/Document/TransitionStyle.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

bool isAccent(TransitionStyle style) {
    using enum TransitionStyle;
    return style == dreamyZoom || style == crosswarp || style == ripple;
}

const Names<TransitionStyle>& namesOf(std::type_identity<TransitionStyle>) {
    using enum TransitionStyle;
    static const Names<TransitionStyle> table{"transition style",
        {{flip, "flip"}, {wipe, "wipe"}, {push, "push"}, {crossZoom, "crossZoom"}, {dreamyZoom, "dreamyZoom"},
            {crosswarp, "crosswarp"}, {ripple, "ripple"}, {fade, "fade"}},
        fade};
    return table;
}

}   // namespace tavix
