#include "TavixCore/Typography/KineticSelector.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<KineticPresetRef>& fieldsOf(std::type_identity<KineticPresetRef>) {
    using R = KineticPresetRef;
    static const Fields<R> table{"KineticPresetRef",
        {field<&R::preset>("preset", "Which animation, as `tavix presets kinetic` lists them.")
                .as(Role::textAnimation),
            field<&R::speed>("speed", "How quick it is.").unlessDefault(),
            field<&R::weight>("weight", "How it moves; the preset's own way when absent."),
            field<&R::intensity>("intensity", "How far it goes.").unlessDefault()}};
    return table;
}

const Alternatives<KineticSelector>& alternativesOf(std::type_identity<KineticSelector>) {
    using Table = Alternatives<KineticSelector>;
    static const Table table{.name = "KineticSelector",
        .noun = "animation",
        .rows = {flat<KineticSelector, KineticPresetRef>("preset").whenPresent("preset"),
            flat<KineticSelector, KineticStyle>("style")},
        .tag = Table::Tag::none};
    return table;
}

}   // namespace tavix
