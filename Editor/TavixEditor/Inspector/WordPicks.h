// Words that are picked by a click, in lines as they fit.
#pragma once

#include "TavixEditor/Inspector/RowControl.h"

namespace tavix::editor {

RowControl makePicksControl(const InspectorRow& row, RowEdits& edits, QWidget* parent);

}   // namespace tavix::editor
