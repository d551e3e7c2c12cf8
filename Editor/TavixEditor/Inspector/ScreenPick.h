// Takes a colour from the screen.
#pragma once

#include <QColor>

#include <functional>
#include <optional>

class QWidget;

namespace tavix::editor {

// The pointer becomes a cross with what is under it beside it, until a click or Return takes it. Nothing is
// told of Escape and of another button. Windows of other programs are seen where the desktop shows them to
// programs, as X11 does.
void pickFromScreen(QWidget* parent, std::function<void(const std::optional<QColor>& color)> onPick);

}   // namespace tavix::editor
