// Rows that tell a time in beats or by a mark, in any record: found by their roles.
#pragma once

#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Paths/Walk.h"
#include "TavixCore/Support/Role.h"

#include <functional>
#include <optional>

namespace tavix {

// Whether a value holds a row that the filter wants, set.
bool containsRow(const Type& type, const void* value, const RowFilter& filter);

// The seconds that a symbolic time stands for, or nothing when they cannot be known.
using SecondsOf = std::function<std::optional<double>(const MutablePlace&)>;

// Gives each set row of that role its seconds, in its partner, and clears it; what has no seconds stays.
void resolveRows(const Type& type, void* value, const KeyPath& at, Role role, const SecondsOf& secondsOf,
    const RowFilter* filter = nullptr);

// Writes the seconds into the partner of the row at that place, and clears the row.
void settle(const MutablePlace& place, double seconds);

// The number that the partner of a row holds; nothing when it holds none.
std::optional<double> partnerOf(const Place& place);

// The row of the same record with that role that is set, or null.
const Field* besideAs(const Place& place, Role role);

}   // namespace tavix
