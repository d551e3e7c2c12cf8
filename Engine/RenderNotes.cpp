#include "Engine/RenderNotes.h"

#include "Engine/Terminal.h"

#include <string_view>

namespace tavix::engine {

namespace {

constexpr std::string_view warningMark = "⚠️ ";
constexpr std::string_view doneMark =
    "✓ ";   // speaks of the unfinished file; the verb tells of the finished one

}   // namespace

RenderLog RenderNotes::log() {
    return [this](const std::string& line) { take(line); };
}

void RenderNotes::warn(const std::string& sentence) {
    warnings_.emplace_back(sentence);
    terminal_.warn(sentence);
}

void RenderNotes::take(const std::string& line) {
    if (line.starts_with(doneMark)) return;
    if (!line.starts_with(warningMark)) return terminal_.tell(line);
    const std::string sentence = line.substr(warningMark.size());
    if (terminal_.mode() != Terminal::Mode::people) return warn(sentence);
    terminal_.tell(line);
}

}   // namespace tavix::engine
