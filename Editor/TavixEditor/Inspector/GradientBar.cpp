#include "TavixEditor/Inspector/GradientBar.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/Inspector/Colors.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLinearGradient>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tavix::editor {

using namespace design;

namespace {

constexpr double margin = 8, barHeight = 20, knobRadius = 6, knobY = 30, reach = 8, keyStep = 0.01;
constexpr std::size_t fewestStops = 2;

RGBAColor between(const LinearGradient& gradient, double location) {
    RGBAColor color = gradient.stops.empty() ? RGBAColor::white : gradient.stops.front().color;
    for (std::size_t i = 0; i + 1 < gradient.stops.size(); ++i) {
        const GradientStop &a = gradient.stops[i], &b = gradient.stops[i + 1];
        if (location < a.location) break;
        const double length = b.location - a.location,
                     t = length > 0 ? std::clamp((location - a.location) / length, 0.0, 1.0) : 1;
        const auto mixed = [t](double from, double to) { return from + (to - from) * t; };
        color = {mixed(a.color.r, b.color.r), mixed(a.color.g, b.color.g), mixed(a.color.b, b.color.b),
            mixed(a.color.a, b.color.a)};
    }
    return color;
}

}   // namespace

GradientBar::GradientBar(QWidget* parent) : QWidget(parent) {
    setFocusPolicy(Qt::StrongFocus);
    setFixedHeight(40);
    setAccessibleName(QCoreApplication::translate("GradientBar", "Stops of the gradient"));
    setToolTip(QCoreApplication::translate(
        "GradientBar", "Click beside the stops to add one, Delete takes it away."));
}

void GradientBar::setGradient(const LinearGradient& gradient) {
    if (isHeld_ || gradient == gradient_) return;
    gradient_ = gradient;
    chosen_ = std::min(chosen_, gradient_.stops.empty() ? 0 : gradient_.stops.size() - 1);
    update();
}

void GradientBar::setChosenColor(const RGBAColor& color, bool isEditing) {
    if (chosen_ >= gradient_.stops.size()) return;
    gradient_.stops[chosen_].color = color;
    tell(isEditing);
}

double GradientBar::xOf(double location) const { return margin + location * (width() - 2 * margin); }
double GradientBar::locationAt(double x) const {
    return std::clamp((x - margin) / (width() - 2 * margin), 0.0, 1.0);
}

void GradientBar::tell(bool isEditing) {
    update();
    if (onChange) onChange(gradient_, isEditing);
}

bool GradientBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Delete || key == Qt::Key_Backspace || key == Qt::Key_Left ||
            key == Qt::Key_Right) {
            event->accept();
            return true;
        }
    }
    return QWidget::event(event);
}

void GradientBar::paintEvent(QPaintEvent*) {
    const Theme& theme = Style::theme();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF bar(margin - 2, 2, width() - 2 * margin + 4, barHeight);
    paintChecks(painter, bar, radius::field);
    QLinearGradient fill(xOf(0), 0, xOf(1), 0);
    for (const GradientStop& stop : gradient_.stops)
        fill.setColorAt(std::clamp(stop.location, 0.0, 1.0), qColor(stop.color));
    painter.setPen(QPen(theme.hairline, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(bar, radius::field, radius::field);
    for (std::size_t i = 0; i < gradient_.stops.size(); ++i) {
        const QPointF at(xOf(gradient_.stops[i].location), knobY);
        const bool isChosen = i == chosen_;
        painter.setPen(QPen(isChosen ? theme.focus : theme.secondary, isChosen ? 2.25 : 1.25));
        QColor solid = qColor(gradient_.stops[i].color);
        solid.setAlpha(255);
        painter.setBrush(solid);
        painter.drawEllipse(at, knobRadius, knobRadius);
    }
}

void GradientBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    std::size_t nearest = gradient_.stops.size();
    double best = reach;
    for (std::size_t i = 0; i < gradient_.stops.size(); ++i)
        if (const double away = std::abs(xOf(gradient_.stops[i].location) - event->position().x());
            away < best) {
            best = away;
            nearest = i;
        }
    isHeld_ = true;
    if (nearest == gradient_.stops.size()) {
        const double location = locationAt(event->position().x());
        const auto behind = std::ranges::find_if(
            gradient_.stops, [&](const GradientStop& stop) { return stop.location > location; });
        nearest = std::size_t(behind - gradient_.stops.begin());
        gradient_.stops.insert(behind, {between(gradient_, location), location});
        chosen_ = nearest;
        tell(true);
    }
    chosen_ = nearest;
    if (onChoose) onChoose();
    update();
}

void GradientBar::mouseMoveEvent(QMouseEvent* event) {
    if (!isHeld_ || chosen_ >= gradient_.stops.size()) return;
    // Stops keep their order: one stops at its neighbours.
    const double least = chosen_ > 0 ? gradient_.stops[chosen_ - 1].location : 0;
    const double most = chosen_ + 1 < gradient_.stops.size() ? gradient_.stops[chosen_ + 1].location : 1;
    gradient_.stops[chosen_].location =
        std::clamp(std::round(locationAt(event->position().x()) * 100) / 100, least, std::max(least, most));
    tell(true);
}

void GradientBar::mouseReleaseEvent(QMouseEvent*) {
    if (std::exchange(isHeld_, false)) tell(false);
}

void GradientBar::removeChosen() {
    if (gradient_.stops.size() <= fewestStops) return;
    gradient_.stops.erase(gradient_.stops.begin() + std::ptrdiff_t(chosen_));
    chosen_ = std::min(chosen_, gradient_.stops.size() - 1);
    tell(false);
    if (onChoose) onChoose();
}

void GradientBar::keyPressEvent(QKeyEvent* event) {
    if (chosen_ >= gradient_.stops.size()) return;
    switch (event->key()) {
    case Qt::Key_Delete:
    case Qt::Key_Backspace: return removeChosen();
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const std::size_t count = gradient_.stops.size();
        chosen_ = (chosen_ + (event->key() == Qt::Key_Down ? 1 : count - 1)) % count;
        if (onChoose) onChoose();
        return update();
    }
    case Qt::Key_Left:
    case Qt::Key_Right: {
        double& location = gradient_.stops[chosen_].location;
        location = std::clamp(location + (event->key() == Qt::Key_Right ? keyStep : -keyStep), 0.0, 1.0);
        return tell(false);
    }
    default: QWidget::keyPressEvent(event);
    }
}

}   // namespace tavix::editor
