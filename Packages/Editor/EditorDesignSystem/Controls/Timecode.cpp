#include "Editor/EditorDesignSystem/Controls/Timecode.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavix::design {

QString timecodeText(double sec) {
    const auto hundredths = std::isfinite(sec) && sec > 0 ? qint64(std::floor(sec * 100 + 1e-6)) : 0;
    return QStringLiteral("%1:%2.%3")
        .arg(hundredths / 6000, 2, 10, QLatin1Char('0'))
        .arg(hundredths / 100 % 60, 2, 10, QLatin1Char('0'))
        .arg(hundredths % 100, 2, 10, QLatin1Char('0'));
}

Timecode::Timecode(TextSize size, QPalette::ColorRole role, QWidget* parent)
    : QWidget(parent), font_(fontOf(size)), role_(role), digitPx_(0), text_(timecodeText(0)) {
    const QFontMetricsF metrics(font_);
    for (char digit = '0'; digit <= '9'; ++digit)
        digitPx_ = std::max(digitPx_, metrics.horizontalAdvance(QLatin1Char(digit)));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setForegroundRole(role);
    setAccessibleName(text_);
}

void Timecode::setSec(double sec) {
    const QString text = timecodeText(sec);
    if (text == text_) return;
    const bool isWider = text.size() != text_.size();
    text_ = text;
    setAccessibleName(text_);
    if (isWider) updateGeometry();
    update();
}

double Timecode::cellPx(QChar letter) const {
    return letter.isDigit() ? digitPx_ : QFontMetricsF(font_).horizontalAdvance(letter);
}

QSize Timecode::sizeHint() const {
    double width = 0;
    for (const QChar letter : text_) width += cellPx(letter);
    return {int(std::ceil(width)), int(std::ceil(QFontMetricsF(font_).height()))};
}

void Timecode::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setFont(font_);
    painter.setPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, role_));
    double x = 0;
    for (const QChar letter : text_) {
        const double cell = cellPx(letter);
        painter.drawText(QRectF(x, 0, cell, height()), Qt::AlignCenter | Qt::TextDontClip, QString(letter));
        x += cell;
    }
}

}   // namespace tavix::design
