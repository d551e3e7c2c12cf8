// Two hands on one document: what each of them changed, put together, and the values that both changed, for
// somebody to choose from.
#pragma once

#include "TavixBase/Failure.h"
#include "TavixCore/Paths/Merge.h"
#include "TavixCore/Support/Document.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace tavix {

enum class MergeSide { ours, theirs };

// What is to be chosen, whatever kind of document it is.
class DocumentMerge {
public:
    struct Conflict {
        MergeConflict values;   // where, what it was, and what each side made it
        std::optional<MergeSide> chosen;
        bool operator==(const Conflict&) const = default;
    };
    using Conflicts = std::vector<Conflict>;

    // An index out of range changes nothing.
    static Conflicts chosen(Conflicts conflicts, std::size_t index, MergeSide side);
    static Conflicts allChosen(Conflicts conflicts, MergeSide side);

    const Conflicts& conflicts() const { return conflicts_; }
    bool isDecided() const;
    void choose(std::size_t index, MergeSide side) { conflicts_ = chosen(conflicts_, index, side); }
    void chooseAll(MergeSide side) { conflicts_ = allChosen(conflicts_, side); }
    // What was chosen before, where the same values are still to be chosen from.
    void chooseAsIn(const Conflicts& before);

protected:
    DocumentMerge() = default;
    void take(Merged merged);
    // There is one thing to choose: the whole document.
    void takeWhole(Json base, Json ours, Json theirs);
    bool hasTheirs() const;
    Json decided() const;   // with what was chosen, and ours where nothing was

private:
    Json merged_;   // with ours
    Conflicts conflicts_;
};

template <class Document> class MergeOf : public DocumentMerge {
public:
    // Both documents came from the base. All have their beats and marks resolved, or none.
    MergeOf(const Document& base, const Document& ours, const Document& theirs)
        : ours_(base == ours ? theirs : ours), theirs_(theirs),
          isWhole_(base == ours || base == theirs || ours == theirs) {
        if (isWhole_) return;
        take(merge(base, ours, theirs));
        try {
            document();
        } catch (const Failure&) {
            const Type& type = typeOf<Document>();
            isWhole_ = true;
            takeWhole(writeValue(type, &base), writeValue(type, &ours), writeValue(type, &theirs));
        }
    }

    // The document with what was chosen, and ours where nothing was. Throws a `Failure` where the choices
    // make no document together.
    Document document() const {
        if (isWhole_) return hasTheirs() ? theirs_ : ours_;
        return decodeValue<Document>(decided());
    }

private:
    Document ours_, theirs_;
    bool isWhole_;   // there is nothing to choose but one of the documents
};

}   // namespace tavix
