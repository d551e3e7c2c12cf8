// What controls are drawn with.
#pragma once

#include <QColor>
#include <QPointF>
#include <QRectF>
#include <QRegion>

class QPainter;

namespace tavix::design {

// A rounded box. A line lies inside of it.
void drawBox(QPainter& painter, const QRectF& rect, double radius, const QColor& fill,
    const QColor& line = Qt::transparent, double lineWidth = 1);
// All pixels that such a box touches. What floats is cut to them: where nobody blends windows, their clear
// corners are black.
QRegion boxRegion(const QRect& rect, int radius);
// An open triangle that points down, about its middle.
void drawChevron(QPainter& painter, QPointF middle, const QColor& color);
// That colour, as opaque as told from 0 to 1.
QColor withAlpha(QColor color, double alpha);

}   // namespace tavix::design
