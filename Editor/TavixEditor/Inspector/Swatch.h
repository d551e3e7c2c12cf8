// A button that shows a colour over checks; without one it is empty.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <QAbstractButton>

#include <optional>

namespace tavix::editor {

class Swatch final : public QAbstractButton {
public:
    explicit Swatch(const QSize& size, QWidget* parent = nullptr);
    void setColor(const std::optional<RGBAColor>& color);
    const std::optional<RGBAColor>& color() const { return color_; }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<RGBAColor> color_;
};

}   // namespace tavix::editor
