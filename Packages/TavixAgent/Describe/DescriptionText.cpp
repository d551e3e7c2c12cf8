#include "TavixAgent/Describe/DescribeFrame.h"
#include "TavixCore/Support/Decimals.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace tavix {
namespace {

constexpr std::size_t mostLayers = 24, mostLines = 6, mostHappeningLines = 60;

std::string seconds(double sec) { return twoDecimals(sec) + " s"; }

std::string whole(double value) { return decimals(std::round(value), 0); }

// "120,80 640x360": where it begins, and its size.
std::string placeOf(const PixelRect& box) {
    return whole(box.x) + "," + whole(box.y) + " " + whole(box.width) + "x" + whole(box.height);
}

std::string percent(double fraction) { return decimals(std::round(fraction * 100), 0) + " %"; }

std::string joined(const std::vector<std::string>& words, std::size_t most) {
    std::string text;
    for (std::size_t i = 0; i < std::min(words.size(), most); ++i) text += (i == 0 ? "" : ", ") + words[i];
    if (words.size() > most) text += " and " + std::to_string(words.size() - most) + " more";
    return text;
}

std::string textOf(const LayerDescription& layer) {
    std::string text = layer.kind + (layer.id ? " \"" + *layer.id + "\"" : "") + " " + layer.path + "  box " +
                       placeOf(layer.box);
    if (layer.insideFraction < 0.9995) text += "; " + percent(layer.insideFraction) + " inside the frame";
    if (layer.hiddenFraction > 0)
        text += "; " + percent(layer.hiddenFraction) + " hidden" +
                (layer.hiddenBy ? ", most by " + *layer.hiddenBy : "");
    if (layer.opacity < 0.9995) text += "; opacity " + twoDecimals(layer.opacity);
    text += std::string("; ") + (layer.moves ? "moves" : "rests") + " from " + seconds(layer.sinceSec) +
            " to " + seconds(layer.untilSec);
    if (layer.contrast) text += "; contrast " + decimals(*layer.contrast, 1) + ":1";
    if (!layer.fonts.empty()) text += "; " + joined(layer.fonts, 3);
    text += "\n";
    for (std::size_t i = 0; i < std::min(layer.lines.size(), mostLines); ++i)
        text += "    \"" + layer.lines[i].text + "\"  " + placeOf(layer.lines[i].box) + "\n";
    if (layer.lines.size() > mostLines)
        text += "    and " + std::to_string(layer.lines.size() - mostLines) + " more lines\n";
    return text;
}

std::string textOf(const SceneDescription& scene) {
    std::string text = "scene \"" + scene.name + "\" " + scene.path + " at " + seconds(scene.localSec) +
                       " of " + seconds(scene.durationSec) + ", from front to back:\n";
    for (std::size_t i = 0; i < std::min(scene.layers.size(), mostLayers); ++i)
        text += "  " + textOf(scene.layers[scene.layers.size() - 1 - i]);
    if (scene.layers.size() > mostLayers)
        text += "  and " + std::to_string(scene.layers.size() - mostLayers) + " more behind them\n";
    if (scene.layers.empty()) text += "  nothing but the background\n";
    if (!scene.absent.empty()) text += "  not shown now: " + joined(scene.absent, 8) + "\n";
    return text;
}

}   // namespace

std::string textOf(const FrameDescription& frame) {
    std::string text = "at " + seconds(frame.atSec) + " of " + seconds(frame.filmSec) + ", " +
                       std::to_string(frame.widthPx) + "x" + std::to_string(frame.heightPx);
    if (frame.transition)
        text += ", transition " + *frame.transition + " at " + percent(frame.transitionProgress.value_or(0)) +
                "; boxes are those before it moves the scenes";
    text += "\n";
    if (frame.music) text += "music " + *frame.music + " at " + seconds(frame.musicSec.value_or(0));
    if (frame.beat)
        text += ", beat " + twoDecimals(frame.beat->beat) + " at " + decimals(frame.beat->bpm, 1) +
                " bpm, nearest at " + seconds(frame.beat->nearestSec);
    if (frame.music) text += "\n";
    for (const SoundDescription& sound : frame.sounds)
        text += "sound " + sound.sound + " " + sound.path + " at " + seconds(sound.atSec) + "\n";
    for (const SceneDescription& scene : frame.scenes) text += textOf(scene);
    return text;
}

// What a layer does stands in one line, where it does the first of it.
std::string textOf(const RangeDescription& range) {
    std::vector<std::pair<std::string, std::string>> lines;   // by path and name
    for (const HappeningDescription& happening : range.happenings) {
        const std::string who = happening.path + " " + happening.name;
        auto line = std::ranges::find(lines, who, &std::pair<std::string, std::string>::first);
        if (line == lines.end()) line = lines.insert(lines.end(), {who, ""});
        const bool isInstant = happening.toSec <= happening.fromSec;
        line->second += (line->second.empty() ? "" : ", ") + happening.what + " " +
                        twoDecimals(happening.fromSec) +
                        (isInstant ? "" : "-" + twoDecimals(happening.toSec));
        if (happening.what == "rests") line->second += " at " + placeOf(happening.box);
    }
    std::string text = "from " + seconds(range.fromSec) + " to " + seconds(range.toSec) + " of " +
                       seconds(range.filmSec) + "\n";
    for (std::size_t i = 0; i < std::min(lines.size(), mostHappeningLines); ++i)
        text += lines[i].first + ": " + lines[i].second + "\n";
    if (lines.size() > mostHappeningLines)
        text +=
            "and " + std::to_string(lines.size() - mostHappeningLines) + " more; ask for a shorter range\n";
    return text;
}

}   // namespace tavix
