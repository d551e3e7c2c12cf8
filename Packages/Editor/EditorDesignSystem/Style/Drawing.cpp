#include "Editor/EditorDesignSystem/Style/Drawing.h"

#include <QPainter>

#include <cmath>

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

// A pixel of a corner is touched where its own corner that is next to the middle lies inside of the circle.
QRegion boxRegion(const QRect& rect, int radius) {
    QRegion region = rect.adjusted(0, radius, 0, -radius);
    for (int row = 0; row < radius; ++row) {
        const double fromMiddle = radius - row - 1;
        const int inset = int(radius - std::sqrt(double(radius) * radius - fromMiddle * fromMiddle));
        const QRect line = rect.adjusted(inset, 0, -inset, 0);
        region += QRect(line.left(), rect.top() + row, line.width(), 1);
        region += QRect(line.left(), rect.bottom() - row, line.width(), 1);
    }
    return region;
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
