// Beside a value that keyframes may give: to the one before, set or take away one here, to the next one.
#pragma once

#include "Editor/EditorDomain/Inspector/InspectorRows.h"

#include <QWidget>

namespace tavix::editor {

class RowEdits;

class KeyframeButtons final : public QWidget {
public:
    KeyframeButtons(RowEdits& edits, const InspectorRow& row, QWidget* parent);
    void show(const InspectorRow& row);

private:
    class Button;
    Button *before_, *here_, *next_;
    InspectorRow shown_;
};

}   // namespace tavix::editor
