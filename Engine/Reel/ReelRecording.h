// A recording named on the command line, with what lies beside it.
#pragma once

#include "TavixCore/Timeline/Timeline.h"
#include "TavixReel/Authoring/TeaserSpec.h"
#include "TavixReel/Document/EffectsSpec.h"
#include "TavixReel/Flow/FlowSpec.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixReel/Recording/DoneReport.h"
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

// Whether what the pixels told is kept for the next command.
enum class ProbeMemory { used, unused };

// Reads the pixels of the recording, and its sidecar, whose times it corrects to the marks in the picture.
// What people should know of that is told. Throws a `DocumentError` for a sidecar that cannot be read, and
// `Failure` for a video that cannot.
ReelRecording openRecording(
    const std::string& given, Terminal& terminal, ProbeMemory memory = ProbeMemory::used);

// What the pixels of a video tell. Damage is told. Throws `Failure` for one that cannot be read.
VideoProbe probeRecording(
    const std::filesystem::path& video, Terminal& terminal, ProbeMemory memory = ProbeMemory::unused);

// Where a document is to be written: what was asked for, or its usual place. Throws a `Failure` when
// something is there already and is not to be replaced.
std::filesystem::path newDocument(
    const std::optional<std::string>& asked, const std::filesystem::path& usual, bool replaces);

// They tell what is ignored in a document, and throw a `DocumentError` for one that cannot be read.
EffectsSpec readEffects(const std::filesystem::path& file, Terminal& terminal);
FlowSpec readFlow(const std::filesystem::path& file, Terminal& terminal);
TeaserSpec readTeaser(const std::filesystem::path& file, Terminal& terminal);
DoneReport readDriverReport(const std::filesystem::path& file, Terminal& terminal);

}   // namespace tavix::engine
