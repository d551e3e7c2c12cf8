#include "TavixRender/Composition2D/CompositionFootageAudit.h"

#include "TavixCore/Findings/AuthoredPath.h"
#include "TavixPlatform/Media/MediaProbe.h"
#include "TavixReel/Project/ReelProjectBundle.h"
#include "TavixRender/Assets/CompositionAssets.h"
#include "TavixRender/Composition2D/ReelPictures.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <variant>

namespace tavix::CompositionFootageAudit {

namespace {

using CompositionLint::Finding;
using CompositionLint::Level;

constexpr double toleranceSec = 0.1;   // a freeze that nobody notices

struct Footage {
    std::string path;
    double startSec = 0;
    std::optional<double> endSec;
    const char* label;
};

std::optional<Footage> footageOf(const CompositionLayer& layer) {
    const auto ofClip = [](const VideoClip& clip, const char* label) {
        return Footage{clip.path, clip.trimStartSec, clip.trimEndSec, label};
    };
    if (const auto* device = std::get_if<DeviceContent>(&layer.content)) {
        if (const auto* clip = std::get_if<VideoClip>(&device->screen)) return ofClip(*clip, "device screen");
        if (const auto* reel = std::get_if<ReelClip>(&device->screen))
            return Footage{reel->path, 0, std::nullopt, "reel on the device screen"};
    }
    if (const auto* video = std::get_if<VideoContent>(&layer.content))
        if (!video->holdLastFrame) return ofClip(video->clip, "video");
    return std::nullopt;
}

class Durations {
public:
    Durations(const std::optional<std::filesystem::path>& assetRoot, const DurationLoader& load)
        : assetRoot_(assetRoot), load_(load) {}

    std::optional<double> of(const std::string& path) {
        if (const auto known = byPath_.find(path); known != byPath_.end()) return known->second;
        const auto duration = load_(CompositionAssets::resolved(path, assetRoot_));
        if (duration) byPath_.emplace(path, *duration);
        return duration;
    }

private:
    const std::optional<std::filesystem::path>& assetRoot_;
    const DurationLoader& load_;
    std::map<std::string, double> byPath_;
};

std::string toHundredths(double seconds) {
    char text[352];   // any double fits
    std::snprintf(text, sizeof text, "%.2f", seconds);
    return text;
}

Finding tooShort(const std::string& path, const std::string& scene, const char* label, double usableSec,
    double windowSec) {
    return CompositionLint::findingOf(CompositionLint::Rule::footageShort, path,
        scene + ": the " + label + "'s footage ends " + toHundredths(usableSec) +
            "s into the layer window but the window runs to " + toHundredths(windowSec) +
            "s — the last frame freezes for " + toHundredths(windowSec - usableSec) + "s.",
        "Shorten the scene/window (durationSec/durationBeats) to fit the footage, trim later, or re-record a longer segment — recordings never stretch.");
}

}   // namespace

std::optional<double> loadDuration(const std::filesystem::path& path) {
    try {
        if (ReelProjectBundle::isBundle(path)) return ReelPictures::durationSecOf(path);
        const double seconds = media::mediaDurationSec(path);
        return seconds > 0 ? std::optional(seconds) : std::nullopt;   // some files do not tell
    } catch (const Failure&) {
        return std::nullopt;   // a film that is absent is told of by whoever wants to draw it
    }
}

std::vector<Finding> findings(const CompositionSpec& spec,
    const std::optional<std::filesystem::path>& assetRoot, const DurationLoader& load) {
    std::vector<Finding> all;
    Durations durations(assetRoot, load);
    for (std::size_t i = 0; i < spec.scenes.size(); ++i) {
        const CompositionScene& scene = spec.scenes[i];
        for (std::size_t j = 0; j < scene.layers.size(); ++j) {
            const CompositionLayer& layer = scene.layers[j];
            const auto footage = footageOf(layer);
            const auto durationSec = footage ? durations.of(footage->path) : std::nullopt;
            if (!durationSec) continue;
            const double endSec = std::min(footage->endSec.value_or(*durationSec), *durationSec);
            const double usableSec = endSec - footage->startSec;
            const double windowSec = layer.durationSec.value_or(scene.durationSec - layer.fromSec);
            if (!(windowSec > usableSec + toleranceSec)) continue;
            const std::string path = "scenes[" + std::to_string(i) + "].layers[" + std::to_string(j) + "]";
            all.push_back(tooShort(path, scene.displayName(i), footage->label, usableSec, windowSec));
        }
    }
    return CompositionLint::atAuthoredPaths(std::move(all), spec);
}

}   // namespace tavix::CompositionFootageAudit
