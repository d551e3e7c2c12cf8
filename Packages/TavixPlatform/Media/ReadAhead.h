// Decodes on a thread of its own, a few pictures ahead of whoever takes them. Inside the library only.
#pragma once

#include "TavixPlatform/Media/VideoSource.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>

namespace tavix::media {

class ReadAhead final : public VideoFrames {
public:
    explicit ReadAhead(std::unique_ptr<VideoFrames> frames);
    ~ReadAhead() override;   // waits for the picture that is being decoded

    std::optional<VideoFrame> next() override;
    bool isDamaged() const override { return isDamaged_; }

private:
    void run();

    std::unique_ptr<VideoFrames> frames_;   // the thread's alone
    std::mutex mutex_;
    std::condition_variable changed_;
    struct Ready {
        VideoFrame frame;
        bool isDamaged;   // up to this one
    };
    std::deque<Ready> ready_;
    bool hasEnded_ = false, mustStop_ = false, isEndDamaged_ = false;
    bool isDamaged_ = false;       // the taker's alone
    std::exception_ptr failure_;   // why it ended, when the machine is to blame
    std::thread thread_;           // the last member: it uses all others
};

}   // namespace tavix::media
