#include "TavixPlatform/Media/Orientation.h"
#include "TavixPlatform/Media/StillAssembly.h"
#include "TavixPlatform/Media/StillReaders.h"

#include <webp/decode.h>
#include <webp/demux.h>

#include <algorithm>
#include <cstdint>
#include <memory>

namespace tavix::media {
namespace {

using Demuxer = std::unique_ptr<WebPDemuxer, decltype(&WebPDemuxDelete)>;

// The bytes stay where they are in the file.
std::span<const std::byte> chunk(const WebPDemuxer* demuxer, const char* name) {
    WebPChunkIterator found;
    if (!WebPDemuxGetChunk(demuxer, name, 1, &found)) return {};
    const auto bytes = std::as_bytes(std::span(found.chunk.bytes, found.chunk.size));
    WebPDemuxReleaseChunkIterator(&found);
    return bytes;
}

[[noreturn]] void refuse(const char* why) {
    throw MediaError(std::string("The WebP image is damaged: ") + why + ".");
}

// The first frame of an animation may cover only a part of the canvas; the rest stays transparent.
void decodeFirstFrame(const WebPDemuxer* demuxer, imaging::Size canvas, StillAssembly& assembly) {
    WebPIterator frame;
    if (!WebPDemuxGetFrame(demuxer, 1, &frame)) refuse("it has no picture");
    const std::unique_ptr<WebPIterator, decltype(&WebPDemuxReleaseIterator)> owner(
        &frame, &WebPDemuxReleaseIterator);
    if (frame.x_offset < 0 || frame.y_offset < 0 || frame.width > canvas.width - frame.x_offset ||
        frame.height > canvas.height - frame.y_offset)
        refuse("its first frame lies outside of it");
    if (imaging::Size{frame.width, frame.height} != canvas)
        for (int y = 0; y < canvas.height; ++y)
            std::fill_n(assembly.rowMemory(y), std::ptrdiff_t{canvas.width} * 4, std::uint8_t{0});
    const std::ptrdiff_t stride = assembly.rowStrideBytes();
    std::uint8_t* to = assembly.rowMemory(frame.y_offset) + std::ptrdiff_t{frame.x_offset} * 4;
    const std::ptrdiff_t room = stride * (frame.height - 1) + std::ptrdiff_t{frame.width} * 4;
    if (!WebPDecodeRGBAInto(frame.fragment.bytes, frame.fragment.size, to, static_cast<std::size_t>(room),
            static_cast<int>(stride)))
        refuse("the picture cannot be decoded");
}

}   // namespace

imaging::Bitmap readWebp(std::span<const std::byte> file) {
    const WebPData data{reinterpret_cast<const std::uint8_t*>(file.data()), file.size()};
    const Demuxer demuxer(WebPDemux(&data), &WebPDemuxDelete);
    if (!demuxer) refuse("the file ends early or is no WebP file");
    const std::int64_t width = WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_WIDTH);
    const std::int64_t height = WebPDemuxGetI(demuxer.get(), WEBP_FF_CANVAS_HEIGHT);
    refuseStillSize(width, height);
    const imaging::Size canvas{static_cast<int>(width), static_cast<int>(height)};
    StillAssembly assembly(canvas, PixelLayout::rgba8,
        ColorConversion::fromProfile(chunk(demuxer.get(), "ICCP"), PixelLayout::rgba8));
    decodeFirstFrame(demuxer.get(), canvas, assembly);
    for (int y = 0; y < canvas.height; ++y) assembly.put(y, assembly.rowMemory(y));
    return upright(assembly.take(), exifOrientation(chunk(demuxer.get(), "EXIF")));
}

}   // namespace tavix::media
