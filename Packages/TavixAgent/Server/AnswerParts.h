// The result of a tool's call as the protocol has it, within bounds.
#pragma once

#include "TavixAgent/Server/Tools.h"

#include <optional>
#include <string>

namespace tavix {

inline constexpr std::size_t mostAnswerCharacters = 20'000;
inline constexpr int mostPictureSidePx = 1000;
inline constexpr std::size_t mostPictureBytes = 250'000;

// A longer answer is cut, with a cursor for what follows; a picture is made small enough. Throws `UsageError`
// for a cursor that was never given.
Json answerParts(const ToolAnswer& answer, const std::optional<std::string>& cursor);

// What went wrong and what to do, for the model to read.
Json failedAnswer(const std::string& sentence);

}   // namespace tavix
