#include "Engine/RenderNotes.h"

#include "Engine/Terminal.h"

#include <string_view>
#include <variant>

namespace tavix::engine {

namespace {

constexpr std::string_view warningMark = "⚠️ ";
constexpr std::string_view doneMark =
    "✓ ";   // speaks of the unfinished file; the verb tells of the finished one

bool isDrawn(const LayerContent& content) {
    return std::holds_alternative<BackgroundFill>(content) || std::holds_alternative<ShapeContent>(content) ||
           std::holds_alternative<ImageContent>(content) || std::holds_alternative<DeviceContent>(content) ||
           std::holds_alternative<VideoContent>(content);
}

}   // namespace

RenderLog RenderNotes::log() {
    return [this](const std::string& line) { take(line); };
}

void RenderNotes::warn(const std::string& sentence) {
    warnings_.emplace_back(sentence);
    terminal_.warn(sentence);
}

void RenderNotes::warnOfUndrawnLayers(const CompositionSpec& spec) {
    int count = 0;
    for (const CompositionScene& scene : spec.scenes)
        for (const CompositionLayer& layer : scene.layers) count += isDrawn(layer.content) ? 0 : 1;
    if (count == 0) return;
    warn("Text layers are not drawn yet; " +
         (count == 1 ? std::string("one is") : std::to_string(count) + " are") + " left out.");
}

void RenderNotes::take(const std::string& line) {
    if (line.starts_with(doneMark)) return;
    if (!line.starts_with(warningMark)) return terminal_.tell(line);
    const std::string sentence = line.substr(warningMark.size());
    if (terminal_.mode() != Terminal::Mode::people) return warn(sentence);
    terminal_.tell(line);
}

}   // namespace tavix::engine
