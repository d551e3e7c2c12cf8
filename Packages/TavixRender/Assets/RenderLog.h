// Where a render tells what it does, and what it does otherwise than the document asks.
#pragma once

#include "TavixBase/Finding.h"

#include <functional>
#include <string>
#include <string_view>

namespace tavix {

using RenderLog = std::function<void(const Finding&)>;

// Told to a log that may be empty.
void tell(const RenderLog& log, const Finding& finding);

// The same log, told nothing twice: what several layers lack is named once. Used by one thread at a time.
RenderLog onceEach(RenderLog log);
// The same log for what happens at a place of the document: findings without a path get this one.
RenderLog placedAt(std::string path, RenderLog log);

// By what programs know the findings of a render. What lint finds too has the code of its rule.
namespace RenderCode {
inline constexpr std::string_view
    // Warnings: something is not drawn or heard as the document asks.
    pictureMissing = "picture-missing",
    clipMissing = "clip-missing", clipDamaged = "clip-damaged", fontMissing = "font-missing",
    textCut = "text-cut", phoneMissing = "phone-missing", phoneNotBuilt = "phone-not-built",
    phoneNotDrawn = "phone-not-drawn", frameNotDrawn = "frame-not-drawn",
    screenNotUpdated = "screen-not-updated", soundMissing = "sound-missing", soundDamaged = "sound-damaged",
    // Notes: what was done.
    soundAdded = "sound-added", soundAbsent = "sound-absent", written = "written",
    // Progress.
    rendering = "rendering", rendered = "rendered", scrub = "scrub";
}   // namespace RenderCode

}   // namespace tavix
