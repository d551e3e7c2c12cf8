#include "TavixCore/Time/TimedRows.h"

#include <stdexcept>

namespace tavix {

namespace {

// Whether the place is the value of its row, and not an element of it or the row of a union around it.
bool isValueOfRow(const Field& row, const Type& type) {
    const Type& ofRow = row.type();
    return &ofRow == &type ||
           (ofRow.kind == Type::Kind::optional && &static_cast<const OptionalType&>(ofRow).value() == &type);
}

const Field& partnerIn(const RecordType& owner, const Field& row) {
    if (const Field* partner = owner.find(row.partner)) return *partner;
    throw std::logic_error("A role names a key that its record does not have.");
}

}   // namespace

bool containsRow(const Type& type, const void* value, const RowFilter& filter) {
    bool isFound = false;
    const auto visit = [&](const Place& place) {
        isFound = isFound || (place.row && filter.wants(*place.row));
        return isFound ? Walk::over : Walk::into;
    };
    walkValue(type, value, KeyPath(), Visitor<Place>(visit), &filter);
    return isFound;
}

void resolveRows(const Type& type, void* value, const KeyPath& at, Role role, const SecondsOf& secondsOf,
    const RowFilter* filter) {
    const auto visit = [&](const MutablePlace& place) {
        if (!place.row || place.row->role != role || !isValueOfRow(*place.row, place.type)) return Walk::into;
        if (const auto seconds = secondsOf(place)) settle(place, *seconds);
        return Walk::over;
    };
    walkValue(type, value, at, Visitor<MutablePlace>(visit), filter);
}

void settle(const MutablePlace& place, double seconds) {
    const Field& partner = partnerIn(*place.owner, *place.row);
    void* const member = partner.reach(place.ownerValue);
    const Type& type = partner.type();
    const bool isOptional = type.kind == Type::Kind::optional;
    void* const number = isOptional ? static_cast<const OptionalType&>(type).emplace(member) : member;
    *static_cast<double*>(number) = seconds;
    static_cast<const OptionalType&>(place.row->type()).reset(place.row->reach(place.ownerValue));
}

std::optional<double> partnerOf(const Place& place) {
    const Field& partner = partnerIn(*place.owner, *place.row);
    return numberIn(partner.type(), partner.in(place.ownerValue));
}

const Field* besideAs(const Place& place, Role role) {
    for (const Field& row : place.owner->rows)
        if (row.role == role && row.reach &&
            heldIn(row.type(), row.reach(const_cast<void*>(place.ownerValue))).value)
            return &row;
    return nullptr;
}

}   // namespace tavix
