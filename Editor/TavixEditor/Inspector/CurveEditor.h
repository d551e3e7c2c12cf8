// A timing curve drawn large, with the two handles of a bent one.
#pragma once

#include "Editor/EditorDomain/Timeline/EasePreset.h"

#include <QWidget>

#include <functional>
#include <optional>

namespace tavix::editor {

class CurveEditor final : public QWidget {
public:
    explicit CurveEditor(QWidget* parent = nullptr);

    void setCurve(const TimingCurve& curve);   // tells nobody
    const TimingCurve& curve() const { return curve_; }
    // Of every change by hand; `isEditing` is true until the handle is let go.
    std::function<void(const TimingCurve& curve, bool isEditing)> onChange;
    QSize sizeHint() const override { return {240, 140}; }

protected:
    void paintEvent(QPaintEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;

private:
    QPointF pointOf(double x, double y) const;
    QPointF handle(EaseEditing::Handle which) const;
    void dragTo(const QPointF& at, bool isEditing);

    TimingCurve curve_ = LinearCurve{};
    std::optional<EaseEditing::Handle> held_;
    EaseEditing::Handle chosen_ = EaseEditing::Handle::first;   // by the keyboard
};

}   // namespace tavix::editor
