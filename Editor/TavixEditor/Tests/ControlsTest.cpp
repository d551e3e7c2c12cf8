// The design system: what its text and colours promise, by numbers of the world.
#include "Editor/EditorDesignSystem/Controls/Timecode.h"
#include "Editor/EditorDesignSystem/Icons/Icons.h"
#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"

#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tavix::design {
namespace {

// Relative luminance and contrast by WCAG 2.1.
double luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}
double contrast(const QColor& a, const QColor& b) {
    const double x = luminance(a), y = luminance(b);
    return (std::max(x, y) + 0.05) / (std::min(x, y) + 0.05);
}

TEST(Tokens, TextCanBeReadOnEveryGround) {
    for (const Theme* theme : {&dark(), &light(), &contrastDark(), &contrastLight()}) {
        for (const QColor& ground : {theme->window, theme->panel, theme->raised, theme->field, theme->hover})
            for (const QColor& ink : {theme->text, theme->secondary})
                EXPECT_GE(contrast(ink, ground), 4.5)
                    << ink.name().toStdString() << ground.name().toStdString();
        EXPECT_GE(contrast(theme->onAccent, theme->accent), 4.5);
        EXPECT_GE(contrast(theme->danger, theme->panel), 4.5);
        EXPECT_GE(contrast(theme->warning, theme->panel), 4.5);
        for (const QColor& ground : {theme->stage, theme->window, theme->panel})
            EXPECT_GE(contrast(theme->focus, ground), 3);   // of what is no text
        for (const QColor& kind : theme->kinds)
            EXPECT_GE(contrast(Qt::white, kind), 4.5) << kind.name().toStdString();
    }
}

// Where no one blends windows, what is clear in them is black.
TEST(Style, WhatFloatsIsCutToThePixelsOfItsBox) {
    for (const QSize size : {QSize(40, 30), QSize(21, 21), QSize(300, 200)}) {
        for (const int radius : {5, 8, 10}) {
            QImage box(size, QImage::Format_ARGB32_Premultiplied);
            box.fill(Qt::transparent);
            QPainter painter(&box);
            drawBox(painter, box.rect(), radius, Qt::white);
            painter.end();
            const QRegion region = boxRegion(box.rect(), radius);
            for (int y = 0; y < size.height(); ++y)
                for (int x = 0; x < size.width(); ++x) {
                    const int alpha = qAlpha(box.pixel(x, y));
                    if (region.contains(QPoint(x, y))) continue;
                    EXPECT_LE(alpha, 12) << x << ", " << y << ": a pixel of the box is cut away";
                }
            EXPECT_FALSE(region.contains(QPoint(0, 0)) || region.contains(box.rect().bottomRight()));
        }
    }
    QMenu menu;
    menu.setStyle(new Style(dark()));
    menu.style()->setParent(&menu);
    menu.addAction(QStringLiteral("Copy"));
    menu.popup({0, 0});
    EXPECT_EQ(menu.mask(), boxRegion(menu.rect(), radius::card));
}

TEST(Timecode, TellsMinutesSecondsAndHundredths) {
    EXPECT_EQ(timecodeText(9.4), QStringLiteral("00:09.40"));
    EXPECT_EQ(timecodeText(59.999), QStringLiteral("00:59.99"));
    EXPECT_EQ(timecodeText(3600), QStringLiteral("60:00.00"));
    EXPECT_EQ(timecodeText(0.29), QStringLiteral("00:00.29"));   // 0.29 is less in binary
    for (const double none : {-1.0, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(timecodeText(none), QStringLiteral("00:00.00"));
}

TEST(Timecode, IsAsWideWhateverItTells) {
    Timecode code(TextSize::strong);
    const QSize wide = code.sizeHint();
    code.setSec(11.11);
    EXPECT_EQ(code.sizeHint(), wide);
}

TEST(Icons, EachDrawsInsideItsSquareAndIsNoOtherOne) {
    QList<QImage> drawn;
    for (int i = 0; i <= int(Icon::trash); ++i) {
        QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        drawIcon(painter, QRectF(8, 8, 32, 32), Icon(i), Qt::white);
        painter.end();
        int ink = 0;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 48; ++x) {
                if (qAlpha(image.pixel(x, y)) == 0) continue;
                ++ink;
                EXPECT_TRUE(x >= 8 && x < 40 && y >= 8 && y < 40) << i;
            }
        EXPECT_GT(ink, 20) << i;
        EXPECT_FALSE(drawn.contains(image)) << i;
        drawn.push_back(image);
    }
}

TEST(Style, ChangesTheThemeOfWidgetsThatStandAlready) {
    auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    QWidget widget;
    widget.setBackgroundRole(QPalette::Dark);
    widget.setAutoFillBackground(true);
    widget.show();
    const auto shown = [&] {
        QCoreApplication::processEvents();   // widgets are told by an event
        return QColor(widget.grab().toImage().pixel(2, 2));
    };
    EXPECT_EQ(shown(), dark().stage);
    Style::apply(*application, light());
    EXPECT_EQ(shown(), light().stage);
    Style::apply(*application, dark());
    EXPECT_EQ(shown(), dark().stage);
}

}   // namespace
}   // namespace tavix::design
