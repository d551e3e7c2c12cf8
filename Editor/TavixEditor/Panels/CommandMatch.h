// Finds commands by a few letters of their words.
#pragma once

#include <QString>

#include <optional>

namespace tavix::editor {

// How well the letters match, the best being the least; nothing when they do not stand in the words in that
// order, whatever their case. Letters at the starts of words and in one piece match best.
std::optional<int> commandRank(const QString& words, const QString& letters);

}   // namespace tavix::editor
