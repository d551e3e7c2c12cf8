// Picture operations that text and layers share.
#pragma once

#include "TavixPlatform/Imaging/Image.h"

namespace tavix::KineticImageFX {

// Scales the alpha, and with it the premultiplied colour.
inline imaging::Image alphaMul(const imaging::Image& image, double alpha) { return image.withOpacity(alpha); }

}   // namespace tavix::KineticImageFX
