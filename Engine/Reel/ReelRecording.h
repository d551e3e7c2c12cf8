// A recording named on the command line, with what lies beside it.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixReel/Recording/VideoProbe.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavix::engine {

class Terminal;

struct ReelRecording {
    std::string shownPath;   // as it was given, for messages
    ReelProjectBundle::Parts parts;
    VideoProbe probe;
    double rawDurationSec = 0;
    bool hasSidecar = false;
    // On the clock of documents, which starts where the reel does; without a sidecar, of the video's size and
    // without events.
    Timeline timeline;

    double preCutDurationSec() const;
};

// Reads the pixels of the recording, and its sidecar, whose times it corrects to the marks in the picture.
// What people should know of that is told. Throws a `DocumentError` for a sidecar that cannot be read, and
// `Failure` for a video that cannot.
ReelRecording openRecording(const std::string& given, Terminal& terminal);

// Both tell what is ignored in a document, and throw a `DocumentError` for one that cannot be read.
EffectsSpec readEffects(const std::filesystem::path& file, Terminal& terminal);
FlowSpec readFlow(const std::filesystem::path& file, Terminal& terminal);

}   // namespace tavix::engine
