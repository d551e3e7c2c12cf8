#include "TavixCore/Composition/SFXCatalog.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix::SFXCatalog {

const Names<Sound>& namesOf(std::type_identity<Sound>) {
    static const Names<Sound> table{
        "sound", {{Sound::whoosh, "whoosh"}, {Sound::whip, "whip"}, {Sound::ding, "ding"}}};
    return table;
}

}   // namespace tavix::SFXCatalog
