#include "TavixEditor/Inspector/ColorPlane.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/Inspector/Colors.h"
#include "TavixEditor/Inspector/InspectorWords.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace tavix::editor {

using namespace design;

namespace {

constexpr double knobRadius = 6;

// White with a dark edge, so that it is seen on every colour.
void drawKnob(QPainter& painter, const QPointF& at, const QColor& color, bool hasFocus) {
    const auto disc = [&](double radius, const QColor& fill) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawEllipse(at, radius, radius);
    };
    if (hasFocus) disc(knobRadius + 2.5, Style::theme().focus);
    disc(knobRadius + 0.75, QColor(0, 0, 0, 140));
    disc(knobRadius, Qt::white);
    disc(knobRadius - 2, color);
}

}   // namespace

ColorPlane::ColorPlane(QWidget* parent) : QWidget(parent) {
    setFixedHeight(160);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setAccessibleName(InspectorWords::tr("Saturation and brightness"));
}

void ColorPlane::setColor(double hue, double saturation, double brightness) {
    hue_ = hue;
    saturation_ = saturation;
    brightness_ = brightness;
    setAccessibleDescription(InspectorWords::tr("Saturation %1 %, brightness %2 %")
                                 .arg(qRound(saturation * 100))
                                 .arg(qRound(brightness * 100)));
    update();
}

QRectF ColorPlane::field() const { return QRectF(rect()).adjusted(8, 8, -8, -8); }

void ColorPlane::choose(double saturation, double brightness) {
    setColor(hue_, std::clamp(saturation, 0.0, 1.0), std::clamp(brightness, 0.0, 1.0));
    if (onChange) onChange(saturation_, brightness_);
}

void ColorPlane::mousePressEvent(QMouseEvent* event) { mouseMoveEvent(event); }

void ColorPlane::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton)) return;
    const QPointF at = event->position() - field().topLeft();
    choose(at.x() / field().width(), 1 - at.y() / field().height());
}

void ColorPlane::keyPressEvent(QKeyEvent* event) {
    const double step = event->modifiers() & Qt::ShiftModifier ? 0.1 : 0.01;
    switch (event->key()) {
    case Qt::Key_Left: return choose(saturation_ - step, brightness_);
    case Qt::Key_Right: return choose(saturation_ + step, brightness_);
    case Qt::Key_Up: return choose(saturation_, brightness_ + step);
    case Qt::Key_Down: return choose(saturation_, brightness_ - step);
    default: QWidget::keyPressEvent(event);
    }
}

void ColorPlane::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = field();
    QPainterPath outline;
    outline.addRoundedRect(box, radius::field, radius::field);
    QLinearGradient along(box.topLeft(), box.topRight()), down(box.topLeft(), box.bottomLeft());
    along.setColorAt(0, Qt::white);
    along.setColorAt(1, QColor::fromHsvF(float(hue_), 1, 1));
    down.setColorAt(0, QColor(0, 0, 0, 0));
    down.setColorAt(1, Qt::black);
    painter.fillPath(outline, along);
    painter.fillPath(outline, down);
    const QPointF knob = box.topLeft() + QPointF(saturation_ * box.width(), (1 - brightness_) * box.height());
    drawKnob(
        painter, knob, QColor::fromHsvF(float(hue_), float(saturation_), float(brightness_)), hasFocus());
}

ColorSlider::ColorSlider(const QString& name, int most, QWidget* parent) : QSlider(Qt::Horizontal, parent) {
    setRange(0, most);
    setPageStep(most / 10);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(name);
    setFixedHeight(20);
}

void ColorSlider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF strip = QRectF(rect()).adjusted(8, 4, -8, -4);
    QLinearGradient colors(strip.topLeft(), strip.topRight());
    constexpr int stops = 12;   // the hues between sixths are straight lines, and all else is one
    for (int i = 0; i <= stops; ++i) colors.setColorAt(double(i) / stops, colorAt(double(i) / stops));
    paintChecks(painter, strip, strip.height() / 2);
    QPainterPath outline;
    outline.addRoundedRect(strip, strip.height() / 2, strip.height() / 2);
    painter.fillPath(outline, colors);
    const double fraction = double(value()) / maximum();
    drawKnob(painter, {strip.left() + fraction * strip.width(), strip.center().y()}, colorAt(fraction),
        hasFocus());
}

}   // namespace tavix::editor
