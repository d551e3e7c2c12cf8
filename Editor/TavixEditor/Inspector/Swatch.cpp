#include "TavixEditor/Inspector/Swatch.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/Inspector/Colors.h"

#include <QPainter>

namespace tavix::editor {

using namespace design;

Swatch::Swatch(const QSize& size, QWidget* parent) : QAbstractButton(parent) {
    setFixedSize(size);
    setFocusPolicy(Qt::TabFocus);
    setCursor(Qt::PointingHandCursor);
}

void Swatch::setColor(const std::optional<RGBAColor>& color) {
    color_ = color;
    update();
}

void Swatch::paintEvent(QPaintEvent*) {
    const Theme& theme = Style::theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (color_) {
        paintChecks(painter, box, radius::field - 1);
        drawBox(painter, box, radius::field - 1, qColor(*color_), withAlpha(theme.text, 0.25));
    } else {
        drawBox(painter, box, radius::field - 1, theme.field, theme.hairline);
    }
    if (hasFocus()) drawBox(painter, rect(), radius::field, Qt::transparent, theme.focus, 1.5);
}

}   // namespace tavix::editor
