#include "Engine/Reel/ReelRecording.h"

#include "Engine/Console/Terminal.h"
#include "Engine/Reel/KnownProbes.h"
#include "Engine/System/Errors.h"
#include "TavixCore/Judge/PassedOver.h"
#include "TavixCore/Support/Document.h"
#include "TavixCore/Support/FileBytes.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixReel/Recording/PixelMarkAlignment.h"
#include "TavixRender/Recording/SyncFrameDetector.h"

#include <algorithm>
#include <cmath>
#include <system_error>

namespace tavix::engine {

namespace {

namespace fs = std::filesystem;

// Whatever reading passes over is told.
template <class T> T readDocument(const fs::path& file, Terminal& terminal) {
    try {
        const Json json = parseJson(readBytes(file, JsonLimits{}.maxBytes));
        T document = decodeValue<T>(json);
        for (Finding& finding : CompositionLint::passedOver(json, typeOf<T>())) {
            const std::string shown = file.string() + ": " + finding.path + ": " + finding.message;
            finding.file = file.string();
            terminal.warn(std::move(finding), shown);
        }
        return document;
    } catch (const DecodingError& error) {
        throw DocumentError(file.string(), error.path(), error.message());
    }
}

// On the clock of the document, with the times of the pictures where they were marked.
Timeline aligned(const Timeline& sidecar, const VideoProbe& probe, Terminal& terminal) {
    auto result = PixelMarkAlignment::onReelClock(sidecar, probe);
    const std::string expected = std::to_string(result.expected);
    if (result.matched > 0)
        terminal.tell(
            "Found " + std::to_string(result.matched) + " of " + expected + " marks in the picture.");
    else if (result.expected > 0 && !probe.markBlipSeconds.empty())
        terminal.warn("marks-unlike",
            "The marks in the picture do not fit the sidecar, so its own times are used: it speaks of " +
                expected + ", and " + std::to_string(probe.markBlipSeconds.size()) + " were seen.");
    return std::move(result.timeline);
}

void warnOfOtherSize(const Timeline::Video& told, const VideoProbe& probe, Terminal& terminal) {
    const auto size = [](std::int64_t width, std::int64_t height) {
        return std::to_string(width) + " × " + std::to_string(height);
    };
    if (told.widthPx == probe.widthPx && told.heightPx == probe.heightPx) return;
    terminal.warn("size-unlike", "The sidecar speaks of a video of " + size(told.widthPx, told.heightPx) +
                                     " pixels, but this one has " + size(probe.widthPx, probe.heightPx) +
                                     "; the camera goes by the sidecar.");
}

}   // namespace

double ReelRecording::preCutDurationSec() const {
    return std::max(probe.trimEndSec(rawDurationSec) - probe.trimStartSec(), 0.0);
}

ReelRecording openRecording(const std::string& given, Terminal& terminal, ProbeMemory memory) {
    ReelRecording recording;
    recording.shownPath = given;
    recording.parts = ReelProjectBundle::parts(given);
    const auto& parts = recording.parts;
    if (std::error_code ignored; fs::is_directory(parts.rawVideo, ignored))
        throw UsageError("\"" + given + "\" is a folder without a " +
                         std::string(ReelProjectBundle::rawVideoName) +
                         "; name a video, or a bundle whose name ends in ." +
                         std::string(ReelProjectBundle::pathExtension) + ".");
    const std::string bundle = given + "." + std::string(ReelProjectBundle::pathExtension);
    if (std::error_code ignored; !fs::exists(given, ignored) && ReelProjectBundle::isBundle(bundle))
        throw UsageError("There is no \"" + given + "\"; the reel's name is \"" + bundle + "\".");
    recording.hasSidecar = isFile(parts.timeline);
    std::optional<Timeline> sidecar;   // read first: what is wrong with it is told at once
    if (recording.hasSidecar) sidecar = readDocument<Timeline>(parts.timeline, terminal);
    recording.probe = probeRecording(parts.rawVideo, terminal, memory);
    recording.rawDurationSec = media::mediaDurationSec(parts.rawVideo);
    if (sidecar) {
        warnOfOtherSize(sidecar->video, recording.probe, terminal);
        recording.timeline = aligned(*sidecar, recording.probe, terminal);
    } else {
        recording.timeline.video = {recording.probe.widthPx, recording.probe.heightPx, recording.probe.fps};
    }
    return recording;
}

namespace {

VideoProbe lookedThrough(const fs::path& video, Terminal& terminal) {
    constexpr double soonSec = 60;   // of recording: nobody waits for less
    SyncFrameDetector::requirePictures(video);
    if (media::mediaDurationSec(video) > soonSec)
        terminal.tell("• Looking through \"" + video.string() + "\" for its marks");
    return SyncFrameDetector::probe(video);
}

}   // namespace

VideoProbe probeRecording(const fs::path& video, Terminal& terminal, ProbeMemory memory) {
    const KnownProbes known = KnownProbes::usual();
    const auto found = memory == ProbeMemory::used ? known.find(video) : std::nullopt;
    const VideoProbe probe = found ? *found : lookedThrough(video, terminal);
    if (memory == ProbeMemory::used && !found) known.keep(video, probe);
    if (probe.isDamaged)
        terminal.warn("recording-damaged",
            "\"" + video.string() +
                "\" is damaged or cut short; where a picture cannot be decoded, the one before it stays, and marks there are not found.",
            video.string());
    return probe;
}

fs::path newDocument(const std::optional<std::string>& asked, const fs::path& usual, bool replaces) {
    const fs::path file = asked ? fs::path(*asked) : usual;
    if (!file.has_filename()) throw UsageError("The output \"" + file.string() + "\" has no name.");
    std::error_code ignored;
    if (!replaces && fs::exists(fs::symlink_status(file, ignored)))
        throw Failure(
            "\"" + file.string() +
            "\" is there already and may have been edited; give --replace, or another name with -o.");
    return file;
}

EffectsSpec readEffects(const fs::path& file, Terminal& terminal) {
    return readDocument<EffectsSpec>(file, terminal);
}
FlowSpec readFlow(const fs::path& file, Terminal& terminal) { return readDocument<FlowSpec>(file, terminal); }
TeaserSpec readTeaser(const fs::path& file, Terminal& terminal) {
    return readDocument<TeaserSpec>(file, terminal);
}
DoneReport readDriverReport(const fs::path& file, Terminal& terminal) {
    return readDocument<DoneReport>(file, terminal);
}

}   // namespace tavix::engine
