// A running time, its digits in equal cells so that nothing trembles while it runs.
#pragma once

#include "Editor/EditorDesignSystem/Style/Tokens.h"

#include <QPalette>
#include <QWidget>

namespace tavix::design {

// "00:09.40": minutes, seconds and hundredths. Negative or not finite counts as 0.
QString timecodeText(double sec);

class Timecode final : public QWidget {
public:
    explicit Timecode(
        TextSize size, QPalette::ColorRole role = QPalette::WindowText, QWidget* parent = nullptr);
    void setSec(double sec);   // repaints only when the text is another one
    QString text() const { return text_; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    double cellPx(QChar letter) const;

    QFont font_;
    QPalette::ColorRole role_;
    double digitPx_;
    QString text_;
};

}   // namespace tavix::design
