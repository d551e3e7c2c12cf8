// A number that can be typed, worked out ("1080/3"), dragged on its title, or stepped with the arrow keys.
#pragma once

#include "Editor/EditorDomain/Inspector/ScrubMath.h"

#include <QLineEdit>

#include <functional>

namespace tavix::editor {

class ScrubField final : public QLineEdit {
public:
    // The title stands inside the field, at its left end; the suffix behind the number.
    ScrubField(const QString& title, const QString& suffix, const ScrubRange& range, double step,
        QWidget* parent = nullptr);

    // From the model: tells nobody, and leaves text alone that is being typed.
    void setValue(double value);
    void setAbsent(const QString& words);   // no number, as of layers that differ; words say why
    void setRange(const ScrubRange& range) { range_ = range; }
    double value() const { return value_; }
    // Of every change by the user; `isEditing` is true while a drag goes on, so that the model can join its
    // steps.
    std::function<void(double value, bool isEditing)> onChange;
    QSize sizeHint() const override { return {92, 24}; }
    QSize minimumSizeHint() const override { return {56, 24}; }

protected:
    bool event(QEvent*) override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseReleaseEvent(QMouseEvent*) override;
    void keyPressEvent(QKeyEvent*) override;
    void focusInEvent(QFocusEvent*) override;
    void focusOutEvent(QFocusEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void paintEvent(QPaintEvent*) override;

private:
    void commitText();
    void change(double value, bool isEditing);
    void showNumber();
    QString numberThatFits() const;
    int titleWidth() const;
    int suffixWidth() const;
    bool isOnTitle(const QPointF& at) const;

    enum class Drag { none, pressed, scrubbing };

    QString title_, suffix_;
    ScrubRange range_;
    double step_;
    double value_ = 0, scrubStart_ = 0;
    bool isAbsent_ = false;
    int pressX_ = 0;
    Drag drag_ = Drag::none;
};

}   // namespace tavix::editor
