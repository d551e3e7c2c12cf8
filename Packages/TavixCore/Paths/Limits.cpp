#include "TavixCore/Paths/Limits.h"

namespace tavix {

double withinLimits(const RecordType& type, const void* record, const double& member) {
    for (const Field& row : type.rows)
        if (row.bounds && row.reach && row.in(record) == &member) return row.bounds->clamp(member);
    return member;
}

}   // namespace tavix
