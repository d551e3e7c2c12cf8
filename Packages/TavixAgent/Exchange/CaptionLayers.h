// The texts of a film as captions, and captions as layers of its scenes.
#pragma once

#include "TavixAgent/Exchange/Subtitles.h"
#include "TavixCore/Document/CompositionSpec.h"
#include "TavixCore/Paths/JsonPatch.h"

#include <span>
#include <vector>

namespace tavix {

// Every text layer of a film whose times are in seconds, on the film's clock and in the order of their
// starts. A text that goes on over a cut, the same words at once in both scenes, is one caption.
std::vector<SubtitleCue> captionsOf(const CompositionSpec& film);

struct CaptionImport {
    JsonPatch patch;              // of the document as it is written
    std::vector<Finding> notes;   // what the film has no room for
};
// Each caption becomes a text layer "caption-N" near the lower edge, in every scene that it is seen in; those
// of an earlier import go. `film` is the document with its times in seconds.
CaptionImport captionLayers(
    std::span<const SubtitleCue> captions, const CompositionSpec& film, const Json& written);

}   // namespace tavix
