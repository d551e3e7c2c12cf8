// What a clip reader asks of a film: pictures in order, single pictures, and the times of them all. Seconds
// count from the file's own second 0.
#pragma once

#include "TavixPlatform/Imaging/Image.h"
#include "TavixPlatform/Media/MediaError.h"

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace tavix::media {

// A picture of a film, shown from its time on until the next one's. Turned upright, with square pixels, its
// bottom-left corner at the origin; the values are taken as sRGB-encoded, whatever curve the film names.
class VideoFrame {
public:
    VideoFrame(double ptsSec, imaging::Image image) : ptsSec_(ptsSec), image_(std::move(image)) {}
    // Converts the picture when it is first looked at: many are only decoded on the way to another.
    VideoFrame(double ptsSec, std::function<imaging::Image()> convert)
        : ptsSec_(ptsSec), convert_(std::move(convert)) {}

    double ptsSec() const { return ptsSec_; }
    const imaging::Image& image() {
        if (convert_) image_ = std::exchange(convert_, nullptr)();
        return image_;
    }

private:
    double ptsSec_;
    imaging::Image image_;
    std::function<imaging::Image()> convert_;
};

// Both are used by one thread at a time, and end where the film is too damaged to go on. They throw
// MediaFault where the machine is to blame.
class VideoFrames {
public:
    virtual ~VideoFrames() = default;
    // With rising times; nothing after the last.
    virtual std::optional<VideoFrame> next() = 0;
    // Whether, up to the picture given last, some could not be decoded whole or the film ended before its
    // time.
    virtual bool isDamaged() const { return false; }
};
class RandomAccessFrames {
public:
    virtual ~RandomAccessFrames() = default;
    // The first picture whose time lies in the range, which begins at a sync sample.
    virtual std::optional<VideoFrame> frame(double startSec, double durationSec) = 0;
    virtual bool hasFailed() const = 0;   // no range will give anything any more
};

struct VideoSample {
    double ptsSec;
    bool isSync;   // can be decoded without any other
};

// Pictures are drawn to fill a box of that size in pixels, and never larger. They are halved when they are
// converted, as long as they fill it; their extent stays what it was. For films those of more than 1920 x
// 1200 are, for previews all, at less care for where chroma stands.
struct ShownBox {
    imaging::Size px;
    bool isPreview = false;
    bool operator==(const ShownBox&) const = default;
};

// How pictures will be asked for: each one in turn, so that the next may be decoded while one is shown; or
// now and then.
enum class Pace { steady, onDemand };

// Every operation throws MediaError, with a finished sentence, when the film cannot be read.
class VideoSource {
public:
    virtual ~VideoSource() = default;
    // From the picture that is shown at the start on, up to the last one before the end.
    virtual std::unique_ptr<VideoFrames> framesFrom(double startSec, double endSec, Pace pace) = 0;
    virtual std::unique_ptr<RandomAccessFrames> randomAccess() = 0;
    // Of every sample that is shown, sorted by time; read without decoding.
    virtual std::vector<VideoSample> samples() = 0;
};

// Timestamps are rounded to the ticks of their container, which may be as long as a millisecond; so a
// picture is also meant for a time that lies this little before its own.
constexpr double timestampToleranceSec = 0.0005;

}   // namespace tavix::media
