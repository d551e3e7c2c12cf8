// Two hands on one document: what each of them changed, put together, and the values that both changed, for
// somebody to choose from.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/Merge.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavix {

enum class MergeSide { ours, theirs };

class DocumentMerge {
public:
    struct Conflict {
        MergeConflict values;   // where, what it was, and what each side made it
        std::optional<MergeSide> chosen;
        bool operator==(const Conflict&) const = default;
    };
    using Conflicts = std::vector<Conflict>;

    // Both documents came from the base. All have their beats and marks resolved, or none.
    DocumentMerge(const CompositionSpec& base, const CompositionSpec& ours, const CompositionSpec& theirs);

    const Conflicts& conflicts() const { return conflicts_; }
    bool isDecided() const;
    // An index out of range changes nothing.
    void choose(std::size_t index, MergeSide side);
    void chooseAll(MergeSide side);
    // What was chosen before, where the same values are still to be chosen from.
    void chooseAsIn(const Conflicts& before);

    // The document with what was chosen, and ours where nothing was. Throws a `Failure` where the choices
    // make no document together.
    CompositionSpec document() const;

private:
    CompositionSpec ours_, theirs_;
    bool isWhole_ = false;   // there is nothing to choose but one of the documents
    Json merged_;            // with ours
    Conflicts conflicts_;
};

}   // namespace tavix
