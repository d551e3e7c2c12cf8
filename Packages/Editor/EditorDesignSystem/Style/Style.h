// The look of standard controls: Fusion with our palette, and our own drawing where Fusion looks dated. A
// style of its own and no style sheets: those double the time that a panel takes to appear, and break its
// metrics.
#pragma once

#include "Editor/EditorDesignSystem/Style/Tokens.h"

#include <QPalette>
#include <QProxyStyle>

class QApplication;

namespace tavix::design {

class Style final : public QProxyStyle {
public:
    explicit Style(const Theme& theme);
    static const Theme& theme();   // the one in force; dark until one is applied
    // May be called again at any time; widgets follow through their palettes.
    static void apply(QApplication& application, const Theme& theme);

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
        const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* result) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
        const QWidget* widget) const override;
    QRect subElementRect(
        SubElement element, const QStyleOption* option, const QWidget* widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget) const override;
    void polish(QWidget* widget) override;
    using QProxyStyle::polish;

private:
    void drawMenuItem(const QStyleOption* option, QPainter& painter, const QWidget* widget) const;

    const Theme& theme_;
};

// Grounds are told by palette roles, so that a widget follows the theme without code of its own: Window is
// the panel, Mid the window behind it, Dark the stage, Light what is raised, Midlight a hairline, and
// PlaceholderText secondary text, BrightText what went wrong.
QPalette paletteOf(const Theme& theme);

// Whether the desktop asks for less motion; then nothing moves on its own.
bool isMotionReduced();
void setMotionReduced(bool isReduced);

}   // namespace tavix::design
