#include "TavixCore/Document/ScreenTransition.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Support/ReadingErrors.h"

#include <algorithm>

namespace tavix {
namespace {

using S = ScreenTransition;

// The reveal follows the start unless the document says when it is.
void readStart(const Json& json, void* record, const KeyPath& at) {
    auto& into = *static_cast<S*>(record);
    into.atSec = numberAt(json, at);
    into.revealSec = into.atSec + S::usualLengthSec;
}

// An unknown style is a flip here, as on the reels of old; in a composition it is a fade.
void readStyle(const Json& json, void* record, const KeyPath& at) {
    static_cast<S*>(record)->style = named<TransitionStyle>(textAt(json, at)).value_or(S{}.style);
}

}   // namespace

const Fields<ScreenTransition>& fieldsOf(std::type_identity<ScreenTransition>) {
    static const Fields<S> table{.name = "ScreenTransition",
        .rows = {field<&S::atSec>("atSec", "When it starts.").measuredIn(Unit::seconds).readBy(readStart),
            field<&S::revealSec>("revealSec", "When the new picture has taken over.")
                .measuredIn(Unit::seconds),
            field<&S::style>("style", "How the new picture takes over.").readBy(readStyle),
            field<&S::timing>("timing", "How its progress runs."),
            field<&S::params>("params", "Strengths of the warping styles."),
            field<&S::liveIncoming>("liveIncoming", "Whether the new picture moves already.")},
        .afterRead = [](S& read) {
            read.revealSec = std::max(read.revealSec, read.atSec + S::leastLengthSec);
        }};
    return table;
}

}   // namespace tavix
