// The document of a reel as it stood in its file: what saving starts from, and what two hands on the file
// have in common.
#pragma once

#include "TavixLive/Saving/FileChanged.h"
#include "TavixReel/Document/EffectsSpec.h"

#include <filesystem>
#include <optional>
#include <string>

namespace tavix {

struct ReelOnDisk {
    std::optional<std::string> text;     // nothing: there was no such file
    EffectsSpec spec;                    // what it says, or what counts in its place
    std::optional<std::string> damage;   // why it says nothing

    // Nothing where there is no such file. Throws a `Failure` for one that cannot be read.
    static std::optional<std::string> textIn(const std::filesystem::path& file);
    // Throws a `Failure` for a text that is no document of a reel.
    static ReelOnDisk of(std::string text);

    // Writes the edited document over the file, changed where it was edited and nowhere else. A text that was
    // damaged stays beside it, under `damagedName`. Gives what stands on disk now. Throws `FileChanged` or
    // another `Failure`, and then the file is as it was.
    ReelOnDisk saved(const EffectsSpec& edited, const std::filesystem::path& file, IfChanged ifChanged) const;

    static std::filesystem::path damagedName(const std::filesystem::path& file);   // "effects.json.damaged"
};

}   // namespace tavix
