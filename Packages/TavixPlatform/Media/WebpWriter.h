// Writes an animated WebP. Frames are coded as they come, each by what differs from the one before; what is
// kept in memory is the coded film and a few frames.
#pragma once

#include "TavixPlatform/Media/AnimationWriter.h"
#include "TavixPlatform/Media/MediaError.h"
#include "TavixPlatform/Media/MovieWriter.h"

#include <filesystem>
#include <memory>

namespace tavix::media {

struct WebpSettings {
    static constexpr int usualQuality = 75;
    std::filesystem::path path;              // replaced when it exists; its folder must exist
    imaging::Size sizePx;                    // up to 16383 on a side
    int timescale = 30, frameDuration = 1;   // a frame lasts `frameDuration / timescale` seconds
    int quality = usualQuality;              // 0 to 100
    EncodingEffort effort = EncodingEffort::fast;
};

// The animation loops for ever. Times are thousandths of a second, rounded so that the error never adds up.
class WebpWriter final : public AnimationWriter {
public:
    explicit WebpWriter(const WebpSettings& settings);   // creates the file
    ~WebpWriter() override;                              // without `finish` the file is removed
    WebpWriter(const WebpWriter&) = delete;
    WebpWriter& operator=(const WebpWriter&) = delete;

    void append(const imaging::ConstBitmapView& frame) override;   // with its alpha
    void finish() override;

private:
    class Session;
    std::unique_ptr<Session> session_;
};

}   // namespace tavix::media
