// What a screen recording of the app shows: the journal is scrolled, a walk is opened and read, and left.
#pragma once

#include "Canvas.h"

namespace tavix::phonetour {

constexpr double clipLengthSec = 10;
constexpr int clipFramesPerSec = 30, clipFrameUnits = 20;   // units of time that a frame lasts
// Of the phone's screen; both sides in pixels are even.
constexpr Screen clipScreen{402, 874, 1.75};

Image clipFrame(double atSec);

}   // namespace tavix::phonetour
