// What a window has to say for now, and what can be done about it: a bar and no dialog.
#pragma once

#include "Editor/EditorDesignSystem/Icons/Icons.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace tavix {
class CompositionEditorModel;
}

namespace tavix::editor {

class Changes;

struct NoticeAction {
    QString words;
    std::function<void()> run;
};

struct Notice {
    enum class Weight { news, warning, error };
    Weight weight = Weight::news;
    QString text;
    QList<NoticeAction> actions = {};
};

// What the notices of a model lead to.
struct NoticeRoads {
    std::function<void(std::size_t)> recover;   // the lost work of that number
    std::function<void()> showChanges;          // by other programs
};

// The weightiest that there is: lost work, a choice between two hands on the file, an error, what another
// program has changed, or nothing.
std::optional<Notice> noticeOf(CompositionEditorModel& model, Changes& changes, const NoticeRoads& roads);

}   // namespace tavix::editor
