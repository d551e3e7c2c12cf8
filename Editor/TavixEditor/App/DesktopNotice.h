// Tells somebody who looks elsewhere, by the desktop's notifications.
#pragma once

class QString;
class QWidget;

namespace tavix::editor {

// Where the desktop shows none, the window asks for attention.
void showDesktopNotice(const QString& title, const QString& text, QWidget* window);

}   // namespace tavix::editor
