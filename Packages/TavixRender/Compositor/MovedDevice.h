// A flat device where it has moved to: its parts by themselves, so that the pixels of a screen are looked up
// once only and edges stay sharp.
#pragma once

#include "TavixCore/Geometry/CameraFrameTransform.h"
#include "TavixCore/Values/PixelRect.h"
#include "TavixPlatform/Imaging/Image.h"

namespace tavix::CanvasDrawing {

// Where a rectangle goes; both have a top-left origin.
PixelRect moved(const PixelRect& rect, const CameraFrameTransform& move);

// The same move in the image's coordinates, where y points up.
imaging::Affine affineOf(const CameraFrameTransform& move, const imaging::Rect& bounds);

// The part of a picture that a screen with round corners shows; the picture covers it. Only the edge and the
// rows of the corners need a mask; what lies between is most of it.
imaging::Image cutToScreen(const imaging::Image& picture, const imaging::Rect& screen, double cornerRadiusPx);

}   // namespace tavix::CanvasDrawing
