// Between the colours of documents and those of the toolkit, both in sRGB.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <QColor>

class QPainter;
class QRectF;
class QString;

namespace tavix::editor {

QColor qColor(const RGBAColor& color);
RGBAColor rgba(const QColor& color);
// "#f2f0ea", and "#f2f0ea80" where it is not opaque.
QString hexOf(const RGBAColor& color);
// The checks that show through what is clear.
void paintChecks(QPainter& painter, const QRectF& rect, double radius);

}   // namespace tavix::editor
