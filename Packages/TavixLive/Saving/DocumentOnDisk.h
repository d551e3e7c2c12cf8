// The document of a bundle as it stood in its file, and what it was read as: what saving starts from.
#pragma once

#include "TavixCore/Document/CompositionSpec.h"

#include <filesystem>
#include <string>

namespace tavix {

struct DocumentOnDisk {
    std::string text;
    CompositionSpec spec;   // with its beats and marks resolved, unless one of them cannot be

    // Throws a `Failure` for what is no bundle or cannot be read.
    static DocumentOnDisk read(const std::filesystem::path& bundle);

    enum class IfChanged { refuse, overwrite };   // where another program has written the file since

    // Writes the edited document over the file, changed where it was edited and nowhere else. Gives what
    // stands on disk now. Throws a `Failure`, and then the file is as it was.
    DocumentOnDisk saved(
        const CompositionSpec& edited, const std::filesystem::path& bundle, IfChanged ifChanged) const;
};

}   // namespace tavix
