// Small windows beside what they belong to, which go with a click elsewhere and with Escape.
#pragma once

class QFrame;
class QPoint;
class QWidget;

namespace tavix::editor {

// Deletes itself once it is closed. What it holds is laid out below each other.
QFrame* makePopup(QWidget* parent, int width);
// With its corner at the point, or where the screen has room for it: above the point where there is none
// below.
void showPopup(QWidget* popup, const QPoint& globally);

}   // namespace tavix::editor
