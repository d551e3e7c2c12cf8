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

private:
    void run();

    std::unique_ptr<VideoFrames> frames_;   // the thread's alone
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<VideoFrame> ready_;
    bool hasEnded_ = false, mustStop_ = false;
    std::exception_ptr failure_;   // why it ended, when memory ran out
    std::thread thread_;           // the last member: it uses all others
};

}   // namespace tavix::media
