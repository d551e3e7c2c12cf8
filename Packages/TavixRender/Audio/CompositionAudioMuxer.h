// The sound of a composition: its music and cues as a timeline, mixed to a file, and joined to the picture.
#pragma once

#include "TavixCore/Document/CompositionAudio.h"
#include "TavixPlatform/Media/AudioTimeline.h"
#include "TavixRender/Assets/RenderLog.h"
#include "TavixRender/Encoding/ExportOptions.h"

#include <filesystem>
#include <optional>
#include <stop_token>
#include <vector>

// What cannot be heard drops out: a missing file, a cue outside the composition, a file without sound. It is
// named in the log and fails nothing. What fails throws `Failure`; `stop` ends in `RenderStopped`.
namespace tavix::CompositionAudioMuxer {

using AssetRoot = std::optional<std::filesystem::path>;   // of relative paths

// Adds tracks to the timeline: one for the music, and lanes of cues that do not overlap. Returns whether at
// least one clip was placed. The same timeline is exported or played live.
bool insertAudio(const CompositionAudio& audio, media::AudioTimeline& into, const AssetRoot& assetRoot,
    double totalSec, const RenderLog& log = {});
bool addCues(const std::vector<SoundCue>& cues, media::AudioTimeline& to, const AssetRoot& assetRoot,
    double totalSec, const RenderLog& log = {});

struct Mix {
    const CompositionAudio& audio;
    AssetRoot assetRoot;
    double totalSec = 0;
};

// Mixes to a file of sound that the container takes, AAC or Opus, with silence up to `lengthSec`. Returns
// false, and writes nothing, when there is nothing to hear.
bool renderAudioMix(const Mix& mix, double lengthSec, const std::filesystem::path& file,
    const RenderLog& log = {}, const std::stop_token& stop = {},
    ExportContainer container = ExportContainer::mp4);

// Copies picture and sound into one file, without coding either again; the sound ends with the picture.
void remux(const std::filesystem::path& visual, const std::filesystem::path& audio,
    const std::filesystem::path& output, ExportContainer container, const std::stop_token& stop = {});

// Puts the sound under a silent film. Without anything to hear the film is moved to `output` as it is.
void mux(const std::filesystem::path& visual, const Mix& mix, const std::filesystem::path& output,
    ExportContainer container, const RenderLog& log = {}, const std::stop_token& stop = {});

}   // namespace tavix::CompositionAudioMuxer
