#include "TavixCore/Support/Fields.h"

#include <cmath>
#include <new>

template class std::vector<tavix::Field>;

namespace tavix {

namespace {

template <class Change> Field changed(const Field& row, Change change) {
    Field copy = row;
    change(copy);
    return copy;
}

}   // namespace

double Bounds::clamp(double value) const { return std::fmin(std::fmax(value, least), most); }

Field Field::required() const {
    return changed(*this, [](Field& row) { row.isRequired = true; });
}
Field Field::unlessDefault() const {
    return changed(*this, [](Field& row) { row.written = Written::unlessDefault; });
}
Field Field::readOnly() const {
    return changed(*this, [](Field& row) { row.written = Written::never; });
}
Field Field::clamped(double least, double most) const {
    return changed(*this, [&](Field& row) { row.bounds = Bounds{least, most}, row.clamps = true; });
}
Field Field::atLeast(double least) const { return clamped(least, Bounds{}.most); }
Field Field::legal(double least, double most) const {
    return changed(*this, [&](Field& row) { row.bounds = Bounds{least, most}; });
}
Field Field::tolerant() const {
    return changed(*this, [](Field& row) { row.isTolerant = true; });
}
Field Field::measuredIn(Unit ofNumbers) const {
    return changed(*this, [&](Field& row) { row.unit = ofNumbers; });
}
Field Field::as(Role ofValue, std::string_view partnerKey) const {
    return changed(*this, [&](Field& row) { row.role = ofValue, row.partner = partnerKey; });
}
Field Field::readBy(Reader read) const {
    return changed(*this, [&](Field& row) { row.reader = read; });
}

RecordType::RecordType(const Making& ofType, std::string_view nameOfType, std::span<const Field> rowsOfType,
    Form formOfType, std::string_view bare, AnyFunction after)
    : Type{Kind::record}, making(ofType), name(nameOfType), rows(rowsOfType), form(formOfType), bareKey(bare),
      afterRead(after), fresh(make()) {}

RecordType::~RecordType() { destroy(const_cast<void*>(fresh)); }

void RecordType::refresh(void* record) const noexcept {
    making.destruct(record);
    making.construct(record);
}

void* RecordType::make() const {
    void* const place = ::operator new(making.size, std::align_val_t(making.alignment));
    making.construct(place);
    return place;
}

void RecordType::destroy(void* record) const {
    making.destruct(record);
    ::operator delete(record, std::align_val_t(making.alignment));
}

const Field* RecordType::find(std::string_view key) const {
    for (const Field& row : rows)
        if (row.key == key) return &row;
    return nullptr;
}

bool RecordType::isWritten(const Field& row, const void* record) const {
    if (row.condition) return row.condition(record);
    if (row.written != Field::Written::unlessDefault) return row.written == Field::Written::always;
    return !areEqual(row.type(), row.in(record), row.in(fresh));
}

void clampNumber(const Field& row, void* record) {
    const Held held = heldIn(row.type(), row.reach(record));
    const std::optional<double> number = held.value ? numberIn(*held.type, held.value) : std::nullopt;
    if (!number || row.bounds->clamp(*number) == *number) return;
    const double clamped = row.bounds->clamp(*number);
    if (held.type->kind == Type::Kind::number)
        *static_cast<double*>(held.value) = clamped;
    else
        *static_cast<std::int64_t*>(held.value) = static_cast<std::int64_t>(clamped);
}

void clampByTable(const RecordType& type, void* record) {
    for (const Field& row : type.rows)
        if (row.clamps) clampNumber(row, record);
}

}   // namespace tavix
