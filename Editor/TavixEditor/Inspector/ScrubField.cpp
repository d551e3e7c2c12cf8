#include "TavixEditor/Inspector/ScrubField.h"

#include "Editor/EditorDesignSystem/Style/Style.h"
#include "Editor/EditorDomain/Inspector/Expression.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace design;

namespace {

constexpr int leastGrip = 14, dragThreshold = 3;

}   // namespace

ScrubField::ScrubField(
    const QString& title, const QString& suffix, const ScrubRange& range, double step, QWidget* parent)
    : QLineEdit(parent), title_(title), suffix_(suffix), range_(range), step_(step) {
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFrame(false);
    setAccessibleName(title);
    setMouseTracking(true);
    setTextMargins(titleWidth() + space::tight, 0, suffixWidth() + space::tight, 0);
    connect(this, &QLineEdit::returnPressed, this, [this] {
        commitText();
        selectAll();
    });
}

int ScrubField::titleWidth() const {
    if (title_.isEmpty()) return leastGrip - space::tight;
    return QFontMetrics(fontOf(TextSize::caption)).horizontalAdvance(title_) + space::small;
}

int ScrubField::suffixWidth() const {
    return suffix_.isEmpty()
               ? 0
               : QFontMetrics(fontOf(TextSize::caption)).horizontalAdvance(suffix_) + space::hair;
}

bool ScrubField::isOnTitle(const QPointF& at) const { return at.x() < titleWidth() + space::tight; }

// Where there is little room a number loses decimals rather than its first digits; while it is edited it has
// all.
QString ScrubField::numberThatFits() const {
    QString number = QString::fromStdString(range_.text(value_));
    const QMargins margins = textMargins();
    const int room = width() - margins.left() - margins.right() - 2 * space::tight - 2 * space::hair;
    while (!hasFocus() && number.contains(QLatin1Char('.')) && fontMetrics().horizontalAdvance(number) > room)
        number.chop(number.at(number.size() - 2) == QLatin1Char('.') ? 2 : 1);
    return number;
}

void ScrubField::showNumber() {
    setPlaceholderText({});
    setText(isAbsent_ ? QString() : numberThatFits());
    setModified(false);
}

void ScrubField::setValue(double value) {
    const bool isSame = value == value_ && !isAbsent_;
    value_ = value;
    isAbsent_ = false;
    if (isSame && !text().isEmpty()) return;
    if (!hasFocus() || !isModified()) showNumber();
}

void ScrubField::setAbsent(const QString& words) {
    isAbsent_ = true;
    if (hasFocus() && isModified()) return;
    setText({});
    setPlaceholderText(words);
}

void ScrubField::change(double value, bool isEditing) {
    if (value == value_ && isEditing && !isAbsent_) return;
    isAbsent_ = false;
    value_ = value;
    showNumber();
    if (onChange) onChange(value, isEditing);
}

void ScrubField::commitText() {
    if (!isModified()) return;
    const auto value = evaluated(text().toStdString(), value_);
    setModified(false);
    if (value)
        change(range_.clamped(*value), false);
    else
        isAbsent_ ? setText({}) : showNumber();
}

bool ScrubField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* const key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Up || key->key() == Qt::Key_Down || key->key() == Qt::Key_Escape)
            event->accept();
        if (key->key() == Qt::Key_Escape && !isModified()) event->ignore();
        if (event->isAccepted() && key->modifiers() == Qt::NoModifier) return true;
    }
    return QLineEdit::event(event);
}

void ScrubField::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !isOnTitle(event->position()) || isReadOnly())
        return QLineEdit::mousePressEvent(event);
    commitText();
    drag_ = Drag::pressed;
    pressX_ = event->globalPosition().toPoint().x();
    scrubStart_ = value_;
}

void ScrubField::mouseMoveEvent(QMouseEvent* event) {
    if (drag_ == Drag::none) {
        setCursor(isOnTitle(event->position()) ? Qt::SizeHorCursor : Qt::IBeamCursor);
        return QLineEdit::mouseMoveEvent(event);
    }
    const int delta = event->globalPosition().toPoint().x() - pressX_;
    if (drag_ == Drag::pressed && std::abs(delta) < dragThreshold) return;
    drag_ = Drag::scrubbing;
    change(range_.dragged(scrubStart_, delta, event->modifiers().testFlag(Qt::ShiftModifier)), true);
}

void ScrubField::mouseReleaseEvent(QMouseEvent* event) {
    const Drag ended = std::exchange(drag_, Drag::none);
    if (ended == Drag::none) return QLineEdit::mouseReleaseEvent(event);
    if (ended == Drag::scrubbing) {
        if (onChange) onChange(value_, false);   // ends the step of undo
        return;
    }
    setFocus(Qt::MouseFocusReason);
    selectAll();
}

void ScrubField::keyPressEvent(QKeyEvent* event) {
    const int sign = event->key() == Qt::Key_Up ? 1 : event->key() == Qt::Key_Down ? -1 : 0;
    if (sign != 0) {
        commitText();
        const double times = event->modifiers() & Qt::ShiftModifier ? 10
                             : event->modifiers() & Qt::AltModifier ? 0.1
                                                                    : 1;
        change(range_.rounded(value_ + sign * times * step_), false);
        return selectAll();
    }
    if (event->key() == Qt::Key_Escape && isModified()) {
        setModified(false);
        showNumber();
        return selectAll();
    }
    QLineEdit::keyPressEvent(event);
}

void ScrubField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!isModified() && !isAbsent_) showNumber();
    if (event->reason() != Qt::MouseFocusReason) selectAll();
}

void ScrubField::focusOutEvent(QFocusEvent* event) {
    commitText();
    QLineEdit::focusOutEvent(event);
    if (!isModified() && !isAbsent_) showNumber();
}

void ScrubField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    if (!isModified() && !isAbsent_) showNumber();
}

void ScrubField::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);   // field, text and cursor; the margins leave room
    const Theme& theme = Style::theme();
    QPainter painter(this);
    painter.setFont(fontOf(TextSize::caption));
    painter.setPen(isEnabled() ? theme.secondary : theme.disabled);
    painter.drawText(
        QRect(space::small, 0, titleWidth(), height()), Qt::AlignVCenter | Qt::AlignLeft, title_);
    if (!text().isEmpty())
        painter.drawText(
            QRect(0, 0, width() - space::small, height()), Qt::AlignVCenter | Qt::AlignRight, suffix_);
}

}   // namespace tavix::editor
