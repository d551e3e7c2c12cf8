#include "TavixPlatform/Media/ReadAhead.h"

#include "TavixPlatform/Imaging/StopScope.h"

#include <utility>

namespace tavix::media {
namespace {

constexpr std::size_t mostReady = 1;   // beside the one being decoded; more only takes memory
// A film of twice our rate has a picture between those that are shown, and one is taken before its turn.
constexpr int mostUnseen = 2;
constexpr int mostSeenInStep = 1;

}   // namespace

ReadAhead::ReadAhead(std::unique_ptr<VideoFrames> frames)
    : frames_(std::move(frames)), looks_(std::make_shared<Looks>()) {}

ReadAhead::~ReadAhead() {
    {
        const std::lock_guard lock(mutex_);
        mustStop_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) thread_.join();
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
            if (frame && looks_->unseen <= mostUnseen)
                frame->image();   // converted here, not where it is shown
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

std::optional<VideoFrame> ReadAhead::nextInStep() {
    auto frame = frames_->next();
    isDamaged_ = frames_->isDamaged();
    if (!frame) {
        hasEnded_ = true, isEndDamaged_ = isDamaged_;
        return std::nullopt;
    }
    return watched(std::move(*frame));
}

std::optional<VideoFrame> ReadAhead::next() {
    if (!thread_.joinable() && !hasEnded_) {
        if (looks_->seen <= mostSeenInStep) return nextInStep();
        thread_ = std::thread([this, stop = imaging::StopScope::current()] {
            const imaging::StopScope scope(stop);
            run();
        });
    }
    std::optional<VideoFrame> frame;
    {
        std::unique_lock lock(mutex_);
        changed_.wait(lock, [this] { return hasEnded_ || !ready_.empty(); });
        if (ready_.empty()) {
            if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
            isDamaged_ = isEndDamaged_;
            return std::nullopt;
        }
        frame = watched(std::move(ready_.front().frame));
        isDamaged_ = ready_.front().isDamaged;
        ready_.pop_front();
    }
    changed_.notify_all();
    ++looks_->unseen;
    return frame;
}

VideoFrame ReadAhead::watched(VideoFrame frame) const {
    const double ptsSec = frame.ptsSec();
    return {ptsSec, [frame = std::move(frame), looks = looks_]() mutable {
                looks->unseen = 0;
                ++looks->seen;
                return frame.image();
            }};
}

}   // namespace tavix::media
