#include "Editor/EditorDesignSystem/Style/Drawing.h"

#include <QPainter>

namespace tavix::design {

void drawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill, const QColor& line,
    double lineWidth) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(fill);
    painter.setPen(line.alpha() > 0 ? QPen(line, lineWidth) : QPen(Qt::NoPen));
    const double inset = line.alpha() > 0 ? lineWidth / 2 : 0;
    painter.drawRoundedRect(rect.adjusted(inset, inset, -inset, -inset), radius, radius);
    painter.restore();
}

void drawChevron(QPainter& painter, QPointF middle, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    const QPointF points[] = {
        middle + QPointF(-3, -1.5), middle + QPointF(0, 1.5), middle + QPointF(3, -1.5)};
    painter.drawPolyline(points, 3);
    painter.restore();
}

QColor withAlpha(QColor color, double alpha) {
    color.setAlphaF(float(alpha));
    return color;
}

}   // namespace tavix::design
