// The readers of still images, one per format. Each takes a whole file of its format and gives the picture
// upright, in sRGB, or throws MediaError with the reason.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MediaError.h"

#include <cstddef>
#include <span>

namespace tavix::media {

imaging::Bitmap readPng(std::span<const std::byte> file);
imaging::Bitmap readJpeg(std::span<const std::byte> file);
imaging::Bitmap readWebp(std::span<const std::byte> file);
imaging::Bitmap readHeif(std::span<const std::byte> file);

}   // namespace tavix::media
