// Every size and colour of the editor, once. Views name a role ("hairline"), never a value.
#pragma once

#include <QColor>
#include <QFont>

namespace tavix::design {

// Distances are multiples of 4, with 2 for hair's breadths inside controls.
namespace space {
inline constexpr int hair = 2, tight = 4, small = 8, medium = 12, large = 16, section = 24, page = 32;
}
namespace radius {
inline constexpr int field = 5, bar = 5, card = 8, popover = 10;
}
namespace height {
inline constexpr int field = 24, row = 28, button = 28, toolbar = 44, ruler = 18, scene = 24, layer = 24;
}
namespace motion {   // milliseconds; see `isMotionReduced`
inline constexpr int hover = 90, appear = 140, panel = 180;
}

// One family in five sizes: 11, 13, 13 semibold, 15 and 24 pixels. Numbers that run are drawn digit by digit
// in equal cells (see Timecode), since this Qt knows no font features.
enum class TextSize { caption, body, strong, title, display };
QFont fontOf(TextSize size);

struct Theme {
    // Grounds, from the back to the front.
    QColor stage, window, panel, raised, field, hover, pressed;
    QColor hairline, focus;
    QColor text, secondary, disabled;
    QColor accent, onAccent, playhead, danger, warning, success, wave;
    // By kind of layer: text, device, image, clip, shape, fill.
    QColor kinds[6];
    bool isDark = true;
};

const Theme& dark();
const Theme& light();
// The same grounds with text, lines and focus as far from them as they can be.
const Theme& contrastDark();
const Theme& contrastLight();

}   // namespace tavix::design
