// The pictures of a recording that a reel is made of, on the pre-cut clock.
#pragma once

#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Time/ReelTimeline.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Composition2D/PacedFootage.h"
#include "TavixRender/Composition2D/SequentialClipReader.h"
#include "TavixRender/DeviceScene/ScreenTransitionWindow.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace tavix {

// The part of a recording that a reel is made of.
struct ReelFootage {
    std::filesystem::path video;
    imaging::Size size;                        // as it is seen, in pixels
    double durationSec = 0;                    // of the whole file
    double trimStartSec = 0, trimEndSec = 0;   // of the reel in it; more than there is counts for its end

    // That part, within the file.
    TimeRangeSec trim() const;
};

// The clock of the reel, without opening its recording; nothing in it when everything is cut.
std::vector<ReelTimeline::ReelSegment> reelSegments(const EffectsSpec& spec, const ReelFootage& footage);

// Used by one thread at a time.
class RecordingPictures {
public:
    // Of the film with those segments.
    RecordingPictures(const EffectsSpec& spec, const ReelFootage& footage,
        std::vector<ReelTimeline::ReelSegment> segments, const RenderLog& log);

    // Nothing where none can be read, which the log is told. Times that rise are answered without a seek;
    // `approximate` asks for whatever is quick.
    std::optional<imaging::Image> at(double preCutSec, bool approximate = false);
    // Closes the decoder. The next request opens what it needs.
    void rest() { reader_.rest(); }

    // The document's screen transitions with the pictures that they start from and end at, read by a reader
    // of their own. Throws `Failure` when one cannot be read.
    static std::vector<TransitionInput> transitionInputs(
        const EffectsSpec& spec, const ReelFootage& footage, const RenderLog& log);

private:
    std::optional<imaging::Image> mixture(double preCutSec);

    double trimStartSec_, frameSec_;
    std::vector<ReelTimeline::ReelSegment> segments_;
    SequentialClipReader reader_;
    std::optional<PacedFootage> paced_;   // of a document that wants retimed footage mixed
};

}   // namespace tavix
