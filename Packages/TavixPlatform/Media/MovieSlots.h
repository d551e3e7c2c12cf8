// The frame slots of a movie writer and their way round: free, filled by the caller, waiting, read by the
// encoder, free again.
#pragma once

#include "TavixPlatform/Media/Libav.h"
#include "TavixPlatform/Media/MovieWriter.h"

#include <array>
#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>

namespace tavix::media {

// Shared by the caller's thread and the encoder's; owns the lock that stands between them.
class MovieSlots {
public:
    MovieSlots(imaging::Size sizePx, imaging::PlanarFormat format);

    // For the caller's side. All throw what `fail` was told.
    MovieWriter::Slot& acquire();
    void submit(MovieWriter::Slot& slot, std::int64_t presentationTime);
    void end();   // no more frames
    void rethrowFault();
    void abandon() noexcept;   // frames that wait are dropped

    // For the encoder's side. Waits for a frame that borrows a slot's planes; the slot becomes free when the
    // frame and all references to it are gone. Null after the last one.
    libav::Frame next(AVPixelFormat pixels);
    bool isAbandoned();
    void fail(std::exception_ptr fault) noexcept;

private:
    struct Place {
        MovieSlots* owner;   // for the callback that ends a loan
        MovieWriter::Slot slot;
        libav::Buffer bytes;
        std::size_t byteCount = 0;
        std::int64_t presentationTime = 0;
    };
    void lend(Place& place, AVFrame& frame);
    static void takeBack(void* place, std::uint8_t*) noexcept;

    std::array<Place, MovieWriter::slotCount> places_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Place*> free_, waiting_;
    std::exception_ptr fault_;
    bool hasEnded_ = false, isAbandoned_ = false;
};

}   // namespace tavix::media
