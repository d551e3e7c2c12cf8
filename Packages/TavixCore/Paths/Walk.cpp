#include "TavixCore/Paths/Walk.h"

#include "TavixCore/Paths/RowFilter.h"
#include "TavixCore/Support/Choice.h"

namespace tavix {

namespace {

// The walk itself never changes anything; whether its visitor may is told by the type of the pointer.
template <class Pointer> class Walker {
public:
    Walker(Visitor<PlaceOf<Pointer>> visit, const RowFilter* filter) : visit_(visit), filter_(filter) {}

    void value(const PlaceOf<Pointer>& place) {
        if (place.type.kind == Type::Kind::optional) return optional(place);
        if (visit_(place) == Walk::into) inside(place);
    }

private:
    static void* plain(Pointer value) { return const_cast<void*>(static_cast<const void*>(value)); }

    PlaceOf<Pointer> within(const PlaceOf<Pointer>& place, const KeyPath& at, const Type& type, void* value) {
        return {at, type, value, place.row, place.owner, place.ownerValue, place.ownerAt};
    }

    void optional(const PlaceOf<Pointer>& place) {
        const auto& type = static_cast<const OptionalType&>(place.type);
        if (void* const held = type.held(plain(place.value)))
            value(within(place, place.at, type.value(), held));
    }

    void inside(const PlaceOf<Pointer>& place) {
        switch (place.type.kind) {
        case Type::Kind::list: return list(static_cast<const ListType&>(place.type), place);
        case Type::Kind::map: return map(static_cast<const MapType&>(place.type), place);
        case Type::Kind::record: return record(static_cast<const RecordType&>(place.type), place);
        case Type::Kind::choice: return choice(static_cast<const ChoiceType&>(place.type), place);
        default: return;
        }
    }

    void list(const ListType& type, const PlaceOf<Pointer>& place) {
        void* const elements = plain(place.value);
        for (std::size_t i = 0; i < type.size(elements); ++i)
            value(within(place, KeyPath(place.at, i), type.element(), type.at(elements, i)));
    }

    void map(const MapType& type, const PlaceOf<Pointer>& place) {
        for (const MapType::Entry& entry : type.entries(plain(place.value)))
            value(within(place, KeyPath(place.at, *entry.key), type.value(), entry.value));
    }

    void record(const RecordType& type, const PlaceOf<Pointer>& place) {
        if (!filter_) {
            for (const Field& row : type.rows)
                if (row.reach) member(type, row, place);   // else no member stands behind it
        } else if (const auto* rows = filter_->rowsOf(type)) {
            for (const Field* row : *rows) member(type, *row, place);
        }
    }

    void member(const RecordType& type, const Field& row, const PlaceOf<Pointer>& place) {
        const KeyPath element(place.at, static_cast<std::size_t>(&row - type.rows.data()));
        const KeyPath named(place.at, row.key);
        const KeyPath& at = type.form == RecordType::Form::list ? element
                            : row.key.empty()                   ? place.at
                                                                : named;
        value({at, row.type(), row.reach(plain(place.value)), &row, &type, place.value, &place.at});
    }

    void choice(const ChoiceType& type, const PlaceOf<Pointer>& place) {
        const Alternative& row = type.heldBy(place.value);
        if (filter_ && !filter_->leads(row.type())) return;
        const KeyPath payload(place.at, row.payloadKey);
        value(within(
            place, row.payloadKey.empty() ? place.at : payload, row.type(), row.held(plain(place.value))));
    }

    Visitor<PlaceOf<Pointer>> visit_;
    const RowFilter* filter_;
};

}   // namespace

void walkValue(
    const Type& type, const void* value, const KeyPath& at, Visitor<Place> visit, const RowFilter* filter) {
    Walker<const void*>(visit, filter).value({at, type, value});
}

void walkValue(
    const Type& type, void* value, const KeyPath& at, Visitor<MutablePlace> visit, const RowFilter* filter) {
    Walker<void*>(visit, filter).value({at, type, value});
}

}   // namespace tavix
