// Small things that every panel is put together from.
#pragma once

#include "Editor/EditorDesignSystem/Icons/Icons.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

class QLabel;
class QString;
class QToolButton;
class QWidget;

namespace tavix::design {

enum class Tone { plain, secondary };

// The widget fills itself with the ground of that role; see `paletteOf`.
QWidget* onGround(QWidget* widget, QPalette::ColorRole role);
QLabel* makeLabel(const QString& words, TextSize size, Tone tone = Tone::plain, QWidget* parent = nullptr);
// A line of one pixel.
QWidget* makeRule(Qt::Orientation orientation, QWidget* parent = nullptr);
// A flat button with an icon. The words are its tool tip and what screen readers say.
QToolButton* makeIconButton(Icon icon, const QString& words, QWidget* parent = nullptr);

}   // namespace tavix::design
