// How a camera was held, as EXIF numbers it from 1 (upright) to 8, and turning a picture upright.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"

#include <cstddef>
#include <span>

namespace tavix::media {

// The orientation in a block of EXIF data, with or without its "Exif" prefix; 1 when there is none.
int exifOrientation(std::span<const std::byte> exif);

// The picture as it should be seen. An unknown orientation counts as upright.
imaging::Bitmap upright(imaging::Bitmap bitmap, int orientation);

}   // namespace tavix::media
