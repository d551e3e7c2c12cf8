#include "TavixEditor/Inspector/CurveEditor.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace tavix::editor {

using namespace design;
using EaseEditing::Handle;

namespace {

constexpr double marginX = 16, keyStep = 0.02, handleRadius = 4.5;
// What the plot shows of the way: a little more than handles may reach.
constexpr double leastY = -0.7, mostY = 1.8;

}   // namespace

CurveEditor::CurveEditor(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setMinimumHeight(120);
    setAccessibleName(QCoreApplication::translate("CurveEditor", "Curve"));
}

void CurveEditor::setCurve(const TimingCurve& curve) {
    if (curve == curve_) return;
    curve_ = curve;
    update();
}

QPointF CurveEditor::pointOf(double x, double y) const {
    return {marginX + x * (width() - 2 * marginX), (mostY - y) / (mostY - leastY) * height()};
}

QPointF CurveEditor::handle(Handle which) const {
    const BezierCurve bent = EaseEditing::asBezier(curve_);
    return which == Handle::first ? pointOf(bent.x1, bent.y1) : pointOf(bent.x2, bent.y2);
}

void CurveEditor::paintEvent(QPaintEvent*) {
    const Theme& theme = Style::theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawBox(
        painter, rect(), radius::card, theme.field, hasFocus() ? theme.focus : QColor(Qt::transparent), 1.5);
    painter.setPen(QPen(theme.hairline, 1));
    for (int i = 0; i <= 4; ++i) painter.drawLine(pointOf(i / 4.0, 0), pointOf(i / 4.0, 1));
    painter.drawLine(pointOf(0, 0), pointOf(1, 0));
    painter.drawLine(pointOf(0, 1), pointOf(1, 1));
    QPainterPath way;
    for (const EaseEditing::Point& point : EaseEditing::plotted(curve_, 64)) {
        const QPointF at = pointOf(point.x, point.y);
        point.x == 0 ? way.moveTo(at) : way.lineTo(at);
    }
    painter.setBrush(Qt::NoBrush);
    if (!std::holds_alternative<SpringCurve>(curve_)) {
        painter.setPen(QPen(theme.secondary, 1));
        painter.drawLine(pointOf(0, 0), handle(Handle::first));
        painter.drawLine(pointOf(1, 1), handle(Handle::second));
    }
    painter.setPen(QPen(theme.focus, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(way);
    if (std::holds_alternative<SpringCurve>(curve_)) return;
    for (const Handle which : {Handle::first, Handle::second}) {
        const bool isChosen = held_ == which || (!held_ && hasFocus() && chosen_ == which);
        painter.setPen(QPen(theme.focus, 1.75));
        painter.setBrush(isChosen ? theme.focus : theme.field);
        painter.drawEllipse(handle(which), handleRadius, handleRadius);
    }
}

void CurveEditor::dragTo(const QPointF& at, bool isEditing) {
    const double x = (at.x() - marginX) / (width() - 2 * marginX);
    const double y = mostY - at.y() / height() * (mostY - leastY);
    setCurve(EaseEditing::dragged(EaseEditing::asBezier(curve_), *held_, x, y));
    if (onChange) onChange(curve_, isEditing);
}

void CurveEditor::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || std::holds_alternative<SpringCurve>(curve_)) return;
    const auto away = [&](Handle which) { return QLineF(event->position(), handle(which)).length(); };
    held_ = chosen_ = away(Handle::first) < away(Handle::second) ? Handle::first : Handle::second;
    update();
}

void CurveEditor::mouseMoveEvent(QMouseEvent* event) {
    if (held_) dragTo(event->position(), true);
}

void CurveEditor::mouseReleaseEvent(QMouseEvent*) {
    if (!held_) return;
    held_.reset();
    if (onChange) onChange(curve_, false);
    update();
}

void CurveEditor::keyPressEvent(QKeyEvent* event) {
    double dx = 0, dy = 0;
    switch (event->key()) {
    case Qt::Key_Left: dx = -keyStep; break;
    case Qt::Key_Right: dx = keyStep; break;
    case Qt::Key_Up: dy = keyStep; break;
    case Qt::Key_Down: dy = -keyStep; break;
    case Qt::Key_Space:
        chosen_ = chosen_ == Handle::first ? Handle::second : Handle::first;
        update();
        return;
    default: return QWidget::keyPressEvent(event);
    }
    if (std::holds_alternative<SpringCurve>(curve_)) return;
    const BezierCurve bent = EaseEditing::asBezier(curve_);
    const bool isFirst = chosen_ == Handle::first;
    setCurve(EaseEditing::dragged(
        bent, chosen_, (isFirst ? bent.x1 : bent.x2) + dx, (isFirst ? bent.y1 : bent.y2) + dy));
    if (onChange) onChange(curve_, false);
}

}   // namespace tavix::editor
