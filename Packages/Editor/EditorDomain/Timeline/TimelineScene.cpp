#include "Editor/EditorDomain/Timeline/TimelineScene.h"

#include "TavixCore/Time/CompositionBeats.h"
#include "TavixCore/Time/CompositionTimeline.h"
#include "TavixLive/Operations/DeviceKeyframes.h"
#include "TavixLive/Operations/TrackOperations.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <span>

namespace tavix::timeline {

namespace {

constexpr std::size_t mostLabelBytes = 60;

std::string firstLine(const std::string& text) {
    std::string line = text.substr(0, text.find('\n'));
    if (line.size() <= mostLabelBytes) return line;
    std::size_t end = mostLabelBytes;   // never inside of a character
    while (end > 0 && (static_cast<unsigned char>(line[end]) & 0xC0) == 0x80) --end;
    return line.substr(0, end) + "…";
}

std::string fileName(const std::string& path) { return std::filesystem::path(path).filename().string(); }

std::string capitalized(std::string_view word) {
    std::string text(word);
    if (!text.empty() && text.front() >= 'a' && text.front() <= 'z') text.front() -= 'a' - 'A';
    return text;
}

std::string shownBy(const LayerContent& content) {
    struct What {
        std::string operator()(const TextContent& text) const { return firstLine(text.text); }
        std::string operator()(const DeviceContent& device) const { return std::visit(*this, device.screen); }
        std::string operator()(const StillScreen& still) const { return fileName(still.path); }
        std::string operator()(const VideoClip& clip) const { return fileName(clip.path); }
        std::string operator()(const ReelClip& reel) const { return fileName(reel.path); }
        std::string operator()(const ImageContent& image) const { return fileName(image.path); }
        std::string operator()(const VideoContent& video) const { return fileName(video.clip.path); }
        std::string operator()(const ShapeContent& shape) const {
            return shape.shape == ShapeKind::rect ? "Rectangle" : "Ellipse";
        }
        std::string operator()(const BackgroundFill&) const { return {}; }
    };
    return std::visit(What(), content);
}

std::string formatted(const char* format, double value) {
    char text[48];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

void addBands(
    Scene& scene, const EditState& state, const CompositionTimeline& clock, const Collapsed& collapsed) {
    const auto& scenes = state.spec.scenes;
    for (std::size_t i = 0; i < scenes.size(); ++i) {
        const double start = clock.startSec[i];
        scene.bands.push_back({start, start + scenes[i].durationSec, clock.transitionDurations[i],
            i > 0 ? clock.transitionDurations[i - 1] : 0, scenes[i].displayName(i),
            formatted("%.1fs", scenes[i].durationSec), scenes[i].layers.size(), state.selection.scene == i,
            collapsed.contains(i)});
        if (!collapsed.contains(i)) scene.rows = std::max(scene.rows, int(scenes[i].layers.size()));
    }
}

// Where two scenes overlap the later one lies on top, but the selected one above all.
std::vector<std::size_t> drawingOrder(const EditState& state) {
    std::vector<std::size_t> order;
    for (std::size_t i = 0; i < state.spec.scenes.size(); ++i)
        if (state.selection.scene != i) order.push_back(i);
    if (state.selection.scene && *state.selection.scene < state.spec.scenes.size())
        order.push_back(*state.selection.scene);
    return order;
}

void addBars(Scene& scene, const EditState& state) {
    for (const std::size_t i : drawingOrder(state)) {
        const CompositionScene& from = state.spec.scenes[i];
        if (scene.bands[i].isCollapsed) continue;
        for (std::size_t k = 0; k < from.layers.size(); ++k) {
            const CompositionLayer& layer = from.layers[k];
            const double start = scene.bands[i].startSec + layer.fromSec;
            Bar bar{{i, k}, int(from.layers.size() - 1 - k), kindOf(layer.content), start,
                start + LayerOperations::layerWindowLength(state.spec, i, k), barLabel(layer),
                keyframeTimes(layer), state.selection.contains({i, k}), !layer.durationSec,
                isLabelledByKind(layer)};
            scene.bars.push_back(std::move(bar));
        }
    }
}

KeyframeRow rowOf(
    std::string label, std::optional<std::size_t> track, std::span<const CompositionKeyframe> keyframes) {
    KeyframeRow row{track, std::move(label), {}};
    double least = INFINITY, most = -INFINITY;
    for (const CompositionKeyframe& keyframe : keyframes) {
        least = std::min(least, keyframe.value);
        most = std::max(most, keyframe.value);
    }
    for (const CompositionKeyframe& keyframe : keyframes)
        row.marks.push_back(
            {keyframe.t, keyframe.ease, most > least ? (keyframe.value - least) / (most - least) : 0.5});
    return row;
}

void addKeyframeRows(Scene& scene, const EditState& state) {
    const Selection& selected = state.selection;
    if (!selected.scene || !selected.layer || *selected.scene >= state.spec.scenes.size()) return;
    const auto& layers = state.spec.scenes[*selected.scene].layers;
    if (*selected.layer >= layers.size()) return;
    const CompositionLayer& layer = layers[*selected.layer];
    scene.layer = LayerPlace{*selected.scene, *selected.layer};
    scene.layerStartSec = scene.bands[*selected.scene].startSec + layer.fromSec;
    if (const auto* device = std::get_if<DeviceContent>(&layer.content)) {
        KeyframeRow row{std::nullopt, "Device", {}};
        for (const double sec : DeviceKeyframes::unifiedKeyframeTimes(*device))
            row.marks.push_back({sec, std::nullopt, 0.5});
        scene.keyframeRows.push_back(std::move(row));
    }
    for (std::size_t i = 0; i < layer.tracks.size(); ++i)
        scene.keyframeRows.push_back(
            rowOf(propertyLabel(layer.tracks[i].property), i, layer.tracks[i].keyframes));
}

void addSound(Scene& scene, const EditState& state) {
    if (!state.spec.audio) return;
    if (const auto& music = state.spec.audio->music; music && !music->path.empty()) {
        scene.hasMusic = true;
        scene.musicStartsAtSec = music->startAtSec;
        scene.musicName = fileName(music->path);
    }
    for (const SoundCue& cue : state.spec.audio->cues) scene.cues.push_back({cue.atSec, fileName(cue.sound)});
}

}   // namespace

Scene sceneOf(const EditState& state, const Collapsed& collapsed) {
    const CompositionTimeline clock(state.spec);
    Scene scene;
    scene.totalSec = clock.totalSec;
    scene.beats = CompositionBeats::grid(state.spec);
    addBands(scene, state, clock, collapsed);
    addBars(scene, state);
    addSound(scene, state);
    addKeyframeRows(scene, state);
    return scene;
}

std::string barLabel(const CompositionLayer& layer) {
    if (layer.id && !layer.id->empty()) return *layer.id;
    const std::string shown = shownBy(layer.content);
    return shown.empty() ? capitalized(kindName(layer.content)) : shown;
}

bool isLabelledByKind(const CompositionLayer& layer) {
    if (layer.id && !layer.id->empty()) return false;
    return std::holds_alternative<ShapeContent>(layer.content) || shownBy(layer.content).empty();
}

std::string selectionSummary(const EditState& state) {
    const Selection& selected = state.selection;
    if (!selected.scene || *selected.scene >= state.spec.scenes.size()) return {};
    const CompositionScene& scene = state.spec.scenes[*selected.scene];
    std::string text = scene.displayName(*selected.scene);
    if (!selected.layer || *selected.layer >= scene.layers.size()) return text;
    text += " · " + std::string(kindName(scene.layers[*selected.layer].content)) + " layer " +
            std::to_string(*selected.layer);
    if (!selected.others.empty()) text += " and " + std::to_string(selected.others.size()) + " more";
    return text;
}

std::vector<double> keyframeTimes(const CompositionLayer& layer) {
    std::vector<double> all;
    for (const PropertyTrack& track : layer.tracks)
        for (const CompositionKeyframe& keyframe : track.keyframes) all.push_back(keyframe.t);
    if (const auto* device = std::get_if<DeviceContent>(&layer.content))
        for (const double sec : DeviceKeyframes::unifiedKeyframeTimes(*device)) all.push_back(sec);
    std::ranges::sort(all);
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

std::string propertyLabel(AnimProperty property) {
    switch (property) {
    case AnimProperty::opacity: return "Opacity";
    case AnimProperty::x: return "Move X";
    case AnimProperty::y: return "Move Y";
    case AnimProperty::scale: return "Scale";
    case AnimProperty::scaleX: return "Width";
    case AnimProperty::scaleY: return "Height";
    case AnimProperty::rotationDeg: return "Turn";
    case AnimProperty::skewXDeg: return "Skew X";
    case AnimProperty::skewYDeg: return "Skew Y";
    case AnimProperty::blur: return "Blur";
    }
    return {};
}

}   // namespace tavix::timeline
