// Frames of a clip by time. An export asks for rising times and the clip is decoded forward, without a seek.
// A preview jumps about: the same reader then answers roughly from single sync frames, or by decoding no more
// than a few frames for one request.
#pragma once

#include "TavixCore/Device/ScreenSource.h"
#include "TavixPlatform/Media/VideoFile.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

// Used by one thread at a time.
class SequentialClipReader {
public:
    struct Clip {
        std::string name;   // for sentences
        double trimStartSec = 0;
        std::optional<double> trimEndSec;
        bool holdLastFrame = true;   // past the trim end; otherwise there is nothing
    };

    // A film that cannot be read, or only in part, is named in the log, once, and gives nothing where it
    // cannot. One that the machine cannot read now throws media::MediaFault. The scrub log is told what a
    // preview's requests cost.
    SequentialClipReader(
        std::unique_ptr<media::VideoSource> source, Clip clip, RenderLog log = {}, RenderLog scrubLog = {});
    // Of a film in a file.
    SequentialClipReader(const std::filesystem::path& path, const VideoClip& clip, bool holdLastFrame,
        const RenderLog& log, const RenderLog& scrubLog = {}, media::VideoManner manner = {});

    // The picture at a time of the clip, which starts at its trim; nothing where there is none. Past the end
    // of the film it is the last picture. `approximate` asks for whatever is quick instead of the exact one.
    std::optional<imaging::Image> frame(double atClipSeconds, bool approximate = false);

    // Whether a decoder is open, or none ever will be.
    bool isOpen() const { return frames_ || randomAccess_ || hasFinished_ || hasFailed_; }
    // Closes the decoders. The next request opens what it needs.
    void rest();

private:
    using Picture = std::optional<media::VideoFrame>;
    enum class Hold { keep, drop };   // the old picture, while a new one is looked for

    bool isBeforeEnd(double wanted) const;
    std::optional<imaging::Image> rapidAnswer(double wanted);
    bool jumpFor(double wanted, bool approximate);
    bool open(bool approximate);
    Picture nextFrame();   // of the forward decoder; tells of damage, once
    void drain();
    void rewind(double near, Hold hold);
    bool advance(double to, int maxDecodes);
    bool reopenedFurtherBack(double wanted);
    void decodeApproximately(double wanted, bool hasRewound);
    std::optional<imaging::Image> heldFrame();
    std::optional<imaging::Image> given();

    bool hasSamples();   // builds the map when there is none
    void buildSampleMap();
    std::size_t syncIndexFor(double sec) const;
    std::optional<imaging::Image> rapidFrame(double wanted);

    std::unique_ptr<media::VideoSource> source_;
    Clip clip_;
    RenderLog log_, scrubLog_;

    std::unique_ptr<media::VideoFrames> frames_;                 // the forward decoder
    std::optional<std::vector<media::VideoSample>> sampleMap_;   // built when first needed
    std::unique_ptr<media::RandomAccessFrames> randomAccess_;
    std::optional<std::size_t> rapidIndex_;   // of the sample in `rapidImage_`
    std::optional<imaging::Image> rapidImage_;
    double rapidPtsSec_ = 0;

    Picture current_;             // the newest one at or before the last request
    bool isCurrentOld_ = false;   // it was decoded before the last rewind
    Picture pending_;             // decoded past the request and kept for the next one
    std::optional<double> openAtSec_;
    double lastWantedSec_ = -std::numeric_limits<double>::infinity();
    bool needsRewind_ = false;   // the forward decoder does not match the position last answered
    bool hasFinished_ = false;   // the forward decoder has ended
    bool hasFailed_ = false;     // the film cannot be opened: nothing from now on
    bool isDamageTold_ = false;
};

}   // namespace tavix
