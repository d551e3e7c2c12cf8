#include "TavixCore/Document/ScreenTransition.h"

#include "TavixCore/Support/FieldTables.h"

#include <algorithm>

namespace tavix {
namespace {

using S = ScreenTransition;

// The reveal follows the start unless the document says when it is.
Field<S> startField() {
    Field<S> row = field<&S::atSec>("atSec", "When it starts, in seconds.");
    row.read = [](const Json& json, S& into, const Field<S>&, const KeyPath& at) {
        Codec<double>::read(json, into.atSec, at);
        into.revealSec = into.atSec + S::usualLengthSec;
    };
    return row;
}

// An unknown style is a flip here, as on the reels of old; in a composition it is a fade.
Field<S> styleField() {
    Field<S> row = field<&S::style>("style", "How the new picture takes over.");
    row.read = [](const Json& json, S& into, const Field<S>&, const KeyPath& at) {
        into.style = named<TransitionStyle>(textAt(json, at)).value_or(S{}.style);
    };
    return row;
}

}   // namespace

const Fields<ScreenTransition>& fieldsOf(std::type_identity<ScreenTransition>) {
    static const Fields<S> table{.name = "ScreenTransition",
        .rows = {startField(), field<&S::revealSec>("revealSec", "When the new picture has taken over."),
            styleField(), field<&S::timing>("timing", "How its progress runs."),
            field<&S::params>("params", "Strengths of the warping styles."),
            field<&S::liveIncoming>("liveIncoming", "Whether the new picture moves already.")},
        .afterRead = [](S& read) {
            read.revealSec = std::max(read.revealSec, read.atSec + S::leastLengthSec);
        }};
    return table;
}

}   // namespace tavix
