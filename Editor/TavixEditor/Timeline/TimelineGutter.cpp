#include "TavixEditor/Timeline/TimelineGutter.h"

#include "Editor/EditorDesignSystem/Style/Drawing.h"
#include "Editor/EditorDesignSystem/Style/Style.h"
#include "TavixEditor/App/DocumentText.h"
#include "TavixEditor/Timeline/TimelineCanvas.h"
#include "TavixLive/Model/CompositionEditorModel.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

namespace tavix::editor {

using namespace design;
using timeline::Layout;

namespace {

constexpr int buttonSize = 16, buttonGap = 2;

}   // namespace

TimelineGutter::TimelineGutter(TimelineCanvas& canvas, QWidget* parent) : QWidget(parent), canvas_(canvas) {
    setFixedWidth(widthPoints);
    setMouseTracking(true);
}

QRectF TimelineGutter::buttonRect(std::size_t row, Button button) const {
    const double top = canvas_.viewY(canvas_.layout().keyframeRowTop(canvas_.scene(), row));
    const double left = width() - space::small - (3 - int(button)) * (buttonSize + buttonGap) + buttonGap;
    return {left, top + (Layout::rowHeight - buttonSize) / 2.0, buttonSize, buttonSize};
}

std::optional<TimelineGutter::Place> TimelineGutter::buttonAt(const QPointF& at) const {
    if (at.y() < Layout::headHeight) return std::nullopt;
    for (std::size_t row = 0; row < canvas_.scene().keyframeRows.size(); ++row)
        for (const Button button : {Button::before, Button::add, Button::next})
            if (buttonRect(row, button).contains(at)) return Place{row, button};
    return std::nullopt;
}

void TimelineGutter::paintEvent(QPaintEvent*) {
    const Theme& theme = Style::theme();
    const timeline::Scene& scene = canvas_.scene();
    QPainter painter(this);
    painter.fillRect(rect(), theme.panel);
    painter.fillRect(QRect(width() - 1, 0, 1, height()), theme.hairline);
    painter.setClipRect(0, Layout::headHeight, width(), height());
    if (canvas_.lanesBottom() < canvas_.height())
        painter.fillRect(QRect(0, canvas_.lanesBottom(), width(), 1), theme.hairline);
    painter.setFont(fontOf(TextSize::caption));
    const auto name = [&](double top, int rowHeight, const QString& words, int room, const QColor& color) {
        painter.setPen(color);
        const QRectF box(space::medium, canvas_.viewY(top), room, rowHeight);
        painter.drawText(box, Qt::AlignVCenter | Qt::TextSingleLine,
            QFontMetrics(painter.font()).elidedText(words, Qt::ElideRight, room));
    };
    const int room = width() - space::medium - space::small;
    if (scene.rows > 0)
        name(canvas_.layout().laneTop(0), Layout::rowHeight, tr("Layers"), room, theme.secondary);
    if (!scene.cues.empty())
        name(canvas_.layout().soundTop(scene), Layout::cueHeight, tr("Sounds"), room, theme.secondary);
    if (scene.hasMusic)
        name(canvas_.layout().waveTop(scene), Layout::waveHeight, QString::fromStdString(scene.musicName),
            room, theme.secondary);
    painter.setRenderHint(QPainter::Antialiasing);
    for (std::size_t row = 0; row < scene.keyframeRows.size(); ++row) {
        name(canvas_.layout().keyframeRowTop(scene, row), Layout::rowHeight,
            documentLabel(scene.keyframeRows[row].label), room - 3 * (buttonSize + buttonGap), theme.text);
        for (const Button button : {Button::before, Button::add, Button::next}) {
            const QRectF box = buttonRect(row, button);
            const bool isUnder = hover_ == Place{row, button};
            if (isUnder) drawBox(painter, box, 3, theme.hover);
            const QPointF middle = box.center();
            painter.setPen(QPen(
                isUnder ? theme.text : theme.secondary, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
            painter.setBrush(Qt::NoBrush);
            if (button == Button::add) {
                painter.drawPolygon(QPolygonF{{0, -3.8}, {3.8, 0}, {0, 3.8}, {-3.8, 0}}.translated(middle));
            } else {
                const double way = button == Button::before ? -1.5 : 1.5;
                painter.drawPolyline(QPolygonF{{-way, -3}, {way, 0}, {-way, 3}}.translated(middle));
            }
        }
    }
}

bool TimelineGutter::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        auto* const help = static_cast<QHelpEvent*>(event);
        if (const auto place = buttonAt(help->pos())) {
            const QString words[] = {tr("Go to the keyframe before"),
                tr("Set a keyframe at the playhead (K)"), tr("Go to the next keyframe")};
            QToolTip::showText(help->globalPos(), words[int(place->second)], this);
        }
        return true;
    }
    return QWidget::event(event);
}

void TimelineGutter::mousePressEvent(QMouseEvent* event) {
    const auto place = buttonAt(event->position());
    if (!place || event->button() != Qt::LeftButton) return;
    if (place->second == Button::add)
        canvas_.addKeyframeAtPlayhead(place->first);
    else
        canvas_.seekToMark(place->first, place->second == Button::before ? -1 : 1);
}

void TimelineGutter::mouseMoveEvent(QMouseEvent* event) {
    const auto under = buttonAt(event->position());
    if (under == hover_) return;
    hover_ = under;
    update();
}

void TimelineGutter::leaveEvent(QEvent*) {
    hover_.reset();
    update();
}

}   // namespace tavix::editor
