// The names beside the timeline's rows, and what can be done to a row of keyframes: to the one before, set
// one here, to the next.
#pragma once

#include <QCoreApplication>
#include <QWidget>

#include <optional>
#include <utility>

namespace tavix::editor {

class TimelineCanvas;

class TimelineGutter final : public QWidget {
    Q_DECLARE_TR_FUNCTIONS(TimelineGutter)
public:
    explicit TimelineGutter(TimelineCanvas& canvas, QWidget* parent = nullptr);
    static constexpr int widthPoints = 132;

protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void leaveEvent(QEvent*) override;

private:
    enum class Button { before, add, next };
    using Place = std::pair<std::size_t, Button>;   // of which row of keyframes

    QRectF buttonRect(std::size_t row, Button button) const;
    std::optional<Place> buttonAt(const QPointF& at) const;

    TimelineCanvas& canvas_;
    std::optional<Place> hover_;
};

}   // namespace tavix::editor
