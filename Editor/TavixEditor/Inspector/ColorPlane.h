// Where colours are chosen by hand: saturation to the right and brightness upward of one hue, and sliders
// over what they choose.
#pragma once

#include <QSlider>
#include <QWidget>

#include <functional>

namespace tavix::editor {

class ColorPlane final : public QWidget {
public:
    explicit ColorPlane(QWidget* parent = nullptr);
    // All from 0 to 1.
    void setColor(double hue, double saturation, double brightness);
    std::function<void(double saturation, double brightness)> onChange;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void choose(double saturation, double brightness);
    QRectF field() const;

    double hue_ = 0, saturation_ = 0, brightness_ = 0;
};

// A slider over a strip of colours, from that of 0 to that of 1.
class ColorSlider final : public QSlider {
public:
    ColorSlider(const QString& name, int most, QWidget* parent = nullptr);
    std::function<QColor(double fraction)> colorAt;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}   // namespace tavix::editor
