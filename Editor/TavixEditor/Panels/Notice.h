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

// The weightiest that the model has: lost work, a choice between two hands on the file, an error, or nothing.
// `recover` brings back the lost work of that number.
std::optional<Notice> noticeOf(
    CompositionEditorModel& model, const std::function<void(std::size_t)>& recover);

}   // namespace tavix::editor
