// Decodes on a thread of its own, a few pictures ahead of whoever takes them. Pictures are converted there
// too as long as those taken are looked at, and not on the way to another one. A still looks at one picture
// alone; so the thread starts after the second, and until then nothing is decoded that is not asked for.
// Inside the library only.
#pragma once

#include "TavixPlatform/Media/VideoSource.h"

#include <atomic>
#include <condition_variable>
#include <deque>
#include <exception>
#include <memory>
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
    std::optional<VideoFrame> nextInStep();   // without the thread
    void run();
    VideoFrame watched(VideoFrame frame) const;   // tells when it is looked at

    std::unique_ptr<VideoFrames> frames_;   // the thread's alone
    std::mutex mutex_;
    std::condition_variable changed_;
    struct Ready {
        VideoFrame frame;
        bool isDamaged;   // up to this one
    };
    std::deque<Ready> ready_;
    bool hasEnded_ = false, mustStop_ = false, isEndDamaged_ = false;
    bool isDamaged_ = false;   // the taker's alone
    struct Looks {
        std::atomic<int> unseen = 0;   // pictures taken from the thread since one was looked at
        std::atomic<int> seen = 0;     // pictures looked at
    };
    std::shared_ptr<Looks> looks_;   // pictures that were taken may outlive this
    std::exception_ptr failure_;     // why it ended, when the machine is to blame
    std::thread thread_;             // the last member: it uses all others
};

}   // namespace tavix::media
