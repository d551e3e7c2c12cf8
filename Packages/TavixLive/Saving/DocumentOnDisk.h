// The document of a bundle as it stood in its file, and what it was read as: what saving starts from, and
// what two hands on the file have in common.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"
#include "TavixLive/Saving/FileChanged.h"

#include <filesystem>
#include <string>

namespace tavix {

struct DocumentOnDisk {
    std::string text;
    CompositionSpec spec;   // with its beats and marks resolved, unless one of them cannot be

    // Throws a `Failure` for what is no bundle or cannot be read.
    static DocumentOnDisk read(const std::filesystem::path& bundle);
    // Of a text that once stood in the file. Throws a `DecodingError`.
    static DocumentOnDisk of(std::string text, const std::filesystem::path& bundle);
    // What stands in the file now. Throws a `Failure` when it cannot be read.
    static std::string textIn(const std::filesystem::path& bundle);

    using Changed = FileChanged;
    using IfChanged = tavix::IfChanged;

    // What the edited document is written as: this text, changed where it was edited and nowhere else. Reads
    // sidecars of recordings.
    std::string textFor(const CompositionSpec& edited, const std::filesystem::path& bundle) const;
    // Writes a text over the file, which has this one. Gives what stands on disk now. Throws `Changed` or
    // another `Failure`, and then the file is as it was.
    DocumentOnDisk replaced(
        std::string fresh, const std::filesystem::path& bundle, IfChanged ifChanged) const;
    DocumentOnDisk saved(
        const CompositionSpec& edited, const std::filesystem::path& bundle, IfChanged ifChanged) const {
        return replaced(textFor(edited, bundle), bundle, ifChanged);
    }
};

}   // namespace tavix
