#include "TavixPlatform/Media/MovieSlots.h"

#include <algorithm>

namespace tavix::media {
namespace {

constexpr std::ptrdiff_t rowAlignmentBytes = 64;   // a cache line, and the widest vector
constexpr std::size_t slackBytes = 64;             // whole vectors may be read at the end of the last row

struct PlaneLayout {
    std::ptrdiff_t strideBytes[4] = {};
    std::size_t offsetBytes[4] = {};
    int count = 0;
    std::size_t byteCount = 0;
};

PlaneLayout layoutOf(imaging::Size sizePx, imaging::PlanarFormat format) {
    const bool isTall = format != imaging::PlanarFormat::yuv420p8;     // chroma has every row
    const bool isWide = format == imaging::PlanarFormat::yuva444p10;   // and every column
    const int sampleBytes = format == imaging::PlanarFormat::yuv420p8 ? 1 : 2;
    PlaneLayout layout;
    layout.count = isWide ? 4 : 3;
    for (int plane = 0; plane < layout.count; ++plane) {
        const bool isChroma = plane == 1 || plane == 2;
        const int width = isChroma && !isWide ? (sizePx.width + 1) / 2 : sizePx.width;
        const int height = isChroma && !isTall ? (sizePx.height + 1) / 2 : sizePx.height;
        const std::ptrdiff_t rowBytes = std::ptrdiff_t{width} * sampleBytes;
        layout.strideBytes[plane] =
            (rowBytes + rowAlignmentBytes - 1) / rowAlignmentBytes * rowAlignmentBytes;
        layout.offsetBytes[plane] = layout.byteCount;
        layout.byteCount += static_cast<std::size_t>(layout.strideBytes[plane] * height);
    }
    return layout;
}

}   // namespace

MovieSlots::MovieSlots(imaging::Size sizePx, imaging::PlanarFormat format) {
    const PlaneLayout layout = layoutOf(sizePx, format);
    for (Place& place : places_) {
        place.owner = this;
        place.byteCount = layout.byteCount + slackBytes;
        place.bytes = libav::owned<libav::Buffer>(av_buffer_allocz(place.byteCount));
        place.slot.planes.format = format;
        place.slot.planes.size = sizePx;
        for (int plane = 0; plane < layout.count; ++plane) {
            place.slot.planes.planes[plane] = place.bytes->data + layout.offsetBytes[plane];
            place.slot.planes.strideBytes[plane] = layout.strideBytes[plane];
        }
        free_.push_back(&place);
    }
}

MovieWriter::Slot& MovieSlots::acquire() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [&] { return fault_ || !free_.empty(); });
    if (fault_) std::rethrow_exception(fault_);
    Place& place = *free_.front();
    free_.pop_front();
    return place.slot;
}

void MovieSlots::submit(MovieWriter::Slot& slot, std::int64_t presentationTime) {
    const std::lock_guard lock(mutex_);
    if (fault_) std::rethrow_exception(fault_);
    const auto place =
        std::find_if(places_.begin(), places_.end(), [&](const Place& p) { return &p.slot == &slot; });
    place->presentationTime = presentationTime;
    waiting_.push_back(&*place);
    changed_.notify_all();
}

void MovieSlots::end() {
    const std::lock_guard lock(mutex_);
    hasEnded_ = true;
    changed_.notify_all();
}

void MovieSlots::rethrowFault() {
    const std::lock_guard lock(mutex_);
    if (fault_) std::rethrow_exception(fault_);
}

void MovieSlots::abandon() noexcept {
    const std::lock_guard lock(mutex_);
    isAbandoned_ = true;
    changed_.notify_all();
}

bool MovieSlots::isAbandoned() {
    const std::lock_guard lock(mutex_);
    return isAbandoned_;
}

void MovieSlots::fail(std::exception_ptr fault) noexcept {
    const std::lock_guard lock(mutex_);
    fault_ = std::move(fault);
    changed_.notify_all();
}

libav::Frame MovieSlots::next(AVPixelFormat pixels) {
    Place* place = nullptr;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [&] { return isAbandoned_ || hasEnded_ || !waiting_.empty(); });
        if (isAbandoned_ || waiting_.empty()) return nullptr;
        place = waiting_.front();
        waiting_.pop_front();
    }
    auto frame = libav::owned<libav::Frame>(av_frame_alloc());
    frame->format = pixels;
    lend(*place, *frame);
    return frame;
}

void MovieSlots::lend(Place& place, AVFrame& frame) {
    const imaging::PlanarView& planes = place.slot.planes;
    frame.width = planes.size.width;
    frame.height = planes.size.height;
    frame.pts = place.presentationTime;
    for (int plane = 0; plane < 4; ++plane) {
        frame.data[plane] = planes.planes[plane];
        frame.linesize[plane] = static_cast<int>(planes.strideBytes[plane]);
    }
    // Read-only: whoever wants to write must make a copy first.
    frame.buf[0] =
        av_buffer_create(place.bytes->data, place.byteCount, &takeBack, &place, AV_BUFFER_FLAG_READONLY);
    if (!frame.buf[0]) throw std::bad_alloc();
}

void MovieSlots::takeBack(void* opaque, std::uint8_t*) noexcept {
    auto& place = *static_cast<Place*>(opaque);
    MovieSlots& slots = *place.owner;
    const std::lock_guard lock(slots.mutex_);
    slots.free_.push_back(&place);
    slots.changed_.notify_all();
}

}   // namespace tavix::media
