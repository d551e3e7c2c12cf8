#include "TavixCore/Typography/Stagger.h"

#include "TavixCore/Support/FieldTables.h"
#include "TavixCore/Typography/StaggerRanks.h"

#include <algorithm>

namespace tavix {

int Stagger::rank(int index, int count) const {
    if (index < 0 || index >= count) return 0;
    return KineticMath::ranks(order, count, seed)[static_cast<std::size_t>(index)];
}

double Stagger::startOffsetSec(int rank) const { return delaySec * std::max(rank, 0); }

const Fields<Stagger>& fieldsOf(std::type_identity<Stagger>) {
    static const Fields<Stagger> table{
        "Stagger", {field<&Stagger::delaySec>("delaySec", "How long after one piece the next one starts.")
                           .measuredIn(Unit::seconds)
                           .atLeast(0),
                       field<&Stagger::order>("order", "Which element starts first."),
                       field<&Stagger::overlap>("overlap", "Kept with the style; it changes nothing.")
                           .measuredIn(Unit::fraction)
                           .clamped(0, 1),
                       field<&Stagger::seed>("seed", "Which shuffle the random order is.")}};
    return table;
}

}   // namespace tavix
