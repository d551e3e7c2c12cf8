// Between the points of views and those of the stage's arithmetic, which knows no toolkit.
#pragma once

#include "TavixCore/Values/PixelPoint.h"
#include "TavixCore/Values/PixelRect.h"

#include <QPointF>
#include <QRectF>

namespace tavix::editor {

inline PixelPoint pointOf(QPointF point) { return {point.x(), point.y()}; }
inline QPointF qPoint(const PixelPoint& point) { return {point.x, point.y}; }
inline QRectF qRect(const PixelRect& rect) { return {rect.x, rect.y, rect.width, rect.height}; }

}   // namespace tavix::editor
