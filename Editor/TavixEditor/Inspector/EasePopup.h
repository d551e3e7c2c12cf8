// Everything about an ease in one place: its name, its curve, and what a spring is made of.
#pragma once

#include "TavixCore/Animation/TimingCurve.h"

#include <QWidget>

#include <functional>

class QComboBox;

namespace tavix::editor {

class CurveEditor;
class ScrubField;

class EaseControl final : public QWidget {
public:
    explicit EaseControl(QWidget* parent = nullptr);
    void setCurve(const TimingCurve& curve);   // tells nobody
    std::function<void(const TimingCurve& curve, bool isEditing)> onChange;

private:
    void tell(const TimingCurve& curve, bool isEditing);

    QComboBox* names_;
    CurveEditor* plot_;
    ScrubField *response_, *damping_;
    TimingCurve curve_ = LinearCurve{};
};

// Over everything, until a click elsewhere.
void showEasePopup(QWidget* parent, const QPoint& globally, const TimingCurve& curve,
    std::function<void(const TimingCurve& curve, bool isEditing)> onChange);

}   // namespace tavix::editor
