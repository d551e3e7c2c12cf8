#include "TavixCore/Paths/RowFilter.h"

#include "TavixCore/Support/Choice.h"

#include <set>

namespace tavix {

namespace {

// What a value of the type is made of.
std::vector<const Type*> partsOf(const Type& type) {
    std::vector<const Type*> parts;
    switch (type.kind) {
    case Type::Kind::list: return {&static_cast<const ListType&>(type).element()};
    case Type::Kind::map: return {&static_cast<const MapType&>(type).value()};
    case Type::Kind::optional: return {&static_cast<const OptionalType&>(type).value()};
    case Type::Kind::record:
        for (const Field& row : static_cast<const RecordType&>(type).rows)
            if (row.reach) parts.push_back(&row.type());
        return parts;
    case Type::Kind::choice:
        for (const Alternative& row : static_cast<const ChoiceType&>(type).rows) parts.push_back(&row.type());
        return parts;
    default: return parts;
    }
}

void collect(const Type& type, std::set<const Type*>& types) {
    if (!types.insert(&type).second) return;
    for (const Type* part : partsOf(type)) collect(*part, types);
}

}   // namespace

RowFilter::RowFilter(const Type& root, bool (*isWanted)(Role)) : isWanted_(isWanted) {
    std::set<const Type*> types;
    collect(root, types);
    const auto leadsOn = [&](const Type& type) {
        if (type.kind == Type::Kind::record)
            for (const Field& row : static_cast<const RecordType&>(type).rows)
                if (row.reach && isWanted(row.role)) return true;
        for (const Type* part : partsOf(type))
            if (leads(*part)) return true;
        return false;
    };
    // Types may hold one another, so this goes on until nothing new is found.
    for (std::size_t known = types.size() + 1; known != leading_.size();) {
        known = leading_.size();
        for (const Type* type : types)
            if (!leads(*type) && leadsOn(*type)) leading_[type];
    }
    for (auto& [type, rows] : leading_)
        if (type->kind == Type::Kind::record)
            for (const Field& row : static_cast<const RecordType*>(type)->rows)
                if (row.reach && (isWanted(row.role) || leads(row.type()))) rows.push_back(&row);
}

}   // namespace tavix
