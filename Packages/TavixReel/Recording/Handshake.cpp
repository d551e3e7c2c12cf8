#include "TavixReel/Recording/Handshake.h"

#include "TavixCore/Support/FieldTables.h"

namespace tavix {

const Fields<GoSignal>& fieldsOf(std::type_identity<GoSignal>) {
    static const Fields<GoSignal> table{
        "GoSignal", {field<&GoSignal::issuedAt>("issuedAt", "When the go was given, in seconds.")
                            .measuredIn(Unit::seconds)
                            .required()}};
    return table;
}

}   // namespace tavix
