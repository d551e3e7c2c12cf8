// What the screen shows: the app as it is driven, its flashes and its marks.
#pragma once

#include "Canvas.h"

namespace tavix::walkrecording {

// Of the phone's screen; both sides in pixels are even.
inline constexpr phonetour::Screen screen{402, 874, 1.75};

// At a time after the go, of the app's clock; before it, the app waits.
imaging::Image frameAt(double sec);

}   // namespace tavix::walkrecording
