// The lines of a text as they stand in a frame, and the fonts that draw them.
#pragma once

#include "TavixAgent/Describe/FrameDescription.h"
#include "TavixCore/Typography/TextContent.h"
#include "TavixPlatform/Imaging/Geometry.h"
#include "TavixRender/KineticText/KineticTextLayout.h"

#include <string>
#include <vector>

namespace tavix {

// From the top; boxes as the layer's motion moves them, in pixels from the top left of the canvas.
std::vector<LineDescription> linesOf(const TextContent& content, const KineticTextLayout::Result& layout,
    const imaging::Affine& motion, const imaging::Rect& canvas);

// Each once, in order of appearance.
std::vector<std::string> fontsOf(const KineticTextLayout::Result& layout);

}   // namespace tavix
