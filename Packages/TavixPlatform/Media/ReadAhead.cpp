#include "TavixPlatform/Media/ReadAhead.h"

#include "TavixPlatform/Imaging/StopScope.h"

#include <utility>

namespace tavix::media {
namespace {

constexpr std::size_t mostReady = 1;   // beside the one being decoded; more only takes memory

}   // namespace

ReadAhead::ReadAhead(std::unique_ptr<VideoFrames> frames)
    : frames_(std::move(frames)), thread_([this, stop = imaging::StopScope::current()] {
          const imaging::StopScope scope(stop);
          run();
      }) {}

ReadAhead::~ReadAhead() {
    {
        const std::lock_guard lock(mutex_);
        mustStop_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void ReadAhead::run() {
    for (;;) {
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return mustStop_ || ready_.size() < mostReady; });
            if (mustStop_) return;
        }
        std::optional<VideoFrame> frame;
        std::exception_ptr failure;
        try {
            frame = frames_->next();
            if (frame) frame->image();   // converted here, not where it is shown
        } catch (...) {
            frame.reset();
            failure = std::current_exception();
        }
        {
            const std::lock_guard lock(mutex_);
            failure_ = failure;
            if (frame)
                ready_.push_back({std::move(*frame), frames_->isDamaged()});
            else
                hasEnded_ = true, isEndDamaged_ = frames_->isDamaged();
        }
        changed_.notify_all();
        if (!frame) return;
    }
}

std::optional<VideoFrame> ReadAhead::next() {
    std::optional<VideoFrame> frame;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return hasEnded_ || !ready_.empty(); });
        if (ready_.empty()) {
            if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
            isDamaged_ = isEndDamaged_;
            return std::nullopt;
        }
        frame = std::move(ready_.front().frame);
        isDamaged_ = ready_.front().isDamaged;
        ready_.pop_front();
    }
    changed_.notify_all();
    return frame;
}

}   // namespace tavix::media
