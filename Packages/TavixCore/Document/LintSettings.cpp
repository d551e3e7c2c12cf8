#include "TavixCore/Document/LintSettings.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<LintSettings>& fieldsOf(std::type_identity<LintSettings>) {
    static const Fields<LintSettings> table{"LintSettings",
        {field<&LintSettings::mute>("mute", "Codes of rules that lint does not tell.").unlessDefault()}};
    return table;
}

}   // namespace tavix
