// Chooses a colour beside what it is for: a plane of saturation and brightness, its hue, its opacity, its
// numbers, one from anywhere on the screen, and those of the document and of before.
#pragma once

#include "TavixCore/Values/RGBAColor.h"

#include <functional>
#include <vector>

class QPoint;
class QWidget;

namespace tavix::editor::ColorPopup {

struct Events {
    std::function<void(const RGBAColor& color)> onChange;   // as it is chosen; more may come
    std::function<void(bool isKept)> onEnd;                 // once: Escape gives up, all else keeps
};

void show(QWidget* parent, const QPoint& globally, const RGBAColor& color,
    const std::vector<RGBAColor>& inDocument, Events events);

}   // namespace tavix::editor::ColorPopup
