// Still images in files: PNG, JPEG, WebP, HEIC and AVIF are read, PNG is written.
#pragma once

#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixPlatform/Media/MediaError.h"

#include <cstddef>
#include <filesystem>
#include <span>

namespace tavix::media {

// The most pixels that a still image may have; sides are limited by imaging::Bitmap::maxSidePx. A file that
// claims more is refused before anything of that size is allocated.
constexpr std::size_t maxStillPixels = std::size_t{256} << 20;

// Reads an image as it is meant to be seen: turned upright as its orientation says, and with its colours
// converted to sRGB when it carries a profile that says otherwise. The kind of file is told by its content,
// never by its name. Throws MediaError with the reason when there is no usable image, and MediaFault when the
// machine cannot read it now.
imaging::Bitmap loadStillImage(const std::filesystem::path& path);
// The same of bytes in memory; std::bad_alloc when there is not enough of it.
imaging::Bitmap decodeStillImage(std::span<const std::byte> bytes);

// Writes eight-bit sRGB with straight alpha, without the alpha channel when every pixel is opaque.
void writePng(const std::filesystem::path& path, const imaging::ConstBitmapView& image);

}   // namespace tavix::media
