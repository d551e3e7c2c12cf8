#include "TavixCore/Document/SFXCatalog.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix::SFXCatalog {

Sound sound(TransitionStyle style) {
    return style == TransitionStyle::dreamyZoom ? Sound::ding : Sound::whoosh;
}

const Names<Sound>& namesOf(std::type_identity<Sound>) {
    static const Names<Sound> table{
        "sound", {{Sound::whoosh, "whoosh"}, {Sound::whip, "whip"}, {Sound::ding, "ding"}}};
    return table;
}

}   // namespace tavix::SFXCatalog
