// The rows that a walk need not pass over: those of wanted roles, and those that lead to them.
#pragma once

#include "TavixCore/Support/Field.h"

#include <unordered_map>
#include <vector>

namespace tavix {

// Made from the tables alone, so one serves any number of documents. Immutable; any thread may use it.
class RowFilter {
public:
    RowFilter(const Type& root, bool (*isWanted)(Role));

    bool wants(const Field& row) const { return isWanted_(row.role); }
    // Whether a value of the type, which the root leads to, may hold a wanted row.
    bool leads(const Type& type) const { return leading_.contains(&type); }
    // The rows of a record that are wanted or lead to such, in the order of the table; null if there are
    // none.
    const std::vector<const Field*>* rowsOf(const RecordType& type) const {
        const auto rows = leading_.find(&type);
        return rows == leading_.end() ? nullptr : &rows->second;
    }

private:
    bool (*isWanted_)(Role);
    // The types that lead to wanted rows; one that is no record is without rows.
    std::unordered_map<const Type*, std::vector<const Field*>> leading_;
};

}   // namespace tavix
