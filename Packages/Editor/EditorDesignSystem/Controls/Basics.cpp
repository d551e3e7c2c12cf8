#include "Editor/EditorDesignSystem/Controls/Basics.h"

#include <QLabel>
#include <QToolButton>

namespace tavix::design {

QWidget* onGround(QWidget* widget, QPalette::ColorRole role) {
    widget->setBackgroundRole(role);
    widget->setAutoFillBackground(true);
    return widget;
}

QLabel* makeLabel(const QString& words, TextSize size, Tone tone, QWidget* parent) {
    auto* label = new QLabel(words, parent);
    label->setFont(fontOf(size));
    label->setTextFormat(Qt::PlainText);
    if (tone == Tone::secondary) label->setForegroundRole(QPalette::PlaceholderText);
    return label;
}

QWidget* makeRule(Qt::Orientation orientation, QWidget* parent) {
    auto* rule = new QWidget(parent);
    orientation == Qt::Horizontal ? rule->setFixedHeight(1) : rule->setFixedWidth(1);
    return onGround(rule, QPalette::Midlight);
}

QToolButton* makeIconButton(Icon icon, const QString& words, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setIcon(iconOf(icon));
    button->setIconSize({16, 16});
    button->setFixedSize(height::button, height::button);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(words);
    button->setAccessibleName(words);
    return button;
}

}   // namespace tavix::design
