// What other programs, agents above all, have changed in the file of the open document, and ways to take it
// back.
#pragma once

#include "TavixEditor/Panels/WrittenPlace.h"
#include "TavixLive/Model/EditorState.h"
#include "TavixPlatform/System/Continuation.h"

#include <QDateTime>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

struct ChangeRow {
    enum class Kind { added, removed, changed, moved };
    Kind kind = Kind::changed;
    WrittenPlace place;
    std::string where;   // in words
    std::string words;   // what it was, and is
    bool operator==(const ChangeRow&) const = default;
};

class Changes {
public:
    // One time that the file was taken in.
    struct Step {
        TakenIn from;
        QDateTime at;
        std::vector<ChangeRow> rows;
        bool operator==(const Step&) const = default;
    };

    Changes(CompositionEditorModel& model, system::Executor& main, system::Executor& workers);

    Observable<std::vector<Step>> steps;           // the latest first, at most twenty
    Observable<std::optional<std::size_t>> news;   // how many changes nobody has looked at yet

    void goTo(std::size_t step, std::size_t row) const;
    // Undo where it was the last step; otherwise a step that puts back what was there and leaves what was
    // edited since.
    void takeBack(std::size_t step, const std::string& stepName);
    void forgetNews() { news = std::nullopt; }

private:
    void note();

    CompositionEditorModel& model_;
    system::Executor &main_, &workers_;
    system::Lifeline lifeline_;
    Connections connections_;
};

}   // namespace tavix::editor
