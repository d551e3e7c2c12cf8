// What a live preview of a document costs on this machine: it is opened, scrubbed, edited and played, as a
// hand would, without a window and to no loudspeaker.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixPlatform/Imaging/Bitmap.h"
#include "TavixRender/Assets/RenderLog.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace tavix {

// In milliseconds; zero when nothing was measured.
struct Latencies {
    std::vector<double> all;
    double percentile(double part) const;   // 0 to 1, the nearest measured one that is not below
    double medianMs() const { return percentile(0.5); }
    double p95Ms() const { return percentile(0.95); }
};

struct RehearsalReport {
    imaging::Size stage;
    double firstPictureMs = 0;
    Latencies scrubMs, editMs;   // until the picture is on the stage
    double playedSec = 0, picturesPerSec = 0, droppedShare = 0;
    double dragPicturesPerSec = 0;   // of a device in space; 0 without one
    double driftMs = 0;              // of pictures against the sound, the worst
    double mainHoldMs = 0;           // the longest time that the main executor was held
    // What a layer adds to building the document anew, the dearest first.
    struct LayerCost {
        std::size_t scene, layer;
        std::string name;
        double buildMs, frameMs;   // of its frame in the middle of its time, drawn anew
    };
    std::vector<LayerCost> layers;
};

struct RehearsalPlan {
    imaging::Size room{540, 960};
    double mostPlayedSec = 20;
    double draggedSec = 2;
    int scrubs = 40, edits = 24;
};

// Blocks until it is done. The document has its beats, marks and presets resolved. Throws a `Failure` when it
// cannot be shown.
RehearsalReport rehearse(const CompositionSpec& spec, const std::optional<std::filesystem::path>& assetRoot,
    const RehearsalPlan& plan, const RenderLog& log);

}   // namespace tavix
