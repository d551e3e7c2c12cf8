// A list of short sentences, each with an icon and the place that it is about.
#pragma once

#include "Editor/EditorDesignSystem/Icons/Icons.h"
#include "Editor/EditorDesignSystem/Style/Tokens.h"

#include <QList>
#include <QListWidget>
#include <QString>

namespace tavix::editor {

struct NoteRow {
    design::Icon icon = design::Icon::info;
    QColor design::Theme::*ink = &design::Theme::secondary;
    QString kind;   // what screen readers say in place of the icon
    QString words, place;
    bool isMarked = false;    // with a second icon at its end
    bool isHeading = false;   // cannot be chosen
};

class NoteList final : public QListWidget {
public:
    explicit NoteList(QWidget* parent = nullptr);

    // The row that was chosen stays chosen where it still has the same words.
    void setRows(const QList<NoteRow>& rows);
    const QList<NoteRow>& rows() const { return rows_; }

protected:
    // Keys that move in the list are no commands of the window.
    bool event(QEvent* event) override;

private:
    QList<NoteRow> rows_;
};

}   // namespace tavix::editor
