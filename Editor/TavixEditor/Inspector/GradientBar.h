// A gradient as a bar with its stops under it, to be dragged, added by a click beside them and taken away.
#pragma once

#include "TavixCore/Values/LinearGradient.h"

#include <QWidget>

#include <cstddef>
#include <functional>

namespace tavix::editor {

class GradientBar final : public QWidget {
public:
    explicit GradientBar(QWidget* parent = nullptr);

    void setGradient(const LinearGradient& gradient);   // tells nobody
    const LinearGradient& gradient() const { return gradient_; }
    std::size_t chosen() const { return chosen_; }
    void setChosenColor(const RGBAColor& color, bool isEditing);
    std::function<void(const LinearGradient& gradient, bool isEditing)> onChange;
    std::function<void()> onChoose;   // another stop
    QSize sizeHint() const override { return {200, 40}; }

protected:
    bool event(QEvent*) override;
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    double xOf(double location) const;
    double locationAt(double x) const;
    void tell(bool isEditing);
    void removeChosen();

    LinearGradient gradient_;
    std::size_t chosen_ = 0;
    bool isHeld_ = false;
};

}   // namespace tavix::editor
