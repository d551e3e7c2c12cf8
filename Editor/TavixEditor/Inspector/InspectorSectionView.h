// A heading of the inspector and the rows under it; a click on the heading folds them away.
#pragma once

#include "TavixEditor/Inspector/RowControl.h"

#include <QWidget>

#include <vector>

class QToolButton;

namespace tavix::editor {

class KeyframeButtons;
class RowLabel;

class InspectorSectionView final : public QWidget {
public:
    InspectorSectionView(const InspectorSection& section, RowEdits& edits, QWidget* parent);
    void show(const InspectorSection& section);   // of the same form

private:
    struct Row {
        RowLabel* label;
        QToolButton* reset;           // null for what has no default to go back to
        KeyframeButtons* keyframes;   // null for what has none
        RowControl control;
        InspectorRow shown;
    };
    QWidget* makeHeading(const std::string& title, RowEdits& edits);
    QToolButton* makeReset(const InspectorRow& row, RowEdits& edits);
    void addRow(const InspectorRow& row, RowEdits& edits);
    void showRow(Row& row, const InspectorRow& now);

    QWidget* body_;
    std::string title_;
    std::vector<Row> rows_;
};

}   // namespace tavix::editor
